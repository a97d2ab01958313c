#include "calc/Erklaerung.h"

#include <algorithm>
#include <string_view>

namespace FX_Algen::calc {
namespace {

SampleBlock OeffentlicherBlock(Block block) {
    switch (block) {
        case Block::Mischbestaende:
            return SampleBlock::MixedStands;
        case Block::Schalen:
            return SampleBlock::Valves;
        case Block::Makroalgen:
            break;
    }
    return SampleBlock::Macroalgae;
}

const std::optional<double>& Abundanz(const Fund& fund, SampleBlock block) {
    return block == SampleBlock::Valves ? fund.Schalen_KA : fund.DG;
}

/// Findings of a sample with the blocks in which they were counted.
///
/// A counted row carries taxon and abundance but no site: findings that agree in both are interchangeable,
/// since they contribute the same.
class Zuordnung {
public:
    explicit Zuordnung(const Probe& probe) : funde_(probe.Funde), gezaehlt_(probe.Funde.size()) {}

    template <class Passt>
    const Fund* Nimm(SampleBlock block, Passt passt) {
        for (std::size_t i = 0; i < funde_.size(); ++i) {
            if (Gezaehlt(i, block) || funde_[i].ImBestand() != (block == SampleBlock::MixedStands)) continue;
            if (!passt(funde_[i])) continue;
            gezaehlt_[i].push_back(block);
            return &funde_[i];
        }
        return nullptr;
    }
    bool Gezaehlt(std::size_t i, SampleBlock block) const {
        return std::find(gezaehlt_[i].begin(), gezaehlt_[i].end(), block) != gezaehlt_[i].end();
    }

private:
    const std::vector<Fund>& funde_;
    std::vector<std::vector<SampleBlock>> gezaehlt_;
};

TermRemark Anmerkung(const Beitrag& beitrag) {
    if (beitrag.Gewicht == 0) return TermRemark::WeightZero;
    if (beitrag.Woher == Block::Mischbestaende && beitrag.Anteil == 0) return TermRemark::StandWithoutCover;
    if (beitrag.Wert == 0) return TermRemark::ValueZero;
    return TermRemark::None;
}

ExplainedTerm Posten(const Beitrag& beitrag, Zuordnung& zuordnung) {
    ExplainedTerm posten;
    posten.Block = OeffentlicherBlock(beitrag.Woher);
    posten.Finding.ID_ART = beitrag.ID_Art;
    posten.Finding.ID_TR_MI = beitrag.ID_TR_MI;
    const Fund* fund = zuordnung.Nimm(posten.Block, [&](const Fund& kandidat) {
        return kandidat.Wer.ID_ART == beitrag.ID_Art && kandidat.Wer.ID_TR_MI == beitrag.ID_TR_MI &&
               Abundanz(kandidat, posten.Block) == beitrag.Abundanz;
    });
    if (fund != nullptr) posten.Finding = fund->Wer;
    posten.Abundance = beitrag.Abundanz;
    posten.SharePercent = beitrag.Anteil;
    posten.Weight = beitrag.Gewicht;
    posten.Value = beitrag.Wert;
    posten.WeightTerm = beitrag.w;
    posten.ValueTerm = beitrag.wWert;
    posten.Remark = Anmerkung(beitrag);
    return posten;
}

/// The finding, or the whole stand, at which a routine failed.
///
/// A taxon can have several findings in a block. The failing one agrees with its row in taxon and abundance;
/// where findings agree in both, they are as interchangeable as those that counted.
class Abbruchstelle {
public:
    Abbruchstelle(const Erklaerungsbasis& basis, std::string_view routine) {
        if (basis.Abbruch == nullptr || basis.Abbruch->Routine() != routine) return;
        const auto& stelle = basis.Abbruch->Stelle();
        if (!stelle.Woher) return;  // a cover of the sub-habitat itself
        block_ = OeffentlicherBlock(*stelle.Woher);
        if (stelle.ID_Art) {
            SucheFund(basis.Funde.Funde, stelle);
        } else {
            bestand_ = stelle.ID_TR_MI;
        }
    }
    bool IstFund(std::size_t i, SampleBlock block) const { return fund_ == i && block_ == block; }
    bool IstBestand(std::int32_t ID_TR_MI) const { return bestand_ == ID_TR_MI; }

private:
    /// What a row without abundance can stand for: a macroalga without cover in the quantity index, or a
    /// stand's taxon in the class counts.
    bool OhneAbundanz(const Fund& fund) const {
        if (block_ == SampleBlock::MixedStands) return fund.DG.value_or(0) > 0;
        return !fund.DG && !AuslassregelMenge(fund);
    }
    void SucheFund(const std::vector<Fund>& funde, const NullStelle& stelle) {
        for (std::size_t i = 0; i < funde.size() && !fund_; ++i) {
            const auto& wer = funde[i].Wer;
            if (wer.ID_ART != stelle.ID_Art || funde[i].ImBestand() != (block_ == SampleBlock::MixedStands)) {
                continue;
            }
            if (stelle.ID_TR_MI && wer.ID_TR_MI != stelle.ID_TR_MI) continue;
            if (stelle.Abundanz && Abundanz(funde[i], block_) != stelle.Abundanz) continue;
            if (!stelle.Abundanz && !OhneAbundanz(funde[i])) continue;
            fund_ = i;
        }
    }

