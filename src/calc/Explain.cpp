// Explanation of a sub-habitat: a rerun of the routines themselves inside a savepoint that is undone.
#include "FX_Algen/Explain.h"

#include <algorithm>
#include <array>

#include "FX_Algen/Error.h"
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Erklaerung.h"
#include "calc/Lesen.h"
#include "calc/Nachrechnung.h"
#include "calc/Schritte.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

/// Columns that a calculation writes, in its order; the class counts follow.
constexpr std::array<std::string_view, 17> Spalten{
    "IstWRRL", "SapIndex",   "SapIndex_KA", "DG_Gesamt", "DG_Makroalgen", "Taxa",      "Taxa_KA",
    "Taxa_SI", "Taxa_SI_KA", "TaxaSap",     "TaxaTI",    "TaxaTI_N",      "TaxaTI_KA", "TI",
    "TI_N",    "TI_KA",      "AMI"};

/// Those of them that count taxa.
constexpr std::array<std::string_view, 8> Zaehlspalten{"Taxa",    "Taxa_KA", "Taxa_SI",  "Taxa_SI_KA",
                                                       "TaxaSap", "TaxaTI",  "TaxaTI_N", "TaxaTI_KA"};

constexpr std::array<std::string_view, 7> Klassennamen{"I", "I-II", "II", "II-III", "III", "III-IV", "IV"};

std::vector<std::string> AlleSpalten() {
    std::vector<std::string> spalten(Spalten.begin(), Spalten.end());
    spalten.insert(spalten.end(), calc::KlassenSpalten.begin(), calc::KlassenSpalten.end());
    return spalten;
}

std::string Teilraumname(store::Database& database, const std::string& id) {
    const auto zeilen = database.OpenRecordset("SELECT TRBez FROM Teilraum WHERE ID_TR=" + id + ";");
    std::string name = zeilen->Eof() || (*zeilen)[0].IsNull() ? std::string() : (*zeilen)[0].Text();
    zeilen->Close();
    return name;
}

std::optional<float> Zahl(const store::Value& wert) {
    return wert.IsNull() ? std::nullopt : std::optional(wert.R4());
}

/// Covers and valves of the sub-habitat, also where the calculation failed before it came to them.
void ErklaereGrundlagen(store::Database& database, const calc::Probe& probe, Explanation& explanation) {
    const auto zeile = database.OpenRecordset(calc::abfragen::Teilraum(explanation.ID_TR));
    explanation.DG_Gesamt = Zahl((*zeile)[explanation.IstWRRL ? "DG_Gesamt_WRRL" : "DG_Gesamt"]);
    explanation.DG_Makroalgen = Zahl((*zeile)[explanation.IstWRRL ? "DG_MA_WRRL" : "DG_MA"]);
    zeile->Close();
    for (const auto& fund : probe.Funde) explanation.Schalen += fund.Schalen_KA.value_or(0);
    calc::Grundlagen basis;
    calc::LiesSchalensumme({{database, "Explain", explanation.ID_TR}, explanation.IstWRRL}, basis);
    explanation.Summe_KA = basis.Summe_KA.Anzahl;
}

struct Rerun {
    calc::Spur Spur;
    calc::Probe Probe;
    calc::Ergebnis Neu;
    calc::Ausgang Ausgang;
};

/// Whether a stored row was left by an assessment: such a run calculates no quantity index, and leaves a row
/// with the same key in `awaErgWRRL`. The flag keeps out a classic calculation that failed before the
/// quantity index while an older assessment still stands in `awaErgWRRL`.
bool AusBewertung(store::Database& database, const std::string& id, const calc::Ergebnis& alt) {
    if (alt.empty() || !calc::Wert(alt, "AMI").IsNull()) return false;
    const auto variante = calc::Wert(alt, "IstWRRL");
    if (variante.IsNull() || !variante.Bool()) return false;
    return calc::HatZeile(database, "SELECT ID FROM awaErgWRRL WHERE ID=" + id + " AND KAOnly=0;");
}

/// Calculates the sub-habitat anew as its row came about: `ohneMenge` as an assessment does, without quantity
/// index. What it read is explained inside the savepoint too, so that what another program enters meanwhile
/// does not stand beside sums that lack it.
Rerun Nachrechnen(const store::DatabasePtr& database, bool ohneMenge, Explanation& explanation) {
    Rerun rerun;
    const auto ID_TR = explanation.ID_TR;
    const bool IstWRRL = explanation.IstWRRL;
    const calc::Zaehlerschutz zaehler;
    const store::Savepoint savepoint(database->SharedConnection());
    const auto id = store::NumberText(ID_TR);
    database->Execute("DELETE * FROM awaErgProjekt WHERE ID=" + id + ";");
    rerun.Ausgang = calc::Versuche([&] {
        if (!ohneMenge) {
            Berechnung_Execute(database, ID_TR, IstWRRL, false, false, &rerun.Spur);
            return;
        }
        database->Execute("INSERT INTO awaErgProjekt (ID, IstWRRL) VALUES(" + id + ", " +
                          std::string(calc::abfragen::Flagge(IstWRRL)) + ");");
        Berechnung_Saprobie(database, ID_TR, false, IstWRRL, false, false, &rerun.Spur);
        Berechnung_Trophie(database, ID_TR, IstWRRL, false, false, &rerun.Spur);
    });
    rerun.Neu = calc::LiesErgebnis(*database, calc::abfragen::Ergebniszeile(ID_TR, false), AlleSpalten());
    if (explanation.Sampled) {
        rerun.Probe = calc::LiesProbe(*database, ID_TR);
        ErklaereGrundlagen(*database, rerun.Probe, explanation);
    }
    return rerun;
}

