#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/Store.h"
#include "controls/Lists.h"

namespace FX_Algen::controls {
class Form;
class Control;
}  // namespace FX_Algen::controls

/// Common routines that work on windows.
namespace FX_Algen::Allgemein {

/// Switches menu entries and controls of a window by the group of the user. `MainDB` holds `Menuegruppe` and
/// `Menuegruppenzuordnung`. Four passes set `Visible` (not of "mnuFile"), `Enabled`, `Checked` and
/// `WindowList` of the controls named in `Funktionsname` to the column's value. A failure, such as a control
/// that this window lacks or a property that the control lacks, ends its pass; the others still run. True
/// where none failed. Shows no message.
bool SetMenuegruppe(controls::Form& form, const std::string& Menuegruppe, const store::DatabasePtr& MainDB);

/// Puts the texts of the language on a window and its controls: tag + `Sprache` is the string number. What
/// has no number or no text keeps what it shows; errors are passed over.
void SetControlCaptions(controls::Form& form, std::int16_t Sprache);

/// Selects the whole text of a text box or combo; other kinds are passed over.
void Text_Markieren(controls::Control& control);

/// Shows the progress form with 0 percent in the host's window; nothing where `hWnd` is 0 or less.
void Pbar_Anzeigen(std::int32_t hWnd, float left, float top, float width, float height);
/// Draws a percentage with a text.
void Pbar_Zeichnen(std::int16_t prozent, std::string_view text = {});
/// Takes the progress form away.
void Pbar_Ausblenden(std::int32_t hWnd);
/// What the progress form writes: the percentage as "###", "%", then the text. 0 percent is "%".
std::string Pbar_Text(std::int16_t prozent, std::string_view text);
/// Where the text begins in a form 100 units wide: centred where it fits, else 0.
float Pbar_TextLinks(float breite);

/// Whether a form with the name is open and, where `caption` is not empty, has that caption.
bool Form_Geladen(std::string_view name, std::string_view caption = {});

/// Type-ahead in a list field. Where the text differs from `text`, the last one seen, its first letter is
/// forced to upper (`gross`) or lower case and the first entry that begins with it, without regard to case,
/// is completed: what was not typed is selected behind the cursor at `start` + 1 ... the end. Without such an
/// entry the cursor stays at the end. `text` becomes what was typed.
void Combo_Vervollstaendigen(controls::ComboBox& combo, int start, std::string& text, bool gross);

}  // namespace FX_Algen::Allgemein
