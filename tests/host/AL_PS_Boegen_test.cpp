// What a host does with the sheets of the sampling sites.
#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/AL_PS_Grafik.h"
#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"
#include "controls/Input.h"
#include "controls/OpenForms.h"
#include "entry/frmArtAuswahl.h"
#include "entry/frmProbenstelle.h"
#include "entry/frmProbenstelleSeston.h"

namespace FX_Algen {
namespace {

using controls::Input;
using entry::frmProbenstelle;
using entry::frmProbenstelleSeston;
using testing::ElementsAre;
using testing::IsEmpty;

/// Remembers where forms are shown.
class Fenster : public controls::RecordingDisplay {
public:
    std::int32_t ShowForm(controls::Form& form, std::int32_t parent) override {
        Gezeigt.push_back(form.Name() + " in " + std::to_string(parent));
        return RecordingDisplay::ShowForm(form, parent);
    }
    std::vector<std::string> Gezeigt;
};

/// Sub-habitats 9 and 10, with sites of algae and of seston and a taxon each.
class Boegen : public testing::Test {
protected:
    Boegen() {
        ps.CurrentDB(db.Handle);
        ps.FX_MainWnd(4711);
        for (const auto* statement :
             {"INSERT INTO Teilraum (ID_TR, TRBez) VALUES (9, 'Gießbach');",
              "INSERT INTO Teilraum (ID_TR, TRBez) VALUES (10, 'Kolk');",
              "INSERT INTO Teilraum (ID_TR, TRBez) VALUES (11, 'leer');",
              "INSERT INTO awaTeilraum (ID_TR) VALUES (9);", "INSERT INTO awaTeilraum (ID_TR) VALUES (10);",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 9, 'Überlauf');",
              "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (6, 10, 'Kehrwasser');",
              "INSERT INTO sesArt (ID_ART, Gattung, Art) VALUES (12, 'Keratella', 'cochlearis');",
              "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 9, 'Überlauf');",
              "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (6, 10, 'Kehrwasser');",
              "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (5, 12, 0, 5);"})
            db.Handle->Execute(statement);
    }
    ~Boegen() override {
        while (!controls::OpenForms().All().empty())
            controls::OpenForms().All().back()->Close(controls::Ending::Discard);
        SetDisplay(vorher);
    }
    template <class Bogen>
    static std::shared_ptr<Bogen> Offen() {
        return controls::OpenForms().Find<Bogen>();
    }
    std::vector<std::string> Boxen() {
        std::vector<std::string> boxen;
        for (const auto& box : display->Messages().TakeShown()) boxen.push_back(box.Text);
        return boxen;
    }
    std::int32_t Abundanz() {
        return db.One("SELECT Abundanz FROM sesArtPrStelle WHERE ID_PS=5 AND ID_ART=12;").I4();
    }
    /// Types an abundance into the seston sheet of sub-habitat 9 and stays in the row.
    void Tippen(const std::string& text) {
        const auto bogen = Offen<frmProbenstelleSeston>();
        ASSERT_NE(bogen, nullptr);
        Input person(*bogen);
        ASSERT_TRUE(person.SelectCell(bogen->vsfgAlgenArt, 1, 5));
        ASSERT_TRUE(person.Type(bogen->vsfgAlgenArt, text));
    }

