#include "entry/Taxonart.h"

#include <array>
#include <cstdint>
#include <utility>

namespace FX_Algen::entry {

namespace {

constexpr std::string_view Makroalge = "Makroalge";

constexpr std::array<std::pair<Taxonart, std::string_view>, 6> Texte{{{Taxonart::KA, "KA"},
                                                                      {Taxonart::MA, "MA"},
                                                                      {Taxonart::MI, "MI"},
                                                                      {Taxonart::HP, "HP"},
                                                                      {Taxonart::BA, "BA"},
                                                                      {Taxonart::PI, "PI"}}};

/// The kinds that the major group alone decides.
std::optional<Taxonart> AusGrossgruppe(std::int32_t gruppe) {
    switch (gruppe) {
        case 128:
            return Taxonart::KA;
        case 133:
            return Taxonart::BA;
        case 134:
            return Taxonart::PI;
        case 132:
        case 135:
        case 136:
        case 137:
            return Taxonart::HP;
        default:
            return std::nullopt;
    }
}

}  // namespace

bool IstMakroalge(const store::Value& Algenart) {
    const auto* text = Algenart.TextOrNull();
    return text != nullptr && *text == Makroalge;
}

Taxonart Taxonart_Von(const store::Value& ID_GRGR, const store::Value& Algenart) {
    if (!ID_GRGR.IsNull())
        if (const auto art = AusGrossgruppe(ID_GRGR.I4())) return *art;
    return Algenart.IsNull() || IstMakroalge(Algenart) ? Taxonart::MA : Taxonart::MI;
}

std::string_view Taxonart_Text(Taxonart art) {
    for (const auto& [eine, text] : Texte)
        if (eine == art) return text;
    return {};
}

std::optional<Taxonart> Taxonart_Aus(std::string_view text) {
    for (const auto& [art, seiner] : Texte)
        if (seiner == text) return art;
    return std::nullopt;
}

}  // namespace FX_Algen::entry
