#include "controls/Lists.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "controls/Utf8.h"
#include "store/TextOrder.h"

namespace FX_Algen::controls {

namespace {

/// Below -1 and past the end there is nothing to choose.
void CheckIndex(const Control& control, int count, int index) {
    if (index >= -1 && index < count) return;
    throw Error(ErrorNumber::IndexOutOfRange, std::string(KindName(control.Kind())) + " \"" + control.Name() +
                                                  "\" has no entry " + std::to_string(index) + ".");
}

}  // namespace

const std::string& Entries::At(int index) const {
    if (index < 0 || index >= Count())
        throw Error(ErrorNumber::IndexOutOfRange, "The list has no entry " + std::to_string(index) + ".");
    return entries_[static_cast<std::size_t>(index)];
}

std::optional<int> Entries::Find(std::string_view text) const {
    const auto found = std::find(entries_.begin(), entries_.end(), text);
    if (found == entries_.end()) return std::nullopt;
    return static_cast<int>(found - entries_.begin());
}

std::optional<int> Entries::FindBeginning(std::string_view text) const {
    const int length = CountCharacters(text);
    const auto begins = [&](const std::string& entry) {
        const std::string_view head(entry.data(), ByteOf(entry, length));
        return store::CompareCaseBlind(head, text) == 0;
    };
    const auto found = std::find_if(entries_.begin(), entries_.end(), begins);
    if (found == entries_.end()) return std::nullopt;
    return static_cast<int>(found - entries_.begin());
}

// -- combo

void ComboBox::ListIndex(int index) {
    CheckIndex(*this, list_.Count(), index);
    if (PutIndex(index) && index >= 0) Clicked();
}

bool ComboBox::PutIndex(int index) {
    const bool other = index != index_;
    index_ = index;
    auto text = index < 0 ? std::string() : list_.At(index);
    const int end = CountCharacters(text);
    // Another entry may have the same text.
    if (!Put(std::move(text), end, 0) && other) Tell();
    return other;
}

void ComboBox::AddItem(std::string entry) {
    list_.entries_.push_back(std::move(entry));
    Tell();
}

void ComboBox::Items(std::vector<std::string> entries) {
    list_.entries_ = std::move(entries);
    index_ = -1;
    Put({}, 0, 0);
    Tell();
}

void ComboBox::Clear() { Items({}); }

void ComboBox::Complete(int index, int typed) {
    const auto& entry = list_.At(index);
    index_ = index;
    Put(entry, typed, CountCharacters(entry));
    Tell();
}

void ComboBox::TextFollowed() {
    if (index_ >= 0 && list_.At(index_) == TextBox::Text()) return;
    const int found = list_.Find(TextBox::Text()).value_or(-1);
    if (found == index_) return;
    index_ = found;
    Tell();
}

// -- list box

void ListBox::ListIndex(int index) {
    CheckIndex(*this, list_.Count(), index);
    if (PutIndex(index) && index >= 0) Clicked();
}

bool ListBox::PutIndex(int index) {
    if (index == index_) return false;
    index_ = index;
    Tell();
    return true;
}

std::string ListBox::Text() const { return index_ < 0 ? std::string() : list_.At(index_); }

void ListBox::Text(std::string_view text) { ListIndex(list_.Find(text).value_or(-1)); }

void ListBox::TopIndex(int index) {
    if (index != 0) list_.At(index);
    Set(topIndex_, index);
}

void ListBox::AddItem(std::string entry) {
    list_.entries_.push_back(std::move(entry));
    Tell();
}

void ListBox::Items(std::vector<std::string> entries) {
    list_.entries_ = std::move(entries);
    index_ = -1;
    topIndex_ = 0;
    Tell();
}

void ListBox::Clear() { Items({}); }

// -- list view

void ListView::ColumnHeaders(std::vector<ColumnHeader> heads) {
    heads_ = std::move(heads);
    Tell();
}

void ListView::Index(int index) {
    CheckIndex(*this, static_cast<int>(rows_.size()), index);
    Set(index_, index);
}

void ListView::Rows(std::vector<std::vector<std::string>> rows) {
    rows_ = std::move(rows);
    if (index_ >= static_cast<int>(rows_.size())) index_ = -1;
    Tell();
}

}  // namespace FX_Algen::controls