    test::TestDatabase db;
    AL_PS ps;
    std::shared_ptr<Fenster> display = std::make_shared<Fenster>();
    std::shared_ptr<store::Messages> vorher = SetDisplay(display);
};

TEST_F(Boegen, TheAlgaeSheetStandsInTheHostsWindowInTheLanguageThatWasNeverSet) {
    ps.TeilraumID(9);
    ps.CanEdit(true);
    ps.Probenstelle_Show();
    const auto bogen = Offen<frmProbenstelle>();
    ASSERT_NE(bogen, nullptr);
    EXPECT_THAT(display->Gezeigt, ElementsAre("frmProbenstelle in 4711"));
    EXPECT_EQ(bogen->Caption(), "Algen - Probenstelle");
    EXPECT_EQ(bogen->txtPSBez.Text(), "Überlauf");
    EXPECT_FALSE(bogen->txtPSBez.Locked());
    EXPECT_TRUE(bogen->cmdArtNeu.IsEnabled());
    // The base that was raised stays: 10000 + 2005.
    ps.ResID(2005);
    ps.Get_ResString();
    EXPECT_EQ(ps.ResString(), "Neu");
}

TEST_F(Boegen, TheAlgaeSheetIsReadOnlyWhereTheHostSaysSo) {
    ps.TeilraumID(9);
    ps.SprachID(20000);
    ps.CanEdit(false);
    ps.Probenstelle_Show();
    const auto bogen = Offen<frmProbenstelle>();
    ASSERT_NE(bogen, nullptr);
    EXPECT_TRUE(bogen->txtPSBez.Locked());
    EXPECT_FALSE(bogen->cmdArtNeu.IsEnabled());
    EXPECT_TRUE(bogen->cmdPrStelle4.IsEnabled());
}

TEST_F(Boegen, TheDisplayModeReachesTheAlgaeSheet) {
    ps.TeilraumID(9);
    ps.AnzeigeVersion40(false);
    ps.Probenstelle_Show();
    EXPECT_FALSE(Offen<frmProbenstelle>()->txtAlgenGesamt.IsShown());
    ps.AnzeigeVersion40(true);
    ps.Probenstelle_Show();
    EXPECT_TRUE(Offen<frmProbenstelle>()->txtAlgenGesamt.IsShown());
}

TEST_F(Boegen, ANewSiteOfAlgaeTakesTheHostsName) {
    ps.TeilraumID(11);
    ps.PSBez("Prüfstelle");
    display->Messages().SetAnswers({store::Answer::Yes});
    ps.Probenstelle_Show();
    EXPECT_EQ(db.One("SELECT PSBez FROM awaPrStelle WHERE ID_TR=11;").Text(), "Prüfstelle");
    ASSERT_NE(Offen<frmProbenstelle>(), nullptr);
    EXPECT_TRUE(Offen<frmProbenstelle>()->Visible());
}

TEST_F(Boegen, WithoutASiteThatIsWantedNoSheetStaysOpenAndNothingFails) {
    ps.TeilraumID(11);
    display->Messages().SetAnswers({store::Answer::No, store::Answer::No});
    ps.Probenstelle_Show();
    ps.ProbenstelleSeston_Show();
    EXPECT_EQ(Boxen().size(), 2U);
    EXPECT_THAT(controls::OpenForms().All(), IsEmpty());
    EXPECT_THAT(display->Gezeigt, IsEmpty());
    EXPECT_EQ(db.One("SELECT Count(*) AS N FROM awaPrStelle WHERE ID_TR=11;").I4(), 0);
    EXPECT_EQ(db.One("SELECT Count(*) AS N FROM sesPrStelle WHERE ID_TR=11;").I4(), 0);
}

TEST_F(Boegen, WithoutADatabaseTheCallFailsAndLeavesNoSheet) {
    AL_PS ohne;
    for (const auto call : {&AL_PS::Probenstelle_Show, &AL_PS::ProbenstelleSeston_Show}) {
        try {
            (ohne.*call)();
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
            EXPECT_THAT(error.Description(), testing::StartsWith("Probenstelle"));
        }
        EXPECT_THAT(controls::OpenForms().All(), IsEmpty());
    }
}

TEST_F(Boegen, BothSheetsMayBeOpenEachOnce) {
    ps.TeilraumID(9);
    ps.Probenstelle_Show();
    ps.ProbenstelleSeston_Show();
    const auto algen = Offen<frmProbenstelle>();
    const auto seston = Offen<frmProbenstelleSeston>();
    ps.TeilraumID(10);
    AL_PS andere;
    andere.CurrentDB(db.Handle);
    andere.TeilraumID(10);
    andere.Probenstelle_Show();
    andere.ProbenstelleSeston_Show();
    EXPECT_EQ(controls::OpenForms().All().size(), 2U);
    EXPECT_EQ(Offen<frmProbenstelle>(), algen);
    EXPECT_EQ(Offen<frmProbenstelleSeston>(), seston);
    EXPECT_EQ(algen->txtPSBez.Text(), "Kehrwasser");
    EXPECT_EQ(seston->txtPSBez.Text(), "Kehrwasser");
}

TEST_F(Boegen, ASecondShowSavesTheRowAndClosesThePickerFirst) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    entry::ArtAuswahl_Show(*Offen<frmProbenstelleSeston>(), entry::Auswahlmodus::Neu);
    Tippen("8");
    ps.TeilraumID(10);
    ps.ProbenstelleSeston_Show();
    EXPECT_EQ(Abundanz(), 8);
    EXPECT_EQ(Offen<entry::frmArtAuswahl>(), nullptr);
    EXPECT_EQ(Offen<frmProbenstelleSeston>()->txtPSBez.Text(), "Kehrwasser");
    EXPECT_EQ(Offen<frmProbenstelleSeston>()->vsfgAlgenArt.Rows(), 1);
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Boegen, ASecondShowWithAnotherDatabaseReadsAndWritesThere) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("8");
    const auto pfad = (db.Folder() / "zweite.db").string();
    store::CreateDatabase(pfad, store::DatabaseKind::Project);
    const auto zweite = store::Workspace().OpenDatabase(pfad);
    for (const auto* statement :
         {"INSERT INTO Teilraum (ID_TR, TRBez) VALUES (9, 'Altarm');",
          "INSERT INTO sesArt (ID_ART, Gattung, Art) VALUES (12, 'Keratella', 'cochlearis');",
          "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 9, 'Röhricht');",
          "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (5, 12, 0, 1);"})
        zweite->Execute(statement);
    ps.CurrentDB(zweite);
    ps.DBName(pfad);
    ps.ProbenstelleSeston_Show();
    const auto bogen = Offen<frmProbenstelleSeston>();
    EXPECT_EQ(bogen->txtPSBez.Text(), "Röhricht");
    EXPECT_EQ(bogen->vsfgAlgenArt.Text(1, 5), "1");
    Tippen("3");
    ps.Get_Version();
    EXPECT_EQ(Abundanz(), 8);
    EXPECT_EQ((*zweite->OpenRecordset("SELECT Abundanz FROM sesArtPrStelle;"))["Abundanz"].I4(), 3);
    bogen->Close();
}

