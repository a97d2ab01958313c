// Explanation of the stored assessments: reruns of the routines themselves inside savepoints that are undone.
#include <algorithm>

#include "FX_Algen/Assessment.h"
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Erklaerung.h"
#include "calc/Nachrechnung.h"
#include "store/Connection.h"
#include "wrrl/Auswertung.h"

namespace FX_Algen {
namespace {

/// What the explanation reads of the row in `awaErgProjekt`.
const std::vector<std::string> Indexspalten{"SapIndex", "SapIndex_KA", "TI", "TI_N",
                                            "TI_KA",    "IstWRRL",     "AMI"};

std::string Bewertungszeile(std::int32_t ID_TR, bool KAOnly) {
    return "SELECT * FROM awaErgWRRL WHERE (ID=" + store::NumberText(ID_TR) +
           ") AND (KAOnly=" + std::string(calc::abfragen::Flagge(KAOnly)) + ");";
}

std::vector<std::string> Bewertungsspalten(store::Database& database) {
    std::vector<std::string> spalten;
    const auto zeilen = database.OpenRecordset(Bewertungszeile(0, false));
    for (const auto& feld : zeilen->Fields()) spalten.push_back(feld.Name);
    zeilen->Close();
    return spalten;
}

/// The rows that a run leaves.
struct Zeilen {
    calc::Ergebnis Bewertung;  ///< of `awaErgWRRL`
    calc::Ergebnis Indizes;    ///< of `awaErgProjekt`
};

Zeilen LiesZeilen(store::Database& database, std::int32_t ID_TR, bool KAOnly,
                  const std::vector<std::string>& spalten) {
    return {calc::LiesErgebnis(database, Bewertungszeile(ID_TR, KAOnly), spalten),
            calc::LiesErgebnis(database, calc::abfragen::Ergebniszeile(ID_TR, KAOnly), Indexspalten)};
}

/// A quantity index tells that a calculation took the place of the row that the assessment left.
void VerwirfFremdeIndizes(Zeilen& zeilen) {
    if (!calc::Wert(zeilen.Indizes, "AMI").IsNull()) zeilen.Indizes.clear();
}

/// Variant of a stored run; that of the Directive where its row is gone.
bool Variante(const Zeilen& gespeichert) {
    const auto wert = calc::Wert(gespeichert.Indizes, "IstWRRL");
    return wert.IsNull() || wert.Bool();
}

Bewertungsauftrag Auftrag(const store::DatabasePtr& database, const AssessmentSite& site, bool KAOnly,
                          bool IstWRRL) {
    Bewertungsauftrag auftrag;
    auftrag.Liste.Datenbank = database;
    auftrag.Liste.Workspace = std::make_shared<store::Workspace>();
    auftrag.Liste.AktUebersicht = "Projekt";
    auftrag.Liste.ProjektID = site.ID_PRJ;
    auftrag.Liste.TeilraumID = site.ID_TR;
    auftrag.Liste.IstWRRLBerechnung = IstWRRL;
    auftrag.KAOnly = KAOnly;
    auftrag.BioregionID = site.BioregionID;
    auftrag.Hoehenstufe = site.Hoehenstufe;
    auftrag.RefBioregion = site.RefBioregion;
    return auftrag;
}

std::optional<calc::Gesamtdeckung> Gesamtdeckung(store::Database& database, std::int32_t ID_TR,
                                                 bool IstWRRL) {
    std::optional<calc::Gesamtdeckung> deckung;
    const auto zeile = database.OpenRecordset(calc::abfragen::Teilraum(ID_TR));
    if (!zeile->Eof()) {
        const auto& wert = (*zeile)[IstWRRL ? "DG_Gesamt_WRRL" : "DG_Gesamt"];
        if (!wert.IsNull()) deckung = calc::Gesamtdeckung{wert.R4()};
    }
    zeile->Close();
    return deckung;
}

struct Rerun {
    AssessmentTrace Spur;
    calc::Spur Indexspur;
    calc::Probe Probe;
    std::optional<calc::Gesamtdeckung> Deckung;
    Zeilen Neu;
    calc::Ausgang Ausgang;
};

/// Runs the assessments in their order as a host does, which goes on after a failure. The last one is the one
/// to explain. What it read is taken down inside the savepoint too, so that what another program enters
/// meanwhile does not stand beside sums that lack it.
Rerun Nachrechnen(const store::DatabasePtr& database, std::int32_t ID_TR,
                  const std::vector<Bewertungsauftrag>& auftraege, const std::vector<std::string>& spalten) {
    Rerun rerun;
    const calc::Zaehlerschutz zaehler;
    const store::Savepoint savepoint(database->SharedConnection());
    const auto id = store::NumberText(ID_TR);
    database->Execute("DELETE * FROM awaErgProjekt WHERE ID=" + id + ";");
    database->Execute("DELETE * FROM awaErgWRRL WHERE ID=" + id + ";");
    for (const auto& auftrag : auftraege) {
        std::string gruppe;
        rerun.Spur = {};
        rerun.Indexspur = {};
        rerun.Ausgang =
            calc::Versuche([&] { Berechnung_WRRL(auftrag, gruppe, &rerun.Spur, &rerun.Indexspur); });
    }
    rerun.Neu = LiesZeilen(*database, ID_TR, auftraege.back().KAOnly, spalten);
    rerun.Probe = calc::LiesProbe(*database, ID_TR);
    rerun.Deckung = Gesamtdeckung(*database, ID_TR, auftraege.back().Liste.IstWRRLBerechnung);
    return rerun;
}

ExplainedAssessment Erklaere(const store::DatabasePtr& database, std::int32_t ID_TR,
                             const std::vector<Bewertungsauftrag>& auftraege,
                             const std::vector<std::string>& spalten, const Zeilen& gespeichert) {
    const auto& auftrag = auftraege.back();
    const bool IstWRRL = auftrag.Liste.IstWRRLBerechnung;
    auto rerun = Nachrechnen(database, ID_TR, auftraege, spalten);
    ExplainedAssessment bewertung;
    bewertung.KAOnly = auftrag.KAOnly;
    bewertung.Failed = rerun.Ausgang.Failed;
    auto vergleich = calc::Vergleiche(spalten, rerun.Neu.Bewertung, gespeichert.Bewertung);
    bewertung.State = vergleich.State;
    bewertung.Columns = std::move(vergleich.Columns);
    if (!rerun.Spur.Skipped) {
        bewertung.Indices = calc::ErklaereIndizes(
            rerun.Indexspur, {rerun.Probe, IstWRRL, rerun.Deckung,
                              rerun.Ausgang.Abbruch ? &*rerun.Ausgang.Abbruch : nullptr, auftrag.KAOnly});
        calc::TrageEin(bewertung.Indices, rerun.Neu.Indizes, gespeichert.Indizes);
    }
    bewertung.Trace = std::move(rerun.Spur);
    return bewertung;
}

}  // namespace

std::vector<ExplainedAssessment> ExplainAssessments(const store::DatabasePtr& database,
                                                    const AssessmentSite& site) {
    auto& db = calc::Vorhanden(database, "ExplainAssessments");
    const auto spalten = Bewertungsspalten(db);
    std::vector<ExplainedAssessment> bewertungen;
    std::vector<Bewertungsauftrag> auftraege;
    for (const bool KAOnly : {false, true}) {
        auto gespeichert = LiesZeilen(db, site.ID_TR, KAOnly, spalten);
        if (gespeichert.Bewertung.empty()) continue;
        VerwirfFremdeIndizes(gespeichert);
        auftraege.push_back(Auftrag(database, site, KAOnly, Variante(gespeichert)));
        bewertungen.push_back(Erklaere(database, site.ID_TR, auftraege, spalten, gespeichert));
    }
    return bewertungen;
}

std::string TaxonName(const store::DatabasePtr& database, std::int32_t ID_ART) {
    const auto zeile =
        calc::Vorhanden(database, "TaxonName")
            .OpenRecordset("SELECT Gattung, Art FROM awaArt WHERE ID_ART=" + store::NumberText(ID_ART) + ";");
    std::string name = zeile->Eof() ? std::string() : calc::Artname((*zeile)[0], (*zeile)[1]);
    zeile->Close();
    return name;
}

}  // namespace FX_Algen
