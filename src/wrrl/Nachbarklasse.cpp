// How far a quality ratio is from the classes beside its own.
#include <algorithm>
#include <cmath>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/Runden.h"

namespace FX_Algen {
namespace {

constexpr std::int16_t RatioPlaces = 2;
/// Differences of decimals leave traces far behind their digits.
constexpr std::int16_t DistancePlaces = 9;

NeighbourClass Nearest(const ClassBounds& bounds, double ratio) {
    const double toMin = std::abs(ratio - bounds.EQRMin);
    const double toMax = std::abs(ratio - bounds.EQRMax);
    const double bound = toMin <= toMax ? bounds.EQRMin : bounds.EQRMax;
    const bool inside = bounds.EQRMin <= ratio && ratio <= bounds.EQRMax;
    return {bounds.OEZK, bound, inside ? 0 : Allgemein::Runden(std::min(toMin, toMax), DistancePlaces)};
}

/// `sign` -1: towards the better classes, which have the lower numbers; 1: towards the worse ones.
std::optional<NeighbourClass> Neighbour(const RatioTrace& ratio, int sign) {
    if (!ratio.Class.Hit) return std::nullopt;
    // The ratio has two decimals, which its 32 bits hold only nearly.
    const double eqr = Allgemein::Runden(static_cast<double>(ratio.EQR), RatioPlaces);
    std::optional<NeighbourClass> next;
    for (const ClassBounds& bounds : ratio.AllBounds) {
        const int steps = sign * (bounds.OEZK - ratio.Class.OEZK);
        if (steps <= 0) continue;
        const NeighbourClass candidate = Nearest(bounds, eqr);
        const int nextSteps = next ? sign * (next->OEZK - ratio.Class.OEZK) : steps + 1;
        if (steps < nextSteps || (steps == nextSteps && candidate.Distance < next->Distance)) {
            next = candidate;
        }
    }
    return next;
}

}  // namespace

std::optional<NeighbourClass> NextBetterClass(const RatioTrace& ratio) { return Neighbour(ratio, -1); }
std::optional<NeighbourClass> NextWorseClass(const RatioTrace& ratio) { return Neighbour(ratio, 1); }

}  // namespace FX_Algen
