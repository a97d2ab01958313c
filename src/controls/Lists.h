#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Kinds.h"

namespace FX_Algen::controls {

/// Entries and the one chosen, as combos and list boxes share them. Positions count from 0, -1 is none.
class Entries {
public:
    const std::vector<std::string>& All() const noexcept { return entries_; }
    int Count() const noexcept { return static_cast<int>(entries_.size()); }
    const std::string& At(int index) const;  ///< 381 past the end
    /// The first entry that equals the text, upper and lower case told apart.
    std::optional<int> Find(std::string_view text) const;
    /// The first entry that begins with the text, without regard to case, umlauts included.
    std::optional<int> FindBeginning(std::string_view text) const;

private:
    friend class ComboBox;
    friend class ListBox;
    std::vector<std::string> entries_;
};

/// A field with a list. A person chooses an entry or types; a hidden one serves as a list that runs in
/// parallel with another.
///
/// Assigning the text selects the entry that equals it, none where there is no such entry; choosing an entry
/// sets the text. `OnClick` follows a choice, by a person (of the same entry too) or by `ListIndex` (of
/// another one); `OnChange` follows a text that a person typed or that code assigned.
class ComboBox : public TextBox {
public:
    ComboBox(Form& owner, std::string name) : TextBox(owner, Kind::ComboBox, std::move(name)) {}

    const Entries& List() const noexcept { return list_; }
    int ListIndex() const noexcept { return index_; }
    /// -1 chooses none and empties the text; 381 past the end.
    void ListIndex(int index);
    void AddItem(std::string entry);
    /// All entries at once; nothing is chosen and the text is empty then.
    void Items(std::vector<std::string> entries);
    /// Takes all entries and the text away.
    void Clear();
    /// Text and cursor as type-ahead leaves them: the entry's text, what was not typed being selected.
    /// 381 past the end.
    void Complete(int index, int typed);

protected:
    void TextFollowed() override;

private:
    friend class Input;
    /// The entry chosen and its text, without calling a handler. True where it is another entry now.
    bool PutIndex(int index);

    Entries list_;
    int index_ = -1;
};

/// A list of which one entry may be chosen.
class ListBox : public Control {
public:
    ListBox(Form& owner, std::string name) : Control(owner, Kind::ListBox, std::move(name)) {}
    const Entries& List() const noexcept { return list_; }
    int ListIndex() const noexcept { return index_; }
    void ListIndex(
        int index);  ///< -1 chooses none; 381 past the end. `OnClick` follows where it changes to an entry
    /// Text of the entry chosen; empty for none.
    std::string Text() const;
    /// Chooses the first entry that equals the text, none where there is no such entry.
    void Text(std::string_view text);
    void AddItem(std::string entry);
    void Items(std::vector<std::string> entries);
    void Clear();
    /// The first entry in view; 381 past the end.
    int TopIndex() const noexcept { return topIndex_; }
    void TopIndex(int index);

private:
    friend class Input;
    bool PutIndex(int index);

    Entries list_;
    int index_ = -1, topIndex_ = 0;
};

/// A list with heads, each with a tag of its own.
struct ColumnHeader {
    std::string Tag = "0";
    std::string Text;
};

class ListView : public Control {
public:
    ListView(Form& owner, std::string name) : Control(owner, Kind::ListView, std::move(name)) {}
    const std::vector<ColumnHeader>& ColumnHeaders() const noexcept { return heads_; }
    void ColumnHeaders(std::vector<ColumnHeader> heads);
    const std::vector<std::vector<std::string>>& Rows() const noexcept { return rows_; }
    void Rows(std::vector<std::vector<std::string>> rows);
    int Index() const noexcept { return index_; }
    void Index(int index);  ///< -1 chooses none; 381 past the end

private:
    std::vector<ColumnHeader> heads_;
    std::vector<std::vector<std::string>> rows_;
    int index_ = -1;
};

}  // namespace FX_Algen::controls
