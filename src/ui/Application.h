#pragma once

namespace FX_Algen::ui {

/// Makes the toolkit's application where the process has none: fonts need one. It needs no display, lasts as
/// long as the process and leaves the process's locale as it was.
///
/// Fails with 445 where the host made an application without fonts (`QCoreApplication`).
void NeedApplication();

}  // namespace FX_Algen::ui
