#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "wrrl/Artenliste.h"
#include "wrrl/Projektdatenbank.h"

namespace FX_Algen {

/// A project with one sub-habitat in which everything that makes up a cell occurs.
///
/// Sub-habitat 17: total cover 60, in the assessment 50; macroalgae 40 and 30. Findings at site 5: green alga
/// 1 with cover 15; diatoms 2 and 3 with 30 and 10 valves; alga 4 in stands only. Stand 11 covers 12, in the
/// assessment 10; 25 % of it is taxon 1, 50 % taxon 4.
class Listenprobe : public testing::Test {
protected:
    Listenprobe() {
        db.Zweig(3);
        db.Art(1, {.ID_GRGR = 129});
        db.Art(2, {.ID_GRGR = 128});
        db.Art(3, {.ID_GRGR = 128});
        db.Art(4, {.ID_GRGR = 130});
        db.Teilraum(17, 3, {60, 40, 50, 30});
        db.Stelle(5, 17);
        db.Fund(5, 1, {.DG_MA = 15});
        db.Fund(5, 2, {.Schalen_KA = 30});
        db.Fund(5, 3, {.Schalen_KA = 10});
        db.Fund(5, 4, {});
        db.Bestand(11, 17, 12, 10);
        db.Bestandsart(11, 1, 25);
        db.Bestandsart(11, 4, 50);
    }

    Listenauftrag Auftrag() {
        Listenauftrag auftrag;
        auftrag.Datenbank = db.Datenbank();
        auftrag.DBName = db.Pfad();
        auftrag.AktUebersicht = "Projekt";
        auftrag.ProjektID = 3;
        return auftrag;
    }
    Listenauftrag Bewertung() {
        auto auftrag = Auftrag();
        auftrag.IstWRRLBerechnung = true;
        return auftrag;
    }

    /// Rows of the list as they stand.
    std::vector<std::string> Tabelle() { return db.Abzug("SELECT * FROM awaArtenlisteHaeufigkeit;"); }
    /// The list's columns.
    std::vector<std::string> Spalten() {
        std::vector<std::string> namen;
        const auto zeilen = db.Datenbank()->OpenRecordset("SELECT * FROM awaArtenlisteHaeufigkeit;");
        for (const auto& feld : zeilen->Fields()) namen.push_back(feld.Name);
        return namen;
    }
    /// A cell by taxon; fails the test where there is no such row.
    double Zelle(std::int32_t art, std::int32_t tr, bool cf = false) {
        return db
            .Eins("SELECT A" + std::to_string(tr) + " FROM awaArtenlisteHaeufigkeit WHERE ID_Art=" +
                  std::to_string(art) + " AND CF=" + (cf ? "True" : "False") + ";")
            .R8();
    }
    /// Taxa of the list, uncertain ones with "?".
    std::vector<std::string> Taxa() {
        std::vector<std::string> taxa;
        const auto zeilen = db.Datenbank()->OpenRecordset("SELECT ID_Art, CF FROM awaArtenlisteHaeufigkeit;");
        for (; !zeilen->Eof(); zeilen->MoveNext())
            taxa.push_back((*zeilen)["ID_Art"].Text() + ((*zeilen)["CF"].Bool() ? "?" : ""));
        return taxa;
    }

    Projektdatenbank db;
};

}  // namespace FX_Algen
