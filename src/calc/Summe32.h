#pragma once

#include <cmath>
#include <limits>

#include "FX_Algen/Error.h"

namespace FX_Algen::calc {

/// A 64-bit number as the 32-bit working value it becomes. Fails with 6 outside the range of 32-bit floats.
inline float Gerundet32(double wert) {
    if (!(std::abs(wert) <= static_cast<double>(std::numeric_limits<float>::max()))) {
        throw Error(ErrorNumber::Overflow,
                    "Overflow: a working value of the calculation leaves the range of 32-bit floats");
    }
    return static_cast<float>(wert);
}

/// A sum that is a 32-bit float after every addition.
///
/// The required results carry the rounding of their accumulators, so a 64-bit sum that is rounded once at
/// the end differs from them in the last digits. Each term is computed in 64 bits, added, and the sum
/// rounded.
class Summe32 {
public:
    /// Fails with 6 where the sum leaves the range of 32-bit floats.
    void Add(double term) { wert_ = Gerundet32(static_cast<double>(wert_) + term); }
    float Wert() const noexcept { return wert_; }

private:
    float wert_ = 0;
};

/// Weighted mean: sum of values over sum of weights; 0 where the weights are not above 0.
inline float Quotient(Summe32 werte, Summe32 gewichte) {
    return gewichte.Wert() > 0 ? werte.Wert() / gewichte.Wert() : 0.0F;
}

}  // namespace FX_Algen::calc
