#include "calc/ErklaerungSeston.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "calc/Funde.h"

namespace FX_Algen::calc {
namespace {

bool Zaehlbar(const Sestonzeile& zeile) { return zeile.ImKatalog && zeile.Abundanz.value_or(0) > 0; }

bool IstAbbruch(const Sestonzeile& zeile, const NullImWert* abbruch) {
    if (abbruch == nullptr) return false;
    const auto& stelle = abbruch->Stelle();
    return zeile.ID_ART == stelle.ID_Art && zeile.ID_PS == stelle.ID_PS && zeile.CF == stelle.CF;
}

/// A part of the explanation that names its finding.
template <class Teil>
Teil Fuer(const Sestonzeile& zeile) {
    Teil teil;
    teil.ID_ART = zeile.ID_ART;
    teil.Taxon = zeile.Taxon;
    teil.CF = zeile.CF;
    teil.ID_PS = zeile.ID_PS;
    teil.PSBez = zeile.PSBez;
    return teil;
}

SestonTerm Posten(const Sestonzeile& zeile, const SestonBeitrag& beitrag) {
    auto posten = Fuer<SestonTerm>(zeile);
    posten.Abundanz = beitrag.Fund.Abundanz;
    posten.W_SI = beitrag.Fund.W_SI;
    std::copy(beitrag.Fund.W.begin(), beitrag.Fund.W.end(), posten.Valenzen);
    posten.ValueTerm = posten.Abundanz * posten.W_SI;
    posten.EntropyTerm = beitrag.Entropie;
    return posten;
}

SestonOmission Auslassung(const Sestonzeile& zeile, const NullImWert* abbruch) {
    auto auslassung = Fuer<SestonOmission>(zeile);
    auslassung.Abundanz = zeile.Abundanz;
    if (!(zeile.Abundanz.value_or(0) > 0)) {
        auslassung.Rule = SestonRule::NoAbundance;
    } else if (!zeile.ImKatalog) {
        auslassung.Rule = SestonRule::NotInCatalogue;
    } else {
        auslassung.Rule = IstAbbruch(zeile, abbruch) ? SestonRule::FailedHere : SestonRule::NotCalculated;
    }
    return auslassung;
}

void ErklaereFunde(const SestonSpur& spur, const std::vector<Sestonzeile>& probe, const NullImWert* abbruch,
                   SestonExplanation& explanation) {
    // The rows that counted are the findings that can count, in the same order, as far as the calculation
    // came.
    auto beitrag = spur.Beitraege.begin();
    for (const auto& zeile : probe) {
        if (Zaehlbar(zeile) && beitrag != spur.Beitraege.end()) {
            explanation.Terms.push_back(Posten(zeile, *beitrag++));
        } else {
            explanation.LeftOut.push_back(Auslassung(zeile, abbruch));
        }
    }
}

void ErklaereSummen(const SestonSpur& spur, SestonExplanation& explanation) {
    if (spur.Fertig) {
        explanation.AbundanceSum = spur.Summen.lngAbundanz;
        explanation.ValueSum = static_cast<double>(spur.Summen.SI.Wert());
        for (std::size_t i = 0; i < spur.Summen.Valenz.size(); ++i) {
            explanation.ValenceSums[i] = static_cast<double>(spur.Summen.Valenz[i].Wert());
        }
    }
    explanation.EntropySum = spur.Summe_H;
    if (spur.Streuung) {
        explanation.SquareSum = spur.Streuung->Q;
        explanation.RatedRows = spur.Streuung->n;
    }
}

void ErklaereZaehlungen(const SestonSpur& spur, const std::vector<Sestonzeile>& probe,
                        SestonExplanation& explanation) {
    constexpr std::array<std::string_view, 2> Spalten{"Taxa", "Taxa_SI"};
    std::map<std::int32_t, std::string> namen;
    for (const auto& zeile : probe) namen.emplace(zeile.ID_ART, zeile.Taxon);
    for (const auto spalte : Spalten) {
        ExplainedCount count{std::string(spalte), {}, {}, {}};
        for (const auto& zaehlung : spur.Taxazahlen) {
            if (zaehlung.Spalte != spalte) continue;
            for (const auto id : zaehlung.ID_Arten) count.Taxa.push_back({id, namen[id]});
        }
        explanation.Counts.push_back(std::move(count));
    }
}

}  // namespace

std::vector<Sestonzeile> LiesSestonprobe(store::Database& database, std::int32_t ID_TR) {
    const auto zeilen = database.OpenRecordset(
        "SELECT sesArtPrStelle.ID_ART, sesArt.Gattung, sesArt.Art, sesArtPrStelle.CF, sesArtPrStelle.ID_PS, "
        "sesPrStelle.PSBez, sesArtPrStelle.Abundanz, sesArt.ID_ART AS ImKatalog "
        "FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS) "
        "LEFT JOIN sesArt ON sesArtPrStelle.ID_ART = sesArt.ID_ART WHERE sesPrStelle.ID_TR=" +
        store::NumberText(ID_TR) +
        " ORDER BY sesArtPrStelle.ID_PS, sesArtPrStelle.ID_ART, sesArtPrStelle.CF DESC;");
    std::vector<Sestonzeile> probe;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        Sestonzeile fund;
        fund.ID_ART = zeile[0].I4();
        fund.Taxon = Artname(zeile[1], zeile[2]);
        fund.CF = zeile[3].Bool();
        fund.ID_PS = zeile[4].I4();
        if (!zeile[5].IsNull()) fund.PSBez = zeile[5].Text();
        if (!zeile[6].IsNull()) fund.Abundanz = zeile[6].I4();
        fund.ImKatalog = !zeile[7].IsNull();
        probe.push_back(std::move(fund));
    }
    zeilen->Close();
    return probe;
}

void ErklaereSeston(const SestonSpur& spur, const std::vector<Sestonzeile>& probe, const NullImWert* abbruch,
                    SestonExplanation& explanation) {
    ErklaereFunde(spur, probe, abbruch, explanation);
    ErklaereSummen(spur, explanation);
    ErklaereZaehlungen(spur, probe, explanation);
}

}  // namespace FX_Algen::calc
