#include "FX_Algen/AL_PS.h"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <regex>

#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"

namespace FX_Algen {
namespace {

using store::Value;
using testing::HasSubstr;

std::int32_t NumberOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

class AL_PS_Fixture : public testing::Test {
protected:
    AL_PS_Fixture() { ps.CurrentDB(db.Handle); }

    /// A sub-habitat with one macroalga: cover 40 of 50 percent, layer 2 mm, SI 2, weight 1.
    void AddSubhabitat(std::int32_t ID_TR) {
        const auto id = std::to_string(ID_TR);
        db.Handle->Execute(
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL) VALUES (" + id +
            ", 50, 40, 50, 40);");
        db.Handle->Execute("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (" + id + ", " + id +
                           ", 'Ufer');");
        db.Handle->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, DG_MA, SD_MA) VALUES (" + id +
                           ", 900001, False, 40, 2);");
    }

    void AddTaxon() {
        db.Handle->Execute(
            "INSERT INTO awaArt (ID_ART, Gattung, Art, ID_UFAM) VALUES (900001, 'Ulothrix', 'zonata', 0);");
        db.Handle->Execute(
            "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer, Algenart, Lebensform, Trophiewert, "
            "Trophiegewicht, "
            "Trophiewert_N, Trophiegewicht_N) VALUES (900001, 2, 1, 1, 1, 2, 1, 2, 1);");
    }

    std::int32_t ResultRows() { return db.One("SELECT Count(*) AS N FROM awaErgProjekt;").I4(); }

    test::TestDatabase db;
    AL_PS ps;
};

TEST(AL_PS_Fresh, HoldsEmptyTextsFalseAndNoHandles) {
    const AL_PS ps;
    EXPECT_EQ(ps.Berechnung_Statustext(), "");
    EXPECT_EQ(ps.ReportName(), "");
    EXPECT_EQ(ps.ReportCaption(), "");
    EXPECT_EQ(ps.ReportLblTabelle(), "");
    EXPECT_EQ(ps.ReportResTabelle(), "");
    EXPECT_EQ(ps.ReportDataTabelle(), "");
    EXPECT_FALSE(ps.ExportIsOK());
    EXPECT_EQ(ps.ResString(), "");
    EXPECT_EQ(ps.Version(), "");
    EXPECT_EQ(ps.WRRLErgRecordset(), nullptr);
}

// ---- failures ----------------------------------------------------------------------------------------

TEST(AL_PS_Failures, NameTheOperationThatWasCalled) {
    AL_PS ps;
    const auto described = [](const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            return error.Description();
        }
        return std::string();
    };
    // Without a database, and for texts that do not exist or have no number of 16 bits.
    EXPECT_THAT(described([&] { ps.Berechnung_Init(); }), testing::StartsWith("Berechnung_Init: "));
    EXPECT_THAT(described([&] { ps.Berechnung_Execute(); }), testing::StartsWith("Berechnung_Execute: "));
    EXPECT_THAT(described([&] { ps.GesamttaxazahlTLR("1"); }), testing::StartsWith("GesamttaxazahlTLR: "));
    EXPECT_THAT(described([&] { ps.Gesamttaxazahl(); }), testing::StartsWith("Gesamttaxazahl: "));
    EXPECT_THAT(described([&] { ps.GesamttaxazahlSeston(); }), testing::StartsWith("GesamttaxazahlSeston: "));
    EXPECT_THAT(described([&] { ps.GetBioregion_Kurzzeichen("K"); }),
                testing::StartsWith("GetBioregion_Kurzzeichen: "));
    EXPECT_THAT(described([&] { ps.Get_WRRLErgRecordset(); }), testing::StartsWith("Get_WRRLErgRecordset: "));
    EXPECT_THAT(described([&] { ps.CheckIstKA(1); }), testing::StartsWith("CheckIstKA: "));
    EXPECT_THAT(described([&] { ps.Berechnung_WRRLInit(); }), testing::StartsWith("Berechnung_WRRLInit: "));
    EXPECT_THAT(described([&] { ps.Berechnung_WRRL(); }), testing::StartsWith("Berechnung_WRRL: "));
    ps.ResID(0);
    EXPECT_THAT(described([&] { ps.Get_ResString(); }), testing::StartsWith("Get_ResString: "));
    ps.ResID(32767);
    EXPECT_THAT(described([&] { ps.Get_ResString(); }), testing::StartsWith("Get_ResString: "));
}