    SampleBlock block_ = SampleBlock::Macroalgae;
    std::optional<std::size_t> fund_;
    std::optional<std::int32_t> bestand_;
};

ExplainedFinding GanzerBestand(const Bestandszeile& bestand) {
    ExplainedFinding fund;
    fund.ID_TR_MI = bestand.ID_TR_MI;
    fund.MI_Bez = bestand.MI_Bez;
    return fund;
}

/// Blocks in which a finding could count. One without any abundance is named once, as what it was noted for.
std::vector<SampleBlock> Moeglich(const Fund& fund, bool nurSchalen) {
    const bool schalen = fund.Schalen_KA.value_or(0) > 0;
    if (nurSchalen) return schalen ? std::vector{SampleBlock::Valves} : std::vector<SampleBlock>{};
    if (fund.ImBestand()) return {SampleBlock::MixedStands};
    std::vector<SampleBlock> bloecke;
    if (fund.DG.value_or(0) > 0 || !schalen) bloecke.push_back(SampleBlock::Macroalgae);
    if (schalen) bloecke.push_back(SampleBlock::Valves);
    return bloecke;
}

}  // namespace

ExplainedIndex ErklaereIndex(std::string spalte, const std::vector<Beitrag>& beitraege, bool mitAlgenart,
                             bool nurSchalen, const Erklaerungsbasis& basis) {
    ExplainedIndex index;
    index.Column = std::move(spalte);
    Zuordnung zuordnung(basis.Funde);
    for (const auto& beitrag : beitraege) {
        if (nurSchalen && beitrag.Woher != Block::Schalen) continue;
        index.Terms.push_back(Posten(beitrag, zuordnung));
    }
    const Abbruchstelle abbruch(basis, mitAlgenart ? "Berechnung_Trophie" : "Berechnung_Saprobie");
    for (const auto& bestand : basis.Funde.Bestaende) {
        if (nurSchalen || !abbruch.IstBestand(bestand.ID_TR_MI)) continue;
        index.LeftOut.push_back(
            {SampleBlock::MixedStands, GanzerBestand(bestand), std::nullopt, LeftOutRule::FailedHere});
    }
    const auto& funde = basis.Funde.Funde;
    for (std::size_t i = 0; i < funde.size(); ++i) {
        for (const auto block : Moeglich(funde[i], nurSchalen)) {
            if (zuordnung.Gezaehlt(i, block)) continue;
            auto regel =
                Auslassregel(funde[i], {block, mitAlgenart, basis.IstWRRL, basis.DG_Gesamt, basis.KAOnly});
            if (abbruch.IstFund(i, block)) regel = LeftOutRule::FailedHere;
            index.LeftOut.push_back(
                {block, funde[i].Wer, Abundanz(funde[i], block), regel.value_or(LeftOutRule::NotCalculated)});
        }
    }
    return index;
}

std::vector<ExplainedIndex> ErklaereIndizes(const Spur& spur, const Erklaerungsbasis& basis) {
    std::vector<ExplainedIndex> indizes;
    const auto anfuegen = [&](const auto& lauf, ExplainedIndex index, const Summe32& gewichte,
                              const Summe32& werte) {
        if (lauf.Fertig) {
            index.WeightSum = static_cast<double>(gewichte.Wert());
            index.ValueSum = static_cast<double>(werte.Wert());
        }
        indizes.push_back(std::move(index));
    };
    const auto sap = spur.Saprobie.value_or(SaprobieSpur{});
    anfuegen(sap, ErklaereIndex("SapIndex", sap.Beitraege, false, false, basis), sap.Summen.Gewicht,
             sap.Summen.GewichtSI);
    anfuegen(sap, ErklaereIndex("SapIndex_KA", sap.Beitraege, false, true, basis), sap.Summen.Gewicht_KA,
             sap.Summen.GewichtSI_KA);
    const auto troph = spur.Trophie.value_or(TrophieSpur{});
    anfuegen(troph, ErklaereIndex("TI", troph.TI, true, false, basis), troph.Summen.TI, troph.Summen.TI_S);
    anfuegen(troph, ErklaereIndex("TI_N", troph.TI_N, true, false, basis), troph.Summen.TI_N,
             troph.Summen.TI_N_S);
    anfuegen(troph, ErklaereIndex("TI_KA", troph.TI, true, true, basis), troph.Summen.TI_KA,
             troph.Summen.TI_KA_S);
    return indizes;
}

ExplainedIndex ErklaereMenge(const AMISpur& spur, const Erklaerungsbasis& basis) {
    ExplainedIndex index;
    index.Column = "AMI";
    Zuordnung zuordnung(basis.Funde);
    const Abbruchstelle abbruch(basis, "Berechnung_AMI");
    std::vector<bool> bestandGezaehlt(basis.Funde.Bestaende.size());
    const auto& bestaende = basis.Funde.Bestaende;
    for (const auto& beitrag : spur.Beitraege) {
        ExplainedTerm posten;
        posten.Block = OeffentlicherBlock(beitrag.Woher);
        posten.Abundance = posten.SharePercent = beitrag.DG.Prozent;
        posten.Weight = beitrag.SD.Millimeter;
        posten.ValueTerm = beitrag.Beitrag;
        if (beitrag.Woher == Block::Makroalgen) {
            const Fund* fund = zuordnung.Nimm(SampleBlock::Macroalgae, [&](const Fund& kandidat) {
                return !AuslassregelMenge(kandidat) && kandidat.DG == beitrag.DG.Prozent &&
                       kandidat.SD_MA == beitrag.SD.Millimeter;
            });
            if (fund != nullptr) posten.Finding = fund->Wer;
        } else {
            for (std::size_t i = 0; i < bestaende.size(); ++i) {
                if (bestandGezaehlt[i] || bestaende[i].DG_MI != beitrag.DG.Prozent ||
                    bestaende[i].SD_MI != beitrag.SD.Millimeter) {
                    continue;
                }
                bestandGezaehlt[i] = true;
                posten.Finding.ID_TR_MI = bestaende[i].ID_TR_MI;
                posten.Finding.MI_Bez = bestaende[i].MI_Bez;
                break;
            }
        }
        index.Terms.push_back(std::move(posten));
    }
    const auto& funde = basis.Funde.Funde;
    for (std::size_t i = 0; i < funde.size(); ++i) {
        const auto& fund = funde[i];
        const bool gemeint = fund.DG.value_or(0) > 0 || fund.SD_MA.value_or(0) > 0;
        if (fund.ImBestand() || !gemeint || zuordnung.Gezaehlt(i, SampleBlock::Macroalgae)) continue;
        auto regel = AuslassregelMenge(fund);
        if (abbruch.IstFund(i, SampleBlock::Macroalgae)) regel = LeftOutRule::FailedHere;
        index.LeftOut.push_back(
            {SampleBlock::Macroalgae, fund.Wer, fund.DG, regel.value_or(LeftOutRule::NotCalculated)});
    }
    for (std::size_t i = 0; i < bestaende.size(); ++i) {
        if (bestandGezaehlt[i]) continue;
        auto regel = LeftOutRule::NoLayer;
        if (bestaende[i].SD_MI.value_or(0) > 0) regel = LeftOutRule::NotCalculated;
        if (abbruch.IstBestand(bestaende[i].ID_TR_MI)) regel = LeftOutRule::FailedHere;
        index.LeftOut.push_back(
            {SampleBlock::MixedStands, GanzerBestand(bestaende[i]), bestaende[i].DG_MI, regel});
    }
    if (spur.Fertig) index.ValueSum = spur.AMI;
    return index;
}

std::map<std::int32_t, std::string> Artnamen(const Probe& probe) {
    std::map<std::int32_t, std::string> namen;
    for (const auto& fund : probe.Funde) namen.emplace(fund.Wer.ID_ART, fund.Wer.Taxon);
    return namen;
}

std::vector<ExplainedClassRow> ErklaereKlassen(const std::vector<Klassenzaehlung>& klassen,
                                               const std::map<std::int32_t, std::string>& namen) {
    std::vector<ExplainedClassRow> zeilen;
    zeilen.reserve(klassen.size());
    for (const auto& klasse : klassen) {
        const auto name = namen.find(klasse.ID_Art);
        ClassRule regel = ClassRule::Counted;
        if (klasse.Regel == Zaehlregel::KeineKlasse) regel = ClassRule::NoClass;
        if (klasse.Regel == Zaehlregel::SelbeArt) regel = ClassRule::SameTaxon;
        zeilen.push_back({OeffentlicherBlock(klasse.Woher), klasse.ID_Art,
                          name == namen.end() ? std::string() : name->second, klasse.SI, klasse.Klasse,
                          regel});
    }
    return zeilen;
}

}  // namespace FX_Algen::calc
