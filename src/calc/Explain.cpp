// Explanation of a sub-habitat: a rerun of the routines themselves inside a savepoint that is undone.
#include "FX_Algen/Explain.h"

#include <algorithm>
#include <array>

#include "FX_Algen/Error.h"
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Erklaerung.h"
#include "calc/Lesen.h"
#include "calc/Schritte.h"
#include "store/Connection.h"
#include "store/ThreadValues.h"

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

/// The classic result row of a sub-habitat by column; empty where there is none.
using Ergebnis = std::map<std::string, store::Value, std::less<>>;

Ergebnis LiesErgebnis(store::Database& database, std::int32_t ID_TR) {
    Ergebnis ergebnis;
    const auto zeile = database.OpenRecordset(calc::abfragen::Ergebniszeile(ID_TR, false));
    if (!zeile->Eof()) {
        for (const auto spalte : Spalten) ergebnis.emplace(spalte, (*zeile)[spalte]);
        for (const auto spalte : calc::KlassenSpalten) ergebnis.emplace(spalte, (*zeile)[spalte]);
    }
    zeile->Close();
    return ergebnis;
}

store::Value Wert(const Ergebnis& ergebnis, std::string_view spalte) {
    const auto fund = ergebnis.find(spalte);
    return fund == ergebnis.end() ? store::Value() : fund->second;
}

bool HatZeile(store::Database& database, const std::string& abfrage) {
    const auto zeilen = database.OpenRecordset(abfrage);
    const bool gefunden = !zeilen->Eof();
    zeilen->Close();
    return gefunden;
}

std::string Teilraumname(store::Database& database, const std::string& id) {
    const auto zeilen = database.OpenRecordset("SELECT TRBez FROM Teilraum WHERE ID_TR=" + id + ";");
    std::string name = zeilen->Eof() || (*zeilen)[0].IsNull() ? std::string() : (*zeilen)[0].Text();
    zeilen->Close();
    return name;
}

/// The counters of the thread belong to the calculation of the host; a rerun gives them back.
class Zaehlerschutz {
public:
    Zaehlerschutz() : gemerkt_(store::Thread().GueteklasseAnzahl) {}
    ~Zaehlerschutz() { store::Thread().GueteklasseAnzahl = gemerkt_; }
    Zaehlerschutz(const Zaehlerschutz&) = delete;
    Zaehlerschutz& operator=(const Zaehlerschutz&) = delete;

private:
    calc::Klassenzahlen gemerkt_;
};

struct Rerun {
    calc::Spur Spur;
    Ergebnis Neu;
    std::optional<Explanation::Failure> Failed;
    std::optional<calc::NullImWert> Abbruch;
};

Rerun Nachrechnen(const store::DatabasePtr& database, std::int32_t ID_TR, bool IstWRRL) {
    Rerun rerun;
    const Zaehlerschutz zaehler;
    const store::Savepoint savepoint(database->SharedConnection());
    database->Execute("DELETE * FROM awaErgProjekt WHERE ID=" + store::NumberText(ID_TR) + ";");
    try {
        Berechnung_Execute(database, ID_TR, IstWRRL, false, false, &rerun.Spur);
    } catch (const calc::NullImWert& error) {
        rerun.Abbruch = error;
        rerun.Failed = Explanation::Failure{error.Number(), error.Description()};
    } catch (const Error& error) {
        rerun.Failed = Explanation::Failure{error.Number(), error.Description()};
    }
    rerun.Neu = LiesErgebnis(*database, ID_TR);
    return rerun;
}