TEST_F(AL_PS_Fixture, AFailedOperationKeepsNumberAndStatements) {
    AddSubhabitat(7);
    ps.TeilraumID(7);
    ps.Berechnung_Execute();
    try {
        ps.Berechnung_Execute();
        FAIL() << "the row is there already";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DuplicateKey);
        EXPECT_THAT(error.Description(), testing::StartsWith("Berechnung_Execute: Execute: "));
        EXPECT_THAT(error.Statement(), testing::StartsWith("INSERT INTO awaErgProjekt"));
        EXPECT_THAT(error.Translated(), HasSubstr("INSERT INTO \"awaErgProjekt\""));
    }
}

// ---- texts and version -----------------------------------------------------------------------------

struct TextCase {
    std::int16_t SprachID;
    std::int16_t ResID;
    std::string text;
};

class AL_PS_Texts : public testing::TestWithParam<TextCase> {};

TEST_P(AL_PS_Texts, AreFoundByNumberAndLanguage) {
    AL_PS ps;
    ps.SprachID(GetParam().SprachID);
    ps.ResID(GetParam().ResID);
    ps.Get_ResString();
    EXPECT_EQ(ps.ResString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Worked, AL_PS_Texts,
                         testing::Values(TextCase{10000, 1000, "Algen"}, TextCase{20000, 1000, "Algae"},
                                         TextCase{10000, 2006, "Ändern"}, TextCase{20000, 2006, "Change"},
                                         // Below 10000 is raised to 10000, so that number 11000 is found.
                                         TextCase{0, 1000, "Algen"}, TextCase{9999, 1000, "Algen"},
                                         TextCase{-1, 1000, "Algen"},
                                         // 10001 stays: 10001 + 999 = 11000.
                                         TextCase{10001, 999, "Algen"}));

TEST(AL_PS_Text, IsGermanWhereNoLanguageWasSet) {
    AL_PS ps;
    ps.ResID(2006);
    ps.Get_ResString();
    EXPECT_EQ(ps.ResString(), "Ändern");
}

TEST(AL_PS_Text, NumberIsAddedToTheRaisedBase) {
    AL_PS ps;
    ps.SprachID(500);
    ps.ResID(11000);
    ps.Get_ResString();
    // 11000 + 10000 = 21000; with the base as it was set it would be 11500, a gap.
    EXPECT_EQ(ps.ResString(), "Algae");
}

TEST(AL_PS_Text, NumberZeroLooksUpTheBaseItselfAndFails) {
    AL_PS ps;
    ps.ResID(0);
    try {
        ps.Get_ResString();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::StringNotFound);
        EXPECT_THAT(error.Description(), HasSubstr("10000"));
    }
}

TEST(AL_PS_Text, SumAbove16BitsOverflows) {
    AL_PS ps;
    ps.SprachID(20000);
    ps.ResID(12767);  // 32767 is a gap
    EXPECT_EQ(NumberOf([&] { ps.Get_ResString(); }), ErrorNumber::StringNotFound);
    ps.ResID(12768);
    EXPECT_EQ(NumberOf([&] { ps.Get_ResString(); }), ErrorNumber::Overflow);
}

TEST(AL_PS_Text, FailedLookupLeavesTheFormerText) {
    AL_PS ps;
    ps.ResID(1000);
    ps.Get_ResString();
    ps.SprachID(20000);
    ps.ResID(2013);
    EXPECT_EQ(NumberOf([&] { ps.Get_ResString(); }), ErrorNumber::StringNotFound);
    EXPECT_EQ(ps.ResString(), "Algen");
}

