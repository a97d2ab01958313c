#include <array>
#include <string>

#include "FX_Algen/Chart.h"
#include "FX_Algen/Error.h"

namespace FX_Algen::charts {

namespace {

// The order is that of the classic palette of 16 numbers. 15, 14, 10, 12 and 9 carry the classes from light
// to dark: their lightness (CIE L*) is about 100, 85, 68, 46 and 21, and steps of at least 12 remain where
// red or green is not seen. A pure yellow would vanish beside the white, a pure red turns as dark as blue for
// those who do not see red.
constexpr std::array<Colour, 16> kPalette{{
    {0, 0, 0},        // 0 black
    {0, 0, 160},      // 1 blue
    {0, 110, 50},     // 2 green
    {0, 128, 128},    // 3 cyan
    {140, 20, 20},    // 4 red
    {128, 30, 128},   // 5 magenta
    {130, 95, 20},    // 6 brown
    {195, 195, 195},  // 7 light grey
    {110, 110, 110},  // 8 dark grey
    {24, 42, 124},    // 9 bright blue
    {92, 184, 98},    // 10 bright green
    {70, 195, 215},   // 11 bright cyan
    {206, 50, 42},    // 12 bright red
    {214, 100, 200},  // 13 bright magenta
    {252, 208, 58},   // 14 bright yellow
    {255, 255, 255},  // 15 white
}};

}  // namespace

Colour PaletteColour(std::int16_t number) {
    if (number < 0 || number >= static_cast<std::int16_t>(kPalette.size()))
        throw Error(ErrorNumber::IndexOutOfRange, "PaletteColour: there is no colour " +
                                                      std::to_string(number) + ", the palette has 0 to 15");
    return kPalette[static_cast<std::size_t>(number)];
}

}  // namespace FX_Algen::charts
