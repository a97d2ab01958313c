#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace FX_Algen::store {

/// The string table: one number space for all languages, German from 10000, English from 20000.
///
/// Read from tab-separated lines "number TAB text" in UTF-8; "\n" in a text is a line break, blanks at
/// its ends belong to it. A line of another form, a number that stands twice or lies outside 16 bits is
/// refused with the file's name and the line.
class StringTable {
public:
    /// Adds the lines of one file. `name` is for messages.
    void Read(std::string_view name, std::string_view lines);

    /// The text of a number; none where the table has a gap.
    std::optional<std::string_view> Find(std::int32_t number) const;

    /// The text of a number; 326 where the table has none.
    const std::string& At(std::int16_t number) const;

    const std::map<std::int16_t, std::string>& Texts() const noexcept { return texts_; }

private:
    std::map<std::int16_t, std::string> texts_;
};

/// The module's own table, read from its resources at first use.
const StringTable& Strings();

/// The text with number `offset` + `base`. 6 where the sum exceeds a signed 16-bit number, 326 where the
/// table has no such text. The base is used as it stands.
std::string Text(std::int16_t offset, std::int16_t base);

/// The text with the full number, such as 13100. 326 where the table has none.
std::string Text(std::int16_t number);

}  // namespace FX_Algen::store
