#pragma once

#include <cstdint>

namespace FX_Algen::Allgemein {

/// Commercial rounding to `stellen` decimal places, robust against the noise of floating point: halves go
/// up towards plus infinity, and what lies within half of the 4th place behind the last kept one counts
/// as a half. So 2.49999 gives 3 and 0.125 at two places 0.13, but -0.125 gives -0.12.
double Runden(double wert, std::int16_t stellen);

}  // namespace FX_Algen::Allgemein
