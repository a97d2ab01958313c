#pragma once

#include "controls/Form.h"
#include "controls/Grid.h"

/// What a person does in a list of taxa, the same on every sheet of a sampling site.
namespace FX_Algen::entry {

/// Moves the cursor as Tab or an arrow says and opens the cell that it comes to. False where the key is
/// another one, or Tab leads out of the list.
bool Weitergehen(controls::Grid& liste, const controls::KeyPress& taste);

/// Whether a key in the open cell is meant for the list: Space in a cell that takes a number, since a blank
/// is never part of one, and Delete while nothing was typed into the cell.
bool GehtAnDieListe(const controls::Grid& liste, const controls::KeyPress& taste);

/// After an edit: says where something else will be stored than what was typed into the cell. A text that is
/// no number is stored as 0; with `ganze` a number is rounded half to even, and the cell shows it so.
void Zahl_Melden(const controls::Form& bogen, controls::Grid& liste, int zeile, int spalte, bool ganze);

}  // namespace FX_Algen::entry