TEST_F(Boegen, ASecondShowLeavesASheetAloneThatCannotBeSaved) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("99999999999");
    ps.TeilraumID(10);
    ps.ProbenstelleSeston_Show();
    const auto bogen = Offen<frmProbenstelleSeston>();
    EXPECT_EQ(bogen->txtPSBez.Text(), "Überlauf");
    EXPECT_EQ(bogen->vsfgAlgenArt.Text(1, 5), "99999999999");
    EXPECT_EQ(Boxen().size(), 1U);  // told once
    EXPECT_EQ(Abundanz(), 5);
    EXPECT_EQ(display->Gezeigt.size(), 2U);  // brought to the front
}

/// What can be read on a form: captions, tool tips, texts and cells.
std::vector<std::string> Anblick(const controls::Form& form) {
    std::vector<std::string> anblick{form.Caption()};
    for (const auto& control : form.Controls()) {
        const auto zeile = [&](const std::string& text) { anblick.push_back(control->Name() + ": " + text); };
        zeile(control->Caption() + "|" + control->ToolTipText());
        if (const auto* feld = dynamic_cast<const controls::TextBox*>(control.get())) zeile(feld->Text());
        if (const auto* liste = dynamic_cast<const controls::Grid*>(control.get()))
            for (int row = 0; row < liste->Rows(); ++row)
                for (int col = 0; col < liste->Cols(); ++col) zeile(liste->Text(row, col));
    }
    return anblick;
}

