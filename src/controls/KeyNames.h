#pragma once

#include <optional>
#include <string_view>

#include "controls/Control.h"

namespace FX_Algen::controls {

/// The key that a text names: "Enter", "F2", a character, with "Ctrl+", "Alt+" and "Shift+" in front of it
/// where they are held, as in "Shift+Enter". Names go by any case and by their usual short forms ("Esc",
/// "Del", "PgUp", "Return"); a character is taken as it is. None where the text names no key.
std::optional<KeyPress> ReadKey(std::string_view text);

}  // namespace FX_Algen::controls
