// The two operations of `AL_PS` that rebuild the frequency list.
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Display.h"
#include "TestDatabase.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes the calls of the progress form.
class Anzeige : public store::RecordingMessages {
public:
    void ProgressShow(std::int32_t window, float left, float top, float width, float height) override {
        Balken.push_back("show " + std::to_string(window));
        for (const float wert : {left, top, width, height}) Balken.back() += " " + store::NumberText(wert);
    }
    void ProgressDraw(std::int16_t prozent, std::string_view) override {
        Balken.push_back(std::to_string(prozent));
    }
    void ProgressHide(std::int32_t window) override { Balken.push_back("hide " + std::to_string(window)); }
    std::vector<std::string> Balken;
};

/// Project 3 with the sub-habitats 17 and 18 of one visit: taxon 1 covers 15 of 60 percent in 17, in the
/// assessment of 50, and taxon 2 covers 6 in 18.
class ArtenlisteOperationen : public testing::Test {
protected:
    ArtenlisteOperationen() : anzeige(std::make_shared<Anzeige>()), vorher_(SetDisplay(anzeige)) {
        for (const char* anweisung :
             {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (3, 'Mürz');",
              "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (3, 3);",
              "INSERT INTO UnvUStelle (ID_UUS, ID_AB) VALUES (3, 3);",
              "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (3, 3);",
              "INSERT INTO Teilraum (ID_TR, ID_VUS, Anzeige) VALUES (17, 3, True);",
              "INSERT INTO Teilraum (ID_TR, ID_VUS, Anzeige) VALUES (18, 3, False);",
              "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_Gesamt_WRRL) VALUES (17, 60, 50);",
              "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_Gesamt_WRRL) VALUES (18, 60, 50);",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (5, 17);",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (6, 18);",
              "INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (129, 129);",
              "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (129, 129);",
              "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (1, 129, 'Ulothrix', 'grün');",
              "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (2, 129, 'Ulothrix', 'öde');",
              "INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (1, 1);",
              "INSERT INTO awaModulStandard (ID_ART, Lebensform) VALUES (2, 0);",
              "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (5, 1, False, 15);",
              "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (6, 2, False, 6);"})
            db.Handle->Execute(anweisung);
        ps.CurrentDB(db.Handle);
        ps.DBName(db.Path());
        ps.AktUebersicht("Projekt");
        ps.ProjektID(3);
        ps.TeilraumID(17);
    }
    ~ArtenlisteOperationen() override { SetDisplay(vorher_); }

    std::vector<std::string> Tabelle() {
        std::vector<std::string> zeilen;
        const auto liste = db.Handle->OpenRecordset("SELECT * FROM awaArtenlisteHaeufigkeit;");
        for (; !liste->Eof(); liste->MoveNext()) {
            std::string text;
            for (std::size_t i = 0; i < liste->Fields().size(); ++i)
                text += liste->Fields()[i].Name + "=" + (*liste)[i].Text() + ";";
            zeilen.push_back(std::move(text));
        }
        return zeilen;
    }

    test::TestDatabase db;
    std::shared_ptr<Anzeige> anzeige;
    AL_PS ps;

private:
    std::shared_ptr<store::Messages> vorher_;
};

TEST_F(ArtenlisteOperationen, TheOneBuildsTheListOfTheWholeScope) {
    // 15 / 60 * 100 = 25, 6 / 60 * 100 = 10
    ps.Berechnung_WRRLArtenliste();
    EXPECT_THAT(Tabelle(), ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=25;A18=0;",
                                       "ID_Art=2;CF=0;IstKA=0;MAalsMI=0;A17=0;A18=10;"));
}

TEST_F(ArtenlisteOperationen, TheOtherHasTheColumnOfTheCurrentSubHabitatAlone) {
    ps.Berechnung_WRRLArtenlisteTLR();
    EXPECT_THAT(Tabelle(), ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=25;",
                                       "ID_Art=2;CF=0;IstKA=0;MAalsMI=0;A17=0;"));
}

TEST_F(ArtenlisteOperationen, FollowTheAssessmentFlagAndTheMarks) {
    ps.IstWRRLBerechnung(true);
    ps.USTAuswahl(true);
    ps.Berechnung_WRRLArtenliste();
    EXPECT_THAT(Tabelle(), ElementsAre("ID_Art=1;CF=0;IstKA=0;MAalsMI=0;A17=30;"));  // 15 / 50 * 100
}

TEST_F(ArtenlisteOperationen, ShowTheProgressFormOfTheHostAndTakeItAway) {
    ps.Pbar_SBFormhWnd(9);
    ps.Pbar_SBLeft(1);
    ps.Pbar_SBTop(2.5F);
    ps.Pbar_SBWidth(30);
    ps.Pbar_SBHeight(4);
    ps.Berechnung_WRRLArtenliste();
    EXPECT_THAT(anzeige->Balken, ElementsAre("show 9 1 2.5 30 4", "0", "50", "100", "hide 9"));
    anzeige->Balken.clear();
    ps.Pbar_SBFormhWnd(0);
    ps.Berechnung_WRRLArtenlisteTLR();
    EXPECT_THAT(anzeige->Balken, IsEmpty());
}

TEST_F(ArtenlisteOperationen, ShowDebugBoxesWhateverTheSilentModeSays) {
    ps.SilentModus(true);
    ps.DebugModus(true);
    ps.Berechnung_WRRLArtenlisteTLR();
    const auto boxen = anzeige->TakeShown();
    ASSERT_FALSE(boxen.empty());
    EXPECT_EQ(boxen.front().Title, "FX_Algen");
    EXPECT_EQ(boxen.front().Text, "TLR: 17 DG-Gesamt: 60 DG-MA: 0");
}

TEST_F(ArtenlisteOperationen, DoNotTellAFailure) {
    ps.AktUebersicht("Übersicht");
    EXPECT_NO_THROW(ps.Berechnung_WRRLArtenliste());
    EXPECT_THAT(Tabelle(), IsEmpty());
    AL_PS fresh;
    EXPECT_NO_THROW(fresh.Berechnung_WRRLArtenlisteTLR());
    const auto boxen = anzeige->TakeShown();
    ASSERT_EQ(boxen.size(), 1U);
    EXPECT_EQ(boxen.front().Text, "Fehler beim Tabellenlöschen");
}

}  // namespace
}  // namespace FX_Algen