TEST_F(Boegen, ASecondShowInAnotherLanguageLeavesNothingInTheFormerOne) {
    for (const auto* statement :
         {"UPDATE awaTeilraum SET DG_MA=12.5, MitBewuchsdichte_WRRL=0.25 WHERE ID_TR=9;",
          "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI) VALUES (91, 9, 'Überzug', 7.5);",
          "INSERT INTO awaArt (ID_ART, Gattung, Art) VALUES (2, 'Navicula', 'gregaria');",
          "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA) VALUES (5, 2, 0, 3.5);"})
        db.Handle->Execute(statement);
    ps.TeilraumID(9);
    ps.CanEdit(true);
    ps.AnzeigeVersion40(true);
    const auto zeigen = [&](std::int16_t sprache) {
        ps.SprachID(sprache);
        ps.Probenstelle_Show();
        ps.ProbenstelleSeston_Show();
    };
    const auto anblicke = [&] {
        return std::pair(Anblick(*Offen<frmProbenstelle>()), Anblick(*Offen<frmProbenstelleSeston>()));
    };
    zeigen(20000);
    const auto englisch = anblicke();
    ASSERT_THAT(englisch.first, testing::Contains("txtDG_Makro: 12.5"));
    ASSERT_THAT(englisch.first, testing::Contains("vsfgAlgenArt: 3.5"));
    ASSERT_THAT(englisch.second, testing::Contains("vsfgAlgenArt: Abundance"));
    zeigen(10000);
    const auto deutsch = anblicke();
    EXPECT_THAT(deutsch.first, testing::Contains("txtDG_Makro: 12,5"));
    EXPECT_THAT(deutsch.first, testing::Contains("vsfgAlgenArt: 3,5"));
    EXPECT_THAT(deutsch.first, testing::Contains("vsfgAlgenTL_MI: 7,5"));
    EXPECT_THAT(deutsch.second, testing::Contains("vsfgAlgenArt: Abundanz"));
    EXPECT_THAT(deutsch.second, testing::Contains("lblTaxazahl: 1 Taxon (Zeile)|"));
    zeigen(20000);
    EXPECT_EQ(anblicke(), englisch);
    while (!controls::OpenForms().All().empty()) controls::OpenForms().All().back()->Close();
    zeigen(10000);
    EXPECT_EQ(anblicke(), deutsch);
}

TEST_F(Boegen, UnloadSavesAndClosesTheAlgaeSheetAlone) {
    ps.Probenstelle_Unload();  // none is open: nothing
    ps.TeilraumID(9);
    ps.CanEdit(true);
    ps.Probenstelle_Show();
    ps.ProbenstelleSeston_Show();
    const auto bogen = Offen<frmProbenstelle>();
    ASSERT_TRUE(Input(*bogen).SetText(bogen->txtPSBez, "Straße"));
    ps.Probenstelle_Unload();
    EXPECT_EQ(db.One("SELECT PSBez FROM awaPrStelle WHERE ID_PS=5;").Text(), "Straße");
    EXPECT_EQ(Offen<frmProbenstelle>(), nullptr);
    EXPECT_NE(Offen<frmProbenstelleSeston>(), nullptr);
}

TEST_F(Boegen, AFailedSecondShowLeavesTheAlgaeSheetOnItsOwnDatabase) {
    ps.TeilraumID(9);
    ps.Probenstelle_Show();
    const auto zweite = store::Workspace().OpenDatabase(db.Path());
    ps.CurrentDB(zweite);
    ps.DBName("gibt es nicht.db");
    EXPECT_THROW(ps.Probenstelle_Show(), Error);
    EXPECT_EQ(Offen<frmProbenstelle>()->WorksOn(), db.Handle);
}

