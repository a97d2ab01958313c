#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "FX_Algen/Chart.h"
#include "FX_Algen/Error.h"

namespace FX_Algen::charts {
namespace {

using Matrix = std::array<std::array<double, 3>, 3>;

struct Sight {
    const char* Name;
    Matrix OnLinear;  ///< of linear red, green and blue
};

// Protanopia and deuteranopia: Viénot, Brettel and Mollon 1999 (for a screen with sRGB primaries), and
// Machado, Oliveira and Fernandes 2009 with full severity.
const std::array<Sight, 5> kSights{{
    {"all colours", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"no red (Viénot)", {{{0.11238, 0.88762, 0}, {0.11238, 0.88762, 0}, {0.00401, -0.00401, 1}}}},
    {"no green (Viénot)", {{{0.29275, 0.70725, 0}, {0.29275, 0.70725, 0}, {-0.02234, 0.02234, 1}}}},
    {"no red (Machado)",
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"no green (Machado)",
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
}};

double Linear(std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// CIE L* of a colour of the screen, as somebody sees it.
double Lightness(Colour colour, const Matrix& sight) {
    const std::array<double, 3> rgb{Linear(colour.Red), Linear(colour.Green), Linear(colour.Blue)};
    const std::array<double, 3> weight{0.2126, 0.7152, 0.0722};
    double y = 0;
    for (std::size_t row = 0; row < 3; ++row) {
        double part = 0;
        for (std::size_t column = 0; column < 3; ++column) part += sight[row][column] * rgb[column];
        y += weight[row] * std::clamp(part, 0.0, 1.0);
    }
    return y > 216.0 / 24389 ? 116 * std::cbrt(y) - 16 : y * 24389 / 27;
}

TEST(Palette, LightnessOfTheTestIsThatOfKnownColours) {
    // White has L* 100 and black 0 by definition; a linear grey of 0.1841865 has L* 50: ((50 + 16) / 116)^3.
    EXPECT_NEAR(Lightness({255, 255, 255}, kSights[0].OnLinear), 100, 1e-6);
    EXPECT_NEAR(Lightness({0, 0, 0}, kSights[0].OnLinear), 0, 1e-6);
    // sRGB 119 is linear ((119 / 255 + 0.055) / 1.055)^2.4 = 0.184475, next to that grey.
    EXPECT_NEAR(Lightness({119, 119, 119}, kSights[0].OnLinear), 50, 0.1);
}

TEST(Palette, ClassColoursAreToldApartInGreyAndWithoutRedOrGreen) {
    const std::array<std::int16_t, 5> classes{15, 14, 10, 12, 9};
    for (const Sight& sight : kSights)
        for (std::size_t i = 0; i < classes.size(); ++i)
            for (std::size_t j = i + 1; j < classes.size(); ++j) {
                // From light to dark in this order, whoever looks.
                const double lighter = Lightness(PaletteColour(classes[i]), sight.OnLinear);
                const double darker = Lightness(PaletteColour(classes[j]), sight.OnLinear);
                EXPECT_GE(lighter - darker, 12) << sight.Name << ": " << classes[i] << " and " << classes[j];
            }
}

TEST(Palette, EveryNumberHasAColourOfItsOwn) {
    for (std::int16_t i = 0; i < 16; ++i)
        for (std::int16_t j = 0; j < i; ++j) EXPECT_NE(PaletteColour(i), PaletteColour(j)) << i << " " << j;
    EXPECT_EQ(PaletteColour(0), (Colour{0, 0, 0}));
    EXPECT_EQ(PaletteColour(15), (Colour{255, 255, 255}));
}

TEST(Palette, OtherNumbersFail) {
    for (const std::int16_t number : {-1, 16, 32767, -32768}) {
        try {
            PaletteColour(number);
            ADD_FAILURE() << number;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
            EXPECT_NE(error.Description().find(std::to_string(number)), std::string::npos)
                << error.Description();
        }
    }
}

}  // namespace
}  // namespace FX_Algen::charts