TEST(AL_PS_Version, IsMajorMinorAndALetterForThePatch) {
    std::ifstream file(std::string(FX_SOURCE_DIR) + "/CMakeLists.txt");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::smatch found;
    ASSERT_TRUE(std::regex_search(text, found, std::regex(R"(VERSION (\d+)\.(\d+)\.(\d+) DESCRIPTION)")));
    // Patch 0 is a, patch 2 is c.
    const auto expected =
        found[1].str() + "." + found[2].str() + "-" + static_cast<char>(97 + std::stoi(found[3].str()));
    AL_PS ps;
    ps.Get_Version();
    EXPECT_EQ(ps.Version(), expected);
}

// ---- calculation -------------------------------------------------------------------------------------

TEST_F(AL_PS_Fixture, InitEmptiesTheResultsAndSetsTheHeading) {
    db.Handle->Execute("INSERT INTO awaErgProjekt (ID) VALUES (1);");
    ps.Berechnung_Init();
    EXPECT_EQ(ResultRows(), 0);
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algen-Berechnung der Indizes");
    ps.SprachID(20000);
    ps.Berechnung_Init();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algae - calculation of the indices");
}

TEST_F(AL_PS_Fixture, InitWithLanguageZeroIsGermanFromThenOn) {
    ps.SprachID(0);
    ps.Berechnung_Init();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algen-Berechnung der Indizes");
    ps.ResID(1000);
    ps.Get_ResString();
    EXPECT_EQ(ps.ResString(), "Algen");
}

