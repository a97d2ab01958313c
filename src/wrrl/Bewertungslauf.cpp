// The assessment run of a sub-habitat: result rows, frequency list, indices, modules, overall class.
#include "calc/Abfragen.h"
#include "calc/Berechnung.h"
#include "calc/Lesen.h"
#include "store/Allgemein.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Schritte.h"

namespace FX_Algen {
namespace {

constexpr std::string_view Routine = "Berechnung_WRRL";

std::string Flagge(bool wert) { return std::string(calc::abfragen::Flagge(wert)); }

void ZeilenAnlegen(store::Database& database, const Bewertungsauftrag& auftrag) {
    const auto id = store::NumberText(auftrag.Liste.TeilraumID);
    database.Execute("INSERT INTO awaErgProjekt (ID, IstWRRL, KAOnly) VALUES(" + id + ", " +
                     Flagge(auftrag.Liste.IstWRRLBerechnung) + ", " + Flagge(auftrag.KAOnly) + ");");
    // The condition goes in as it stands: a quote inside it breaks the statement.
    database.Execute("INSERT INTO awaErgWRRL (ID, SQL_RefBioregion, KAOnly) VALUES(" + id + ", '" +
                     auftrag.RefBioregion + "', " + Flagge(auftrag.KAOnly) + ");");
}

/// The counts below answer 0 where the list lacks the sub-habitat, so its outcome is not looked at.
void ListeErstellen(const Bewertungsauftrag& auftrag, AssessmentTrace* spur) {
    if (spur == nullptr) {
        Artenliste_Haeufigkeit(auftrag.Liste);
        return;
    }
    FrequencyColumn spalte;
    spur->ListBuilt = Artenliste_Haeufigkeit(auftrag.Liste, &spalte);
    // Another scope lists all of its sub-habitats, and the last of them is not the one assessed.
    if (auftrag.Liste.AktUebersicht == "Projekt" && (spur->ListBuilt || !spalte.Findings.empty()))
        spur->Column = std::move(spalte);
}

void Bewerten(const Bewertungsauftrag& auftrag, std::string& gruppe, AssessmentTrace* spur,
              calc::Spur* indexSpur) {
    const auto& liste = auftrag.Liste;
    const auto& database = liste.Datenbank;
    const auto ID = liste.TeilraumID;
    const bool debug = liste.DebugModus;
    const wrrl::Aufruf aufruf{{*database, Routine, ID}, debug, auftrag.KAOnly};

    ZeilenAnlegen(*database, auftrag);
    wrrl::Kasten(aufruf, "mbolWRRL: ", Allgemein::Bool_Text(liste.IstWRRLBerechnung));
    ListeErstellen(auftrag, spur);
    Berechnung_Saprobie(database, ID, auftrag.ValenzGewicht, liste.IstWRRLBerechnung, debug, auftrag.KAOnly,
                        indexSpur);
    Berechnung_Trophie(database, ID, liste.IstWRRLBerechnung, debug, auftrag.KAOnly, indexSpur);
    wrrl::Kasten(aufruf, "mstrRefBioregion: ", auftrag.RefBioregion);
    // First of the modules: it decides the group that the others rest on.
    gruppe = AuswertungWRRL_Referenzarten(database, ID, auftrag.BioregionID, auftrag.Hoehenstufe,
                                          auftrag.RefBioregion, debug, auftrag.KAOnly,
                                          spur != nullptr ? &spur->ReferenceSpecies.emplace() : nullptr);
    wrrl::Kasten(aufruf, "mstrAlgengruppe: ", gruppe);
    AuswertungWRRL_TI(database, ID, auftrag.BioregionID, auftrag.Hoehenstufe, gruppe, debug, auftrag.KAOnly,
                      spur != nullptr ? &spur->Trophic.emplace() : nullptr);
    AuswertungWRRL_SI(database, ID, auftrag.BioregionID, auftrag.Hoehenstufe, gruppe, debug, auftrag.KAOnly,
                      spur != nullptr ? &spur->Saprobic.emplace() : nullptr);
    AuswertungWRRL_Gesamtbewertung(database, ID, debug, auftrag.KAOnly,
                                   spur != nullptr ? &spur->Overall.emplace() : nullptr);
}

}  // namespace

void Berechnung_WRRLInit(const store::DatabasePtr& database) {
    auto& db = calc::Vorhanden(database, "Berechnung_WRRLInit");
    db.Execute("DELETE * FROM awaErgProjekt;");
    db.Execute("DELETE * FROM awaErgWRRL;");
}

void Berechnung_WRRL(const Bewertungsauftrag& auftrag, std::string& gruppe, AssessmentTrace* spur,
                     calc::Spur* indexSpur) {
    const auto& database = auftrag.Liste.Datenbank;
    const auto ID = auftrag.Liste.TeilraumID;
    auto& db = calc::Vorhanden(database, Routine);
    if (spur != nullptr) {
        *spur = {};
        spur->KAOnly = auftrag.KAOnly;
    }
    // A first run that fell back to the diatoms is their assessment already.
    const bool schonBewertet = auftrag.KAOnly && CheckIstKA(database, ID);
    const auto teilraum =
        db.OpenRecordset("SELECT ID_TR FROM awaTeilraum WHERE ID_TR=" + store::NumberText(ID) + ";");
    if (teilraum->Eof()) {
        if (spur != nullptr) spur->Skipped = NotAssessed::NoSample;
    } else if (schonBewertet) {
        if (spur != nullptr) spur->Skipped = NotAssessed::DiatomsAlready;
    } else {
        Bewerten(auftrag, gruppe, spur, indexSpur);
    }
    teilraum->Close();
}

}  // namespace FX_Algen
