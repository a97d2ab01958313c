#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/Store.h"
#include "controls/Lists.h"
#include "store/Pbar.h"

namespace FX_Algen::controls {
class Form;
class Control;
}  // namespace FX_Algen::controls

/// Common routines that work on windows; those of the progress form are in store/Pbar.h, since work without
/// windows shows it too.
namespace FX_Algen::Allgemein {

/// Switches menu entries and controls of a window by the group of the user. `MainDB` holds `Menuegruppe` and
/// `Menuegruppenzuordnung`. Four passes set `Visible` (not of "mnuFile"), `Enabled`, `Checked` and
/// `WindowList` of the controls named in `Funktionsname` to the column's value. A failure, such as a control
/// that this window lacks, a property that the control lacks (only menu entries have the last two) or a Null,
/// ends its pass; what it set stays, and the others still run. True where none failed. Shows no message, and
/// the busy pointer while it runs.
bool SetMenuegruppe(controls::Form& form, const std::string& Menuegruppe, const store::DatabasePtr& MainDB);

/// Puts the texts of the language on a window and its controls: string number + `Sprache`, a base below 10000
/// being German. The caption's number is the tag; the tooltip and the captions of an `SSTab` hold theirs
/// until the text stands there, and it is kept beside the text, so that a later call puts another language on
/// all of them. Controls with the tag "0" are passed over, and what has no number or no text keeps what it
/// shows.
void SetControlCaptions(controls::Form& form, std::int16_t Sprache);

/// Selects the whole text of a text box or combo; other kinds are passed over.
void Text_Markieren(controls::Control& control);

/// Whether a form with the name is open and, where `caption` is not empty, has that caption.
bool Form_Geladen(std::string_view name, std::string_view caption = {});

/// Type-ahead in a list field, called after its text changed: `start` is the number of characters before the
/// cursor, `text` the last text seen, `gross` whether names begin with a capital.
///
/// Where the field's text differs from `text`, its first letter is forced to upper or lower case, and the
/// first entry that begins with it, without regard to case, is completed: what follows the first `start`
/// characters is selected. Without such an entry the cursor stays where it is. `text` becomes what stands
/// before the selection, so that a deletion of it is not completed again. An empty field is not completed.
void Combo_Vervollstaendigen(controls::ComboBox& combo, int start, std::string& text, bool gross);

}  // namespace FX_Algen::Allgemein