TEST_F(Boegen, AFailedSecondShowLeavesSettingsAndTextsAsTheyWere) {
    ps.TeilraumID(9);
    ps.CanEdit(false);
    ps.Probenstelle_Show();
    ps.ProbenstelleSeston_Show();
    const auto algen = Offen<frmProbenstelle>();
    const auto seston = Offen<frmProbenstelleSeston>();
    const auto davor = std::pair(Anblick(*algen), Anblick(*seston));
    ps.TeilraumID(10);
    ps.SprachID(20000);
    ps.CanEdit(true);
    ps.AnzeigeVersion40(true);
    ps.DebugModus(true);
    ps.DBName("gibt es nicht.db");
    EXPECT_THROW(ps.Probenstelle_Show(), Error);
    EXPECT_THROW(ps.ProbenstelleSeston_Show(), Error);
    EXPECT_EQ(std::pair(Anblick(*algen), Anblick(*seston)), davor);
    EXPECT_TRUE(algen->txtPSBez.Locked());
    EXPECT_FALSE(algen->cmdArtNeu.IsEnabled());
    EXPECT_FALSE(algen->txtAlgenGesamt.IsShown());
    EXPECT_FALSE(algen->txtID_PS.IsShown());
    EXPECT_FALSE(seston->txtID_PS.IsShown());
    // The data read anew are those of the former sub-habitat.
    algen->txtReturn.Text("1");
    seston->txtReturn.Text("1");
    EXPECT_EQ(algen->txtPSBez.Text(), "Überlauf");
    EXPECT_EQ(seston->txtPSBez.Text(), "Überlauf");
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(Boegen, UnloadAsksWhereTheSheetCannotBeSavedAndSavesTheOthers) {
    ps.TeilraumID(9);
    ps.CanEdit(true);
    ps.Probenstelle_Show();
    ps.ProbenstelleSeston_Show();
    Tippen("8");
    const auto bogen = Offen<frmProbenstelle>();
    ASSERT_TRUE(Input(*bogen).SetText(bogen->txtPSBez, "Straße"));
    db.Handle->Execute("DELETE * FROM awaPrStelle WHERE ID_PS=5;");
    display->Messages().SetAnswers({store::Answer::No});
    ps.Probenstelle_Unload();
    EXPECT_EQ(Boxen().size(), 2U);  // why, and whether to close all the same
    EXPECT_TRUE(bogen->IsOpen());
    EXPECT_EQ(bogen->txtPSBez.Text(), "Straße");
    EXPECT_EQ(Abundanz(), 8);
}

TEST_F(Boegen, AFailedSecondShowLeavesTheSheetOnItsOwnDatabase) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    ps.DBName("gibt es nicht.db");
    try {
        ps.ProbenstelleSeston_Show();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    }
    AL_PS ohne;
    EXPECT_THROW(ohne.ProbenstelleSeston_Show(), Error);
    ASSERT_NE(Offen<frmProbenstelleSeston>(), nullptr);
    Tippen("3");
    ps.Get_Version();
    EXPECT_EQ(Abundanz(), 3);
}

TEST_F(Boegen, OperationsWorkOnWhatWasEnteredLast) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("8");
    ps.Berechnung_InitSeston();
    EXPECT_EQ(Abundanz(), 8);
    Tippen("6");
    ps.Berechnung_ExecuteSeston();
    EXPECT_EQ(db.One("SELECT Abundanzsumme FROM sesErgProjekt WHERE ID=9;").I4(), 6);
}

TEST_F(Boegen, OperationsOfTheOtherClassesSaveFirstToo) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("7");
    AL_PS_Grafik grafik;
    grafik.CurrentDB(db.Handle);
    grafik.Grafik_Verteilung_Init();
    EXPECT_EQ(Abundanz(), 7);
    Tippen("4");
    ps.Get_Version();
    EXPECT_EQ(Abundanz(), 4);
}

TEST_F(Boegen, SettingAndReadingMembersLeavesTheRowAlone) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("7");
    ps.TeilraumID(10);
    EXPECT_EQ(ps.Version(), "");
    EXPECT_EQ(Abundanz(), 5);
}

TEST_F(Boegen, ARowThatCannotBeSavedIsToldAndTheOperationWorksOnWhatIsStored) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("99999999999");
    ps.Berechnung_InitSeston();
    EXPECT_EQ(Boxen().size(), 1U);
    ps.Berechnung_ExecuteSeston();
    EXPECT_EQ(db.One("SELECT Abundanzsumme FROM sesErgProjekt WHERE ID=9;").I4(), 5);
    EXPECT_EQ(Offen<frmProbenstelleSeston>()->vsfgAlgenArt.Text(1, 5), "99999999999");
}

