#pragma once

#include "entry/Bogenauftrag.h"

/// What a host starts with the sheets of the sampling sites. Each sheet is open once at most on a thread. All
/// open forms leave their rows first.
namespace FX_Algen::entry {

/// Shows the algae sheet of a sub-habitat as a child of the host's window, without blocking. Where there is
/// no sampling site and the person wants none, the sheet ends unseen.
///
/// An open sheet is saved first, its picker goes away, and it takes the new settings; where it cannot be
/// saved it stays as it is and comes to the front. What fails before the site is bound leaves the call; a
/// sheet that was not shown yet is gone then, and an open one keeps its settings.
void Probenstelle_Show(const Bogenauftrag& auftrag);
/// The same with the seston sheet.
void ProbenstelleSeston_Show(const Bogenauftrag& auftrag);
/// Closes the algae sheet as a person does, saving it first; nothing where it is not open.
void Probenstelle_Unload();

}  // namespace FX_Algen::entry
