#include "store/Strings.h"

#include <charconv>
#include <limits>

#include "FX_Algen/Error.h"
#include "store/resources/Resources.h"

namespace FX_Algen::store {

namespace {

[[noreturn]] void Refuse(std::string_view name, std::size_t line, const std::string& reason) {
    throw Error(ErrorNumber::StringNotFound,
                "String table " + std::string(name) + ", line " + std::to_string(line) + ": " + reason + ".");
}

std::string WithLineBreaks(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "\\n") {
            out += '\n';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

void StringTable::Read(std::string_view name, std::string_view lines) {
    for (std::size_t line = 1; !lines.empty(); ++line) {
        auto row = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(row.size() + 1, lines.size()));
        if (!row.empty() && row.back() == '\r') row.remove_suffix(1);
        if (row.empty()) continue;

        std::int16_t number = 0;
        const auto tab = row.find('\t');
        if (tab == std::string_view::npos) Refuse(name, line, "no tab between number and text");
        const auto [end, failure] = std::from_chars(row.data(), row.data() + tab, number);
        if (failure != std::errc{} || end != row.data() + tab || number < 0)
            Refuse(name, line, "'" + std::string(row.substr(0, tab)) + "' is not a string number");
        if (!texts_.emplace(number, WithLineBreaks(row.substr(tab + 1))).second)
            Refuse(name, line, "number " + std::to_string(number) + " stands twice");
    }
}

std::optional<std::string_view> StringTable::Find(std::int32_t number) const {
    if (number < 0 || number > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
    const auto found = texts_.find(static_cast<std::int16_t>(number));
    if (found == texts_.end()) return std::nullopt;
    return found->second;
}

const std::string& StringTable::At(std::int16_t number) const {
    const auto found = texts_.find(number);
    if (found == texts_.end())
        throw Error(ErrorNumber::StringNotFound,
                    "The string table has no text with number " + std::to_string(number) + ".");
    return found->second;
}

const StringTable& Strings() {
    static const StringTable table = [] {
        StringTable out;
        for (const auto& file : resources::strings()) out.Read(file.name, file.text);
        return out;
    }();
    return table;
}

std::string Text(std::int16_t offset, std::int16_t base) {
    const std::int32_t sum = std::int32_t{offset} + base;
    if (sum > std::numeric_limits<std::int16_t>::max() || sum < std::numeric_limits<std::int16_t>::min())
        throw Error(ErrorNumber::Overflow, "Overflow: string number " + std::to_string(offset) +
                                               " and language base " + std::to_string(base) +
                                               " exceed a 16-bit integer.");
    return Text(static_cast<std::int16_t>(sum));
}

std::string Text(std::int16_t number) { return Strings().At(number); }

}  // namespace FX_Algen::store
