// The distribution chart: statement, title, and the bars of a site.
#include "charts/Verteilung.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "manager/Ebenen.h"
#include "store/Strings.h"

namespace FX_Algen {
namespace {

using manager::Ebene;
using manager::Verbund;

/// A bar, whose legend text is the string behind that of the bar before.
struct Form {
    std::int16_t Farbe;
    bool Muster;
    std::int16_t Musterfarbe;
};

struct Art {
    std::string_view Werte;
    std::int16_t Titel;  ///< its legend texts follow
    std::span<const Form> Balken;
};

// A class between two others has the colour of the one and a pattern in the colour of its other neighbour.
constexpr std::array<Form, 8> Valenzbalken = {{{15, false, 0},
                                               {9, false, 0},
                                               {10, true, 9},
                                               {10, false, 0},
                                               {10, true, 14},
                                               {14, false, 0},
                                               {12, true, 14},
                                               {12, false, 0}}};

constexpr std::array<Form, 7> Klassenbalken = {{{9, false, 0},
                                                {10, true, 9},
                                                {10, false, 0},
                                                {10, true, 14},
                                                {14, false, 0},
                                                {12, true, 14},
                                                {12, false, 0}}};

// The values always run to `Wert10`, so that a host can read a fixed shape.
const Art Valenzen{
    "AS Stelle, awaErgProjekt.Xeno AS Wert1, awaErgProjekt.Oligo AS Wert2, "
    "awaErgProjekt.OligoBeta AS Wert3, awaErgProjekt.Beta AS Wert4, awaErgProjekt.BetaAlpha AS Wert5, "
    "awaErgProjekt.Alpha AS Wert6, awaErgProjekt.AlphaPoly AS Wert7, awaErgProjekt.Poly AS Wert8, "
    "'0' AS Wert9, '0' AS Wert10 ",
    7301, Valenzbalken};

const Art Gueteklassen{
    "AS Stelle, awaErgProjekt.ANZ_Gueteklasse_I AS Wert1, awaErgProjekt.ANZ_Gueteklasse_I_II AS Wert2, "
    "awaErgProjekt.ANZ_Gueteklasse_II AS Wert3, awaErgProjekt.ANZ_Gueteklasse_II_III AS Wert4, "
    "awaErgProjekt.ANZ_Gueteklasse_III AS Wert5, awaErgProjekt.ANZ_Gueteklasse_III_IV AS Wert6, "
    "awaErgProjekt.ANZ_Gueteklasse_IV AS Wert7, '0' AS Wert8, '0' AS Wert9, '0' AS Wert10 ",
    7310, Klassenbalken};

constexpr std::string_view Reihenfolge =
    "ORDER BY Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, "
    "Teilraum.RF, Teilraum.TRBez, awaPrStelle.PSBez;";

const Art* ArtVon(std::int16_t Verteilungsart) {
    if (Verteilungsart == 1) return &Valenzen;
    if (Verteilungsart == 2) return &Gueteklassen;
    return nullptr;
}

/// The label of a site; nothing for a number that is none of its own.
std::string_view Stelle(std::int16_t Stellenbez) {
    switch (Stellenbez) {
        case 0:
        case 1:
            return "UnvUStelle.USBez & ' ' & VerUStelle.USDatumVon & ' ' & awaPrStelle.PSBez ";
        case 2:
            return "awaPrStelle.PSBez_Anzeige ";
        default:
            return {};
    }
}

std::string Anweisung(const Art& art, std::int16_t Stellenbez) {
    std::string text = "SELECT DISTINCTROW ";
    text.append(Stelle(Stellenbez)).append(art.Werte);
    text.append(verteilung::VonMarkiertenStellen()).append(Reihenfolge);
    return text;
}

}  // namespace

std::string verteilung::VonMarkiertenStellen() {
    return manager::Pfad(Ebene::Abschnitt)
               .Mit(Verbund("awaErgProjekt").Mit("awaTeilraum", "awaErgProjekt.ID = awaTeilraum.ID_TR"),
                    "Teilraum.ID_TR = awaTeilraum.ID_TR")
               .Mit("awaPrStelle", "awaTeilraum.ID_TR = awaPrStelle.ID_TR")
               .From() +
           "WHERE awaPrStelle.Anzeige=-1 ";
}

std::optional<Verteilungsgrafik> Grafik_Verteilung_Init(std::int16_t Verteilungsart, std::int16_t Stellenbez,
                                                        std::int16_t SprachID) {
    const Art* art = ArtVon(Verteilungsart);
    if (art == nullptr) return std::nullopt;
    Verteilungsgrafik grafik;
    grafik.SQL = Anweisung(*art, Stellenbez);
    auto nummer = art->Titel;
    grafik.Standardtitel = store::Text(nummer, SprachID);
    for (const auto& form : art->Balken)
        grafik.AlleBalken.push_back(
            {form.Farbe, form.Muster, form.Musterfarbe, store::Text(++nummer, SprachID)});
    return grafik;
}

}  // namespace FX_Algen