TEST_F(AL_PS_Fixture, FailedInitLeavesTheHeading) {
    ps.CurrentDB(nullptr);
    EXPECT_EQ(NumberOf([&] { ps.Berechnung_Init(); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(ps.Berechnung_Statustext(), "");
}

TEST_F(AL_PS_Fixture, ExecuteWithoutAlgaeSampleWritesNothing) {
    ps.TeilraumID(17);
    ps.Berechnung_Execute();
    EXPECT_EQ(ResultRows(), 0);
}

TEST_F(AL_PS_Fixture, ExecuteWritesTheRowOfTheSubhabitat) {
    AddTaxon();
    AddSubhabitat(17);
    AddSubhabitat(18);
    ps.Berechnung_Init();
    ps.TeilraumID(18);
    ps.Berechnung_Execute();
    ASSERT_EQ(ResultRows(), 1);
    EXPECT_EQ(db.One("SELECT ID FROM awaErgProjekt;").I4(), 18);
    EXPECT_FALSE(db.One("SELECT IstWRRL FROM awaErgProjekt;").Bool());
    EXPECT_FALSE(db.One("SELECT KAOnly FROM awaErgProjekt;").Bool());
    // One taxon: the index is its own value. Quantity index: 2 mm * 40 % / 100.
    EXPECT_FLOAT_EQ(db.One("SELECT SapIndex FROM awaErgProjekt;").R4(), 2.0F);
    EXPECT_DOUBLE_EQ(db.One("SELECT AMI FROM awaErgProjekt;").R8(), 0.8);
}

TEST_F(AL_PS_Fixture, AssessmentVariantIsMarkedInTheRow) {
    AddTaxon();
    AddSubhabitat(17);
    ps.TeilraumID(17);
    ps.IstWRRLBerechnung(true);
    ps.KAOnly(true);  // not read on this path
    ps.Berechnung_Execute();
    EXPECT_TRUE(db.One("SELECT IstWRRL FROM awaErgProjekt;").Bool());
    EXPECT_FALSE(db.One("SELECT KAOnly FROM awaErgProjekt;").Bool());
}

TEST_F(AL_PS_Fixture, SecondExecuteWithoutInitFailsByTheKey) {
    AddTaxon();
    AddSubhabitat(17);
    ps.TeilraumID(17);
    ps.Berechnung_Execute();
    EXPECT_EQ(NumberOf([&] { ps.Berechnung_Execute(); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(ResultRows(), 1);
    ps.Berechnung_Init();
    ps.Berechnung_Execute();
    EXPECT_EQ(ResultRows(), 1);
}

TEST_F(AL_PS_Fixture, ValenceWeightChangesNoResult) {
    AddTaxon();
    AddSubhabitat(17);
    ps.TeilraumID(17);
    std::vector<std::vector<Value>> rows;
    for (const bool weight : {false, true}) {
        ps.ValenzGewicht(weight);
        ps.Berechnung_Init();
        ps.Berechnung_Execute();
        const auto result = db.Handle->OpenRecordset("SELECT * FROM awaErgProjekt;");
        rows.emplace_back();
        for (std::size_t i = 0; i < result->Fields().size(); ++i) rows.back().push_back((*result)[i]);
    }
    EXPECT_EQ(rows[0], rows[1]);
}

TEST_F(AL_PS_Fixture, InstanceNeverForgets) {
    AddTaxon();
    AddSubhabitat(17);
    ps.TeilraumID(17);
    ps.IstWRRLBerechnung(true);
    for (int run = 0; run < 2; ++run) {
        ps.Berechnung_Init();
        ps.Berechnung_Execute();
        EXPECT_EQ(db.One("SELECT ID FROM awaErgProjekt WHERE IstWRRL = True;").I4(), 17) << run;
    }
}

TEST_F(AL_PS_Fixture, CheckIstKAAnswersForTheCurrentSubhabitat) {
    db.Handle->Execute("INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (17, True, 'KA');");
    db.Handle->Execute("INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (18, False, 'Alle');");
    struct {
        std::int32_t TeilraumID, argument;
        bool expected;
    } const cases[] = {{17, 0, true}, {17, 18, true}, {18, 17, false}, {19, 17, false}};
    for (const auto& c : cases) {
        ps.TeilraumID(c.TeilraumID);
        EXPECT_EQ(ps.CheckIstKA(c.argument), Value(c.expected)) << c.TeilraumID << " " << c.argument;
    }
}

TEST_F(AL_PS_Fixture, TwoInstancesHoldTheirOwnContext) {
    AL_PS other;
    other.CurrentDB(db.Handle);
    other.SprachID(20000);
    ps.SprachID(10000);
    ps.Berechnung_Init();
    other.Berechnung_Init();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algen-Berechnung der Indizes");
    EXPECT_EQ(other.Berechnung_Statustext(), "Algae - calculation of the indices");
}

TEST_F(AL_PS_Fixture, KeepsTheDatabaseWhileItLives) {
    db.Handle.reset();
    ps.Berechnung_Init();
    EXPECT_EQ(ps.Berechnung_Statustext(), "Algen-Berechnung der Indizes");
}

TEST_F(AL_PS_Fixture, DoesNotCloseTheDatabaseOfTheHost) {
    { const AL_PS gone = ps; }
    ps = AL_PS();
    EXPECT_EQ(ResultRows(), 0);
}

TEST_F(AL_PS_Fixture, ClosedDatabaseIsAFailedCall) {
    db.Handle->Close();
    EXPECT_EQ(NumberOf([&] { ps.Berechnung_Init(); }), ErrorNumber::NotADatabase);
}

TEST_F(AL_PS_Fixture, DebugBoxesGoToTheInstalledDisplayWhateverSilentModusSays) {
    AddTaxon();
    AddSubhabitat(17);
    const auto recorder = std::make_shared<store::RecordingMessages>();
    const auto former = SetDisplay(recorder);
    ps.TeilraumID(17);
    ps.SilentModus(true);
    ps.Berechnung_Execute();
    EXPECT_TRUE(recorder->TakeShown().empty());
    ps.DebugModus(true);
    ps.Berechnung_Init();
    ps.Berechnung_Execute();
    EXPECT_FALSE(recorder->TakeShown().empty());
    EXPECT_EQ(SetDisplay(former), recorder);
}

// ---- operations to come ------------------------------------------------------------------------------

struct Operation {
    std::string name;
    std::function<void(AL_PS&)> call;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

class AL_PS_NotBuilt : public testing::TestWithParam<Operation> {};

TEST_P(AL_PS_NotBuilt, FailWith445AndTheirName) {
    AL_PS ps;
    try {
        GetParam().call(ps);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::NotBuilt);
        EXPECT_THAT(error.Description(), HasSubstr("AL_PS." + GetParam().name + ":"));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, AL_PS_NotBuilt,
    testing::Values(
        Operation{"SetReportData_Auswertung", [](AL_PS& ps) { ps.SetReportData_Auswertung(); }},
        Operation{"Export_Taxaliste_GesamtHaeuf", [](AL_PS& ps) { ps.Export_Taxaliste_GesamtHaeuf(); }},
        Operation{"Export_Taxaliste_Gesamt", [](AL_PS& ps) { ps.Export_Taxaliste_Gesamt(); }},
        Operation{"Export_Taxaliste_TLR", [](AL_PS& ps) { ps.Export_Taxaliste_TLR(); }},
        Operation{"Export_TLG_Taxadaten",
                  [](AL_PS& ps) {
                      double abundanz = 0, dominanz = 0, mp = 0;
                      ps.Export_TLG_Taxadaten(1, 2, 3, false, 1, 50.0F, 400, abundanz, dominanz, mp);
                  }},
        Operation{"Export_ArtDom", [](AL_PS& ps) { ps.Export_ArtDom(); }},
        Operation{"Export_Auswertung", [](AL_PS& ps) { ps.Export_Auswertung(); }},
        Operation{"Export_Auswertung_Sap", [](AL_PS& ps) { ps.Export_Auswertung_Sap(); }},
        Operation{"Export_Auswertung_SapAnzahl", [](AL_PS& ps) { ps.Export_Auswertung_SapAnzahl(); }},
        Operation{"Export_Auswertung_WRRL", [](AL_PS& ps) { ps.Export_Auswertung_WRRL(); }},
        Operation{"Export_Auswertung_Wegl", [](AL_PS& ps) { ps.Export_Auswertung_Wegl(); }},
        Operation{"Export_Auswertung_Seston", [](AL_PS& ps) { ps.Export_Auswertung_Seston(); }},
        Operation{"SetReport_Label", [](AL_PS& ps) { ps.SetReport_Label(); }},
        Operation{"SetReport_TaxalisteGesamt", [](AL_PS& ps) { ps.SetReport_TaxalisteGesamt(); }},
        Operation{"SetReport_TaxalisteGesamtHaeuf", [](AL_PS& ps) { ps.SetReport_TaxalisteGesamtHaeuf(); }},
        Operation{"SetReport_TaxalisteGesamtSeston", [](AL_PS& ps) { ps.SetReport_TaxalisteGesamtSeston(); }},
        Operation{"SetReport_TaxalisteEinstufungSeston",
                  [](AL_PS& ps) { ps.SetReport_TaxalisteEinstufungSeston(); }},
        Operation{"SetReport_TaxalisteTLR", [](AL_PS& ps) { ps.SetReport_TaxalisteTLR(); }},
        Operation{"SetReport_TaxalisteMakroalgen", [](AL_PS& ps) { ps.SetReport_TaxalisteMakroalgen(); }},
        Operation{"SetReport_TaxalisteWRRL", [](AL_PS& ps) { ps.SetReport_TaxalisteWRRL(); }},
        Operation{"SetReportTLRTaxazahl", [](AL_PS& ps) { ps.SetReportTLRTaxazahl(); }},
        Operation{"SetReportGesamtTaxazahl", [](AL_PS& ps) { ps.SetReportGesamtTaxazahl(); }},
        Operation{"SetReportGesamtTaxazahlSeston", [](AL_PS& ps) { ps.SetReportGesamtTaxazahlSeston(); }},
        Operation{"Export_Taxaliste_TLRMakroalge", [](AL_PS& ps) { ps.Export_Taxaliste_TLRMakroalge(); }},
        Operation{"SetReportData_AuswertungSeston", [](AL_PS& ps) { ps.SetReportData_AuswertungSeston(); }}));

}  // namespace
}  // namespace FX_Algen