/// Calls the host's operations while a box is open, as a timer of the host would.
class Dazwischen : public controls::RecordingDisplay {
public:
    explicit Dazwischen(std::function<void()> rufen) : rufen_(std::move(rufen)) {}
    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol) override {
        if (const auto rufen = std::exchange(rufen_, nullptr)) rufen();
        return RecordingDisplay::Box(title, text, buttons, symbol);
    }

private:
    std::function<void()> rufen_;
};

TEST_F(Boegen, ACallFromWithinABoxLeavesTheFormAloneThatShowsIt) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    const auto dazwischen = std::make_shared<Dazwischen>([&] { ps.Get_Version(); });
    SetDisplay(dazwischen);
    Tippen("99999999999");
    EXPECT_FALSE(Offen<frmProbenstelleSeston>()->SaveRows());
    // One box of the row that could not be saved, not one within the other.
    EXPECT_EQ(dazwischen->Messages().TakeShown().size(), 1U);
    SetDisplay(display);
}

TEST_F(Boegen, ACallFromWithinABoxLeavesRowsOfOtherFormsAlone) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    Tippen("8");
    std::int32_t waehrenddessen = 0;
    const auto dazwischen = std::make_shared<Dazwischen>([&] {
        ps.Berechnung_InitSeston();
        waehrenddessen = Abundanz();
    });
    SetDisplay(dazwischen);
    Offen<frmProbenstelleSeston>()->Box("Hinweis");
    EXPECT_EQ(waehrenddessen, 5);
    SetDisplay(display);
}

TEST_F(Boegen, AShowFromWithinABoxOfTheSheetLeavesItAsItIs) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    const auto dazwischen = std::make_shared<Dazwischen>([&] {
        ps.TeilraumID(10);
        ps.SprachID(20000);
        ps.ProbenstelleSeston_Show();
    });
    SetDisplay(dazwischen);
    Tippen("99999999999");
    const auto bogen = Offen<frmProbenstelleSeston>();
    EXPECT_FALSE(bogen->SaveRows());
    EXPECT_EQ(dazwischen->Messages().TakeShown().size(), 1U);
    EXPECT_EQ(bogen->txtPSBez.Text(), "Überlauf");
    EXPECT_EQ(bogen->Caption(), "Seston - Probenstelle");
    EXPECT_EQ(bogen->vsfgAlgenArt.Text(1, 5), "99999999999");
    SetDisplay(display);
}

/// Has a person reach for the sheet behind each box and each progress form, as a toolkit would let them.
class Dahinter : public controls::RecordingDisplay {
public:
    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol) override {
        Greifen();
        return RecordingDisplay::Box(title, text, buttons, symbol);
    }
    void ProgressDraw(std::int16_t percent, std::string_view text) override {
        Greifen();
        RecordingDisplay::ProgressDraw(percent, text);
    }
    int Versuche = 0, Genommen = 0;

private:
    void Greifen() {
        const auto bogen = controls::OpenForms().Find<frmProbenstelleSeston>();
        ++Versuche;
        if (Input(*bogen).EditCell(bogen->vsfgAlgenArt, 1, 5, "7")) ++Genommen;
    }
};

TEST_F(Boegen, NoFormTakesInputBehindABoxOfAnOperation) {
    ps.TeilraumID(9);
    ps.ProbenstelleSeston_Show();
    const auto dahinter = std::make_shared<Dahinter>();
    SetDisplay(dahinter);
    ps.DebugModus(true);
    ps.Berechnung_InitSeston();
    ps.Berechnung_ExecuteSeston();
    EXPECT_GT(dahinter->Versuche, 0);
    EXPECT_EQ(dahinter->Genommen, 0);
    EXPECT_EQ(Abundanz(), 5);
    // After them it does.
    SetDisplay(display);
    Tippen("7");
}

}  // namespace
}  // namespace FX_Algen