void ErklaereBestaende(const calc::Probe& probe, const calc::Grundlagen& basis, Explanation& explanation) {
    for (const auto& bestand : probe.Bestaende) {
        ExplainedStand stand{bestand.ID_TR_MI, bestand.MI_Bez,
                             explanation.IstWRRL ? bestand.DG_MI_WRRL : bestand.DG_MI, std::nullopt};
        for (const auto& gelesen : basis.Bestaende) {
            if (gelesen.ID_TR_MI == bestand.ID_TR_MI)
                stand.SharePercent = static_cast<double>(gelesen.Anteil.Prozent);
        }
        explanation.Stands.push_back(std::move(stand));
    }
}

void ErklaereZaehlungen(const calc::Spur& spur, const std::map<std::int32_t, std::string>& namen,
                        Explanation& explanation) {
    if (spur.Saprobie) explanation.ClassRows = ErklaereKlassen(spur.Saprobie->Klassen, namen);
    for (std::size_t i = 0; i < calc::KlassenSpalten.size(); ++i) {
        explanation.Classes.push_back(
            {std::string(calc::KlassenSpalten[i]), std::string(Klassennamen[i]), {}, {}});
    }
    for (const auto spalte : Zaehlspalten) {
        ExplainedCount count{std::string(spalte), {}, {}, {}};
        const auto zaehlung =
            std::find_if(spur.Taxazahlen.begin(), spur.Taxazahlen.end(),
                         [&](const calc::Taxazaehlung& eine) { return eine.Spalte == spalte; });
        if (zaehlung != spur.Taxazahlen.end()) {
            for (const auto id : zaehlung->ID_Arten) {
                const auto name = namen.find(id);
                count.Taxa.push_back({id, name == namen.end() ? std::string() : name->second});
            }
        }
        explanation.Counts.push_back(std::move(count));
    }
}

}  // namespace

Explanation Explain(const store::DatabasePtr& database, std::int32_t ID_TR) {
    auto& db = calc::Vorhanden(database, "Explain");
    const auto id = store::NumberText(ID_TR);
    Explanation explanation;
    explanation.ID_TR = ID_TR;
    explanation.TRBez = Teilraumname(db, id);
    explanation.Sampled = calc::HatZeile(db, "SELECT ID_TR FROM awaTeilraum WHERE ID_TR=" + id + ";");
    const auto alt = calc::LiesErgebnis(db, calc::abfragen::Ergebniszeile(ID_TR, false), AlleSpalten());
    const auto variante = calc::Wert(alt, "IstWRRL");
    explanation.IstWRRL = !variante.IsNull() && variante.Bool();

    const bool ohneMenge = explanation.Sampled && AusBewertung(db, id, alt);
    const auto rerun = Nachrechnen(database, ohneMenge, explanation);
    explanation.Failed = rerun.Ausgang.Failed;
    auto vergleich = calc::Vergleiche(AlleSpalten(), rerun.Neu, alt);
    explanation.State = vergleich.State;
    explanation.Columns = std::move(vergleich.Columns);
    if (!explanation.Sampled) return explanation;

    const auto& probe = rerun.Probe;
    const auto grundlagen = rerun.Spur.Saprobie ? rerun.Spur.Saprobie->Basis : calc::Grundlagen{};
    ErklaereBestaende(probe, grundlagen, explanation);
    const calc::Erklaerungsbasis basis{
        probe, explanation.IstWRRL,
        explanation.DG_Gesamt ? std::optional(calc::Gesamtdeckung{*explanation.DG_Gesamt}) : std::nullopt,
        rerun.Ausgang.Abbruch ? &*rerun.Ausgang.Abbruch : nullptr};
    explanation.Indices = calc::ErklaereIndizes(rerun.Spur, basis);
    if (!ohneMenge) {
        explanation.Indices.push_back(ErklaereMenge(rerun.Spur.AMI.value_or(calc::AMISpur{}), basis));
    }
    ErklaereZaehlungen(rerun.Spur, calc::Artnamen(probe), explanation);
    calc::TrageEin(explanation.Indices, rerun.Neu, alt);
    calc::TrageEin(explanation.Classes, rerun.Neu, alt);
    calc::TrageEin(explanation.Counts, rerun.Neu, alt);
    return explanation;
}

}  // namespace FX_Algen