void Vergleichen(const Ergebnis& neu, const Ergebnis& alt, Explanation& explanation) {
    bool veraltet = neu.empty() != alt.empty();
    const auto vergleiche = [&](std::string_view spalte) {
        auto ergebnis = Wert(neu, spalte);
        auto gespeichert = Wert(alt, spalte);
        const bool anders = !alt.empty() && ergebnis != gespeichert;
        veraltet = veraltet || anders;
        explanation.Columns.push_back(
            {std::string(spalte), std::move(ergebnis), std::move(gespeichert), anders});
    };
    for (const auto spalte : Spalten) vergleiche(spalte);
    for (const auto spalte : calc::KlassenSpalten) vergleiche(spalte);
    if (alt.empty()) {
        explanation.State = StoredResult::Missing;
    } else {
        explanation.State = veraltet ? StoredResult::OutOfDate : StoredResult::Current;
    }
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

void ErklaereIndizes(const calc::Spur& spur, const calc::Erklaerungsbasis& basis, Explanation& explanation) {
    const auto anfuegen = [&](const auto& lauf, ExplainedIndex index, const calc::Summe32& gewichte,
                              const calc::Summe32& werte) {
        if (lauf.Fertig) {
            index.WeightSum = static_cast<double>(gewichte.Wert());
            index.ValueSum = static_cast<double>(werte.Wert());
        }
        explanation.Indices.push_back(std::move(index));
    };
    const auto sap = spur.Saprobie.value_or(calc::SaprobieSpur{});
    anfuegen(sap, ErklaereIndex("SapIndex", sap.Beitraege, false, false, basis), sap.Summen.Gewicht,
             sap.Summen.GewichtSI);
    anfuegen(sap, ErklaereIndex("SapIndex_KA", sap.Beitraege, false, true, basis), sap.Summen.Gewicht_KA,
             sap.Summen.GewichtSI_KA);
    const auto troph = spur.Trophie.value_or(calc::TrophieSpur{});
    anfuegen(troph, ErklaereIndex("TI", troph.TI, true, false, basis), troph.Summen.TI, troph.Summen.TI_S);
    anfuegen(troph, ErklaereIndex("TI_N", troph.TI_N, true, false, basis), troph.Summen.TI_N,
             troph.Summen.TI_N_S);
    anfuegen(troph, ErklaereIndex("TI_KA", troph.TI, true, true, basis), troph.Summen.TI_KA,
             troph.Summen.TI_KA_S);
    explanation.Indices.push_back(ErklaereMenge(spur.AMI.value_or(calc::AMISpur{}), basis));
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

template <class Teile>
void TrageEin(Teile& teile, const Ergebnis& neu, const Ergebnis& alt) {
    for (auto& teil : teile) {
        teil.Result = Wert(neu, teil.Column);
        teil.Stored = Wert(alt, teil.Column);
    }
}

}  // namespace

Explanation Explain(const store::DatabasePtr& database, std::int32_t ID_TR) {
    auto& db = calc::Vorhanden(database, "Explain");
    const auto id = store::NumberText(ID_TR);
    Explanation explanation;
    explanation.ID_TR = ID_TR;
    explanation.TRBez = Teilraumname(db, id);
    explanation.Sampled = HatZeile(db, "SELECT ID_TR FROM awaTeilraum WHERE ID_TR=" + id + ";");
    const auto alt = LiesErgebnis(db, ID_TR);
    const auto variante = Wert(alt, "IstWRRL");
    explanation.IstWRRL = !variante.IsNull() && variante.Bool();

    const auto rerun = Nachrechnen(database, ID_TR, explanation.IstWRRL);
    explanation.Failed = rerun.Failed;
    Vergleichen(rerun.Neu, alt, explanation);
    if (!explanation.Sampled) return explanation;

    const auto probe = calc::LiesProbe(db, ID_TR);
    const auto basis = rerun.Spur.Saprobie ? rerun.Spur.Saprobie->Basis : calc::Grundlagen{};
    ErklaereGrundlagen(db, probe, explanation);
    ErklaereBestaende(probe, basis, explanation);
    const auto gesamt =
        explanation.DG_Gesamt ? std::optional(calc::Gesamtdeckung{*explanation.DG_Gesamt}) : std::nullopt;
    ErklaereIndizes(rerun.Spur,
                    {probe, explanation.IstWRRL, gesamt, rerun.Abbruch ? &*rerun.Abbruch : nullptr},
                    explanation);
    ErklaereZaehlungen(rerun.Spur, calc::Artnamen(probe), explanation);
    TrageEin(explanation.Indices, rerun.Neu, alt);
    TrageEin(explanation.Classes, rerun.Neu, alt);
    TrageEin(explanation.Counts, rerun.Neu, alt);
    return explanation;
}

}  // namespace FX_Algen
