#include "wrrl/Ergebnisliste.h"

#include <gtest/gtest.h>

#include <optional>

#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

namespace FX_Algen {
namespace {

/// Section 2 "Quelle" (position 1) with station 6 and visit 20: sub-habitat 3, its site not marked.
/// Section 1 "Mündung" (position 2) with station 5 and visit 10:
///   sub-habitat 2 (position 1, not marked) with the marked site 2;
///   sub-habitat 1 (position 2) with the marked site 1 and site 11, which is not, and with both results;
///   sub-habitat 4 with a result and no site.
class Ergebnisliste : public testing::Test {
protected:
    Ergebnisliste() {
        for (const char* anweisung : {
                 "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (1, 1, 'Mündung', 2)",
                 "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (2, 1, 'Quelle', 1)",
                 "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Nummer, Bezeichnung, Kurzzeichen) "
                 "VALUES (3, 33, 'Kalkalpen', 'Ö')",
                 "INSERT INTO AL_Hoehenstufe (ID_AL_Hoehenstufe, Hoehenstufe, Bezeichnung) "
                 "VALUES (7, 2, 'Hügelland')",
                 "INSERT INTO AL_Flussabschnitt (ID_AL_Flussabschnitt, Bezeichnung) VALUES (4, "
                 "'Äschenregion')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, Gewaessername, RF, ID_AL_Bioregion, "
                 "ID_AL_Hoehenstufe, ID_AL_Flussabschnitt, RefBioregionen, WGEV_ID) "
                 "VALUES (5, 1, 'Brücke', 'Große Ache', 9, 3, 7, 4, 'K1,X', 'Ö77')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (6, 2, 'Öd')",
                 "INSERT INTO obProjekt1a (ID_UUS, UBA_M632) VALUES (5, 'M632')",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (10, 5, #5/12/2026#)",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (20, 6, #5/13/2026#)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (1, 10, 'Blöcke', 2)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF, Anzeige) VALUES (2, 10, 'Kies', 1, False)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (3, 20, 'Blöcke', 1)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (4, 10, 'Sand', 3)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez, Anzeige) VALUES (1, 1, 'Ufer', True)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez, Anzeige) VALUES (11, 1, 'Mitte', False)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez, Anzeige) VALUES (2, 2, 'Ufer', True)",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez, Anzeige) VALUES (3, 3, 'Ufer', False)",
                 "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (1, False, 'Alle')",
                 "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (1, True, 'KA')",
                 "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (2, False, 'Alle')",
                 "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (3, False, 'Alle')",
                 "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (4, False, 'Alle')",
             })
            db.Handle->Execute(anweisung);
    }

    /// Sub-habitats of the rows in their order.
    std::string Teilraeume(std::int16_t anzeige, bool istWRRL, std::int32_t id) const {
        std::string liste;
        const auto zeilen = Get_WRRLErgRecordset(db.Handle, anzeige, istWRRL, id);
        for (; !zeilen->Eof(); zeilen->MoveNext())
            liste += (liste.empty() ? "" : " ") + (*zeilen)["ID_TR"].Text();
        return liste;
    }

    test::TestDatabase db;
};

struct Anzeigefall {
    std::int16_t Anzeige;
    bool IstWRRL;
    std::int32_t TeilraumID;
    std::string Teilraeume;
};

TEST_F(Ergebnisliste, ShowsARowForEachResultAndSiteOfTheMode) {
    const Anzeigefall faelle[] = {
        // Marked sites: 2 of sub-habitat 2, 1 of sub-habitat 1 with its two results.
        {0, false, 0, "2 1 1"},
        {0, true, 3, "2 1 1"},
        // All: sub-habitat 1 has two sites and two results.
        {1, false, 0, "3 2 1 1 1 1"},
        {1, true, 2, "3 2 1 1 1 1"},
        // One sub-habitat.
        {2, true, 1, "1 1 1 1"},
        {2, true, 2, "2"},
        {2, true, 4, ""},
        {2, true, 10, ""},
        // One visit.
        {2, false, 10, "2 1 1 1 1"},
        {2, false, 20, "3"},
        {2, false, 1, ""},
        {2, false, 5, ""},
        {2, false, -1, ""},
        // Marked sub-habitats: 1 and 3; 4 has no site.
        {3, false, 0, "3 1 1 1 1"},
        {3, true, 2, "3 1 1 1 1"},
    };
    for (const auto& fall : faelle)
        EXPECT_EQ(Teilraeume(fall.Anzeige, fall.IstWRRL, fall.TeilraumID), fall.Teilraeume)
            << fall.Anzeige << " " << fall.IstWRRL << " " << fall.TeilraumID;
}

/// A column of the order with the values of two places, the first of which stands first.
struct Sortierung {
    const char* Tabelle;
    const char* Schluessel;
    const char* Feld;
    const char* Vorn;
    const char* Hinten;
    std::int32_t ID[2];  ///< keys of the rows of the two places
};

TEST_F(Ergebnisliste, StandsByEachColumnOfTheOrderBeforeTheNext) {
    db.Handle->Execute("DELETE * FROM awaErgWRRL;");
    for (const char* n : {"1", "2"}) {
        const std::string k = n;
        db.Handle->Execute("INSERT INTO Abschnitt (ID_AB) VALUES (3" + k + ")");
        db.Handle->Execute("INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (4" + k + ", 3" + k + ")");
        db.Handle->Execute("INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (5" + k + ", 4" + k + ")");
        db.Handle->Execute("INSERT INTO Teilraum (ID_TR, ID_VUS) VALUES (6" + k + ", 5" + k + ")");
        db.Handle->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (7" + k + ", 6" + k + ")");
        db.Handle->Execute("INSERT INTO awaErgWRRL (ID, KAOnly) VALUES (6" + k + ", False)");
    }
    const Sortierung spalten[] = {
        {"Abschnitt", "ID_AB", "RF", "2", "10", {31, 32}},
        {"Abschnitt", "ID_AB", "ABBez", "'Äußere Ache'", "'Bach'", {31, 32}},
        {"UnvUStelle", "ID_UUS", "RF", "2", "10", {41, 42}},
        {"UnvUStelle", "ID_UUS", "USBez", "'Öd'", "'Wehr'", {41, 42}},
        {"VerUStelle", "ID_VUS", "USDatumVon", "#8/3/2026#", "#5/12/2027#", {51, 52}},
        {"Teilraum", "ID_TR", "RF", "2", "10", {61, 62}},
        {"Teilraum", "ID_TR", "TRBez", "'Äste'", "'Blöcke'", {61, 62}},
    };
    const auto setze = [&](const Sortierung& spalte, const char* erster, const char* zweiter) {
        for (const int i : {0, 1})
            db.Handle->Execute("UPDATE " + std::string(spalte.Tabelle) + " SET " + spalte.Feld + "=" +
                               (i == 0 ? erster : zweiter) + " WHERE " + spalte.Schluessel + "=" +
                               std::to_string(spalte.ID[i]) + ";");
    };
    // Each column in turn puts sub-habitat 62 first; those before it are equal, those behind it say 61.
    for (const auto& spalte : spalten) setze(spalte, spalte.Vorn, spalte.Hinten);
    EXPECT_EQ(Teilraeume(1, true, 0), "61 62");
    for (const auto& spalte : spalten) {
        setze(spalte, spalte.Hinten, spalte.Vorn);
        EXPECT_EQ(Teilraeume(1, true, 0), "62 61") << spalte.Tabelle << "." << spalte.Feld;
        setze(spalte, spalte.Vorn, spalte.Vorn);
    }
}

TEST_F(Ergebnisliste, OtherModesHaveNoStatement) {
    for (const std::int16_t anzeige : {-32768, -1, 4, 5, 32767}) {
        try {
            Get_WRRLErgRecordset(db.Handle, anzeige, true, 1);
            ADD_FAILURE() << anzeige;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SyntaxError);
            EXPECT_EQ(error.Statement(), "");
        }
    }
}

TEST_F(Ergebnisliste, TellsTheNamesOfThePlace) {
    const auto zeile = Get_WRRLErgRecordset(db.Handle, 2, true, 2);
    const std::pair<const char*, const char*> werte[] = {
        {"Abschnitt.RF", "2"},
        {"ABBez", "Mündung"},
        {"UnvUStelle.RF", "9"},
        {"USBez", "Brücke"},
        {"Gewaessername", "Große Ache"},
        {"RefBioregionen", "K1,X"},
        {"ID_AL_Bioregion", "3"},
        {"WGEV_ID", "Ö77"},
        {"Nummer", "33"},
        {"Bezeichnung", "Kalkalpen"},
        {"Kurzzeichen", "Ö"},
        {"ID_AL_Flussabschnitt", "4"},
        {"FABez", "Äschenregion"},
        {"Hoehenstufe", "2"},
        {"HSBez", "Hügelland"},
        {"USDatumVon", "2026-05-12"},
        {"ID_TR", "2"},
        {"Teilraum.RF", "1"},
        {"TRBez", "Kies"},
        {"UBA_M632", "M632"},
        {"ID", "2"},
        {"KAOnly", "0"},
        {"Taxagruppe", "Alle"},
    };
    for (const auto& [feld, wert] : werte) EXPECT_EQ((*zeile)[feld].Text(), wert) << feld;
    // 20 columns of the place, then each one of the result.
    const auto ergebnis = db.Handle->OpenRecordset("awaErgWRRL");
    ASSERT_EQ(zeile->Fields().size(), 20 + ergebnis->Fields().size());
    for (std::size_t i = 0; i < ergebnis->Fields().size(); ++i)
        EXPECT_EQ(zeile->Fields()[20 + i].Name, ergebnis->Fields()[i].Name);
}

TEST_F(Ergebnisliste, StationWithoutClassificationStaysInTheList) {
    const auto zeile = Get_WRRLErgRecordset(db.Handle, 2, true, 3);
    ASSERT_EQ(zeile->RecordCount(), 1);
    EXPECT_EQ((*zeile)["USBez"].Text(), "Öd");
    for (const char* feld :
         {"ID_AL_Bioregion", "Kurzzeichen", "FABez", "Hoehenstufe", "HSBez", "UBA_M632", "RefBioregionen"})
        EXPECT_TRUE((*zeile)[feld].IsNull()) << feld;
}

TEST(ErgebnislisteOhneDatenbank, Fails) {
    try {
        Get_WRRLErgRecordset(nullptr, 1, true, 1);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
    }
}

}  // namespace
}  // namespace FX_Algen
