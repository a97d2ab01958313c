#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "FX_Algen/Value.h"

namespace FX_Algen::entry {

/// The kind of a taxon, in two letters: it decides which cells of the sheet take a value.
enum class Taxonart {
    KA,  ///< diatom
    MA,  ///< macroalga
    MI,  ///< microalga
    HP,  ///< higher plant
    BA,  ///< bacterium
    PI,  ///< fungus
};

/// The kind of a taxon from `ID_GRGR`, its major group, and `Algenart`, its kind of alga. Either may be Null:
/// without a major group `Algenart` decides, and without that the taxon is a macroalga. Fails with 13 or 6
/// where the major group is no whole number.
Taxonart Taxonart_Von(const store::Value& ID_GRGR, const store::Value& Algenart);

/// Whether `Algenart` is the text "Makroalge".
bool IstMakroalge(const store::Value& Algenart);

/// The two letters.
std::string_view Taxonart_Text(Taxonart art);

/// The kind with these two letters; none for any other text, such as that of a sum row.
std::optional<Taxonart> Taxonart_Aus(std::string_view text);

/// Whether the taxon is left out of the sums of the detailed method.
constexpr bool OhneDetail(Taxonart art) {
    return art == Taxonart::BA || art == Taxonart::PI || art == Taxonart::HP;
}

}  // namespace FX_Algen::entry
