#include "controls/KeyNames.h"

#include <array>
#include <string>

#include "controls/Utf8.h"
#include "store/TextOrder.h"

namespace FX_Algen::controls {

namespace {

constexpr std::array<std::string_view, 27> Names{
    "Enter", "Escape", "Tab",  "Space", "Delete", "Insert",   "Backspace", "Up",  "Down",
    "Left",  "Right",  "Home", "End",   "PageUp", "PageDown", "F1",        "F2",  "F3",
    "F4",    "F5",     "F6",   "F7",    "F8",     "F9",       "F10",       "F11", "F12"};

struct Alias {
    std::string_view Other, Name;
};
constexpr std::array Aliases{
    Alias{"Return", "Enter"},     Alias{"Esc", "Escape"},     Alias{"Del", "Delete"},
    Alias{"Ins", "Insert"},       Alias{"PgUp", "PageUp"},    Alias{"PgDn", "PageDown"},
    Alias{"ArrowUp", "Up"},       Alias{"ArrowDown", "Down"}, Alias{"ArrowLeft", "Left"},
    Alias{"ArrowRight", "Right"}, Alias{" ", "Space"},
};

bool Same(std::string_view a, std::string_view b) { return store::CompareCaseBlind(a, b) == 0; }

std::optional<std::string_view> NameOf(std::string_view text) {
    for (const auto& name : Names)
        if (Same(name, text)) return name;
    for (const auto& alias : Aliases)
        if (Same(alias.Other, text)) return alias.Name;
    return CountCharacters(text) == 1 ? std::optional(text) : std::nullopt;
}

}  // namespace

std::optional<KeyPress> ReadKey(std::string_view text) {
    KeyPress key;
    // Behind the last "+" stands the key, which may be "+" itself.
    for (auto plus = text.find('+'); plus != std::string_view::npos && plus + 1 < text.size();
         plus = text.find('+')) {
        const auto held = text.substr(0, plus);
        if (Same(held, "Shift")) {
            key.Shift = true;
        } else if (Same(held, "Ctrl")) {
            key.Ctrl = true;
        } else if (Same(held, "Alt")) {
            key.Alt = true;
        } else {
            return std::nullopt;
        }
        text.remove_prefix(plus + 1);
    }
    const auto name = NameOf(text);
    if (!name) return std::nullopt;
    key.Name = *name;
    return key;
}

}  // namespace FX_Algen::controls
