#include <gmock/gmock.h>

#include <algorithm>

#include "FX_Algen/Assessment.h"
#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Gueteklasse.h"
#include "store/OpenConnection.h"
#include "store/ThreadValues.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Projektdatenbank.h"

// The road from findings to class, told by a rerun of the routines that leaves nothing behind.

using namespace FX_Algen;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr std::int32_t TR = 17;

/// Total cover 50 percent, 40 valves, every indicator weight 1:
///
///   taxon  group  found        share  SI  TW  reference species
///   1      128    30 valves    75     2   3   A
///   2      128    10 valves    25     1   2
///   3      130    cover 20     40     2   3   A
///   4      130    cover 10     20     1   2   B of bioregion 3
///   5      130    cover 10     20     1   2   B of bioregion 9
///   6      130    stand of 20, half of it: 20 percent
///                              20     1   2
///   7      132    cover 5      a moss: left out
class Bewertungserklaerung : public testing::Test {
protected:
    void SetUp() override {
        db.Bioregion(3, "KÖ");
        db.Hoehenstufe(2, 2);
        db.Zweig(1, {3, 2, "KÖ"});
        db.Teilraum(TR, 1, {60, 45, 50, 45});
        db.Stelle(5, TR);
        FuelleTaxa();
        db.Fund(5, 1, {.Schalen_KA = 30});
        db.Fund(5, 2, {.Schalen_KA = 10});
        db.Fund(5, 3, {.DG_MA = 20});
        for (const std::int32_t art : {4, 5}) db.Fund(5, art, {.DG_MA = 10});
        db.Fund(5, 6, {});
        db.Bestand(9, TR, 20, 20);
        db.Bestandsart(9, 6, 50);
        db.Fund(5, 7, {.DG_MA = 5});
        for (const char* gruppe : {"Alle", "KA"}) FuelleGrenzen(gruppe);
        db.TGZK(3, 2, "mäßig");
        db.SGZK(3, 2, 2);
        db.Bioregionstyp(3, 2, "Kalk");
        for (std::int16_t zahl = 1; zahl <= 5; ++zahl) db.Klasse(zahl, "Stufe " + std::to_string(zahl));
        db.RefArtTypA(1);
        db.RefArtTypA(3);
        db.RefArtTypB(4, 3, std::nullopt);
        db.RefArtTypB(5, 9, std::nullopt);
    }

    AssessmentSite Ort() { return ReadAssessmentSite(db.Datenbank(), TR); }

    void Lauf(bool KAOnly, bool IstWRRL = true) {
        const auto ort = Ort();
        Bewertungsauftrag auftrag;
        auftrag.Liste.Datenbank = db.Datenbank();
        auftrag.Liste.Workspace = std::make_shared<store::Workspace>();
        auftrag.Liste.AktUebersicht = "Projekt";
        auftrag.Liste.ProjektID = ort.ID_PRJ;
        auftrag.Liste.TeilraumID = TR;
        auftrag.Liste.IstWRRLBerechnung = IstWRRL;
        auftrag.KAOnly = KAOnly;
        auftrag.BioregionID = ort.BioregionID;
        auftrag.Hoehenstufe = ort.Hoehenstufe;
        auftrag.RefBioregion = ort.RefBioregion;
        std::string gruppe;
        Berechnung_WRRL(auftrag, gruppe);
    }

    /// Both runs, as a host makes them.
    void Bewerte() {
        Berechnung_WRRLInit(db.Datenbank());
        Lauf(false);
        Lauf(true);
    }

    std::vector<ExplainedAssessment> Erklaere() { return ExplainAssessments(db.Datenbank(), Ort()); }
    ExplainedAssessment Erste() {
        const auto bewertungen = Erklaere();
        if (bewertungen.empty()) throw std::runtime_error("no assessment is explained");
        return bewertungen.front();
    }

    store::Value Spalte(const std::string& name, bool KAOnly = false) {
        return db.Eins("SELECT " + name +
                       " FROM awaErgWRRL WHERE ID=17 AND KAOnly=" + (KAOnly ? "-1;" : "0;"));
    }

    /// Every table that an assessment writes, or that a host keeps beside it.
    std::vector<std::string> AllesGeschriebene() {
        std::vector<std::string> abzug;
        for (const char* tabelle : {"awaErgProjekt", "awaErgWRRL", "awaArtenlisteHaeufigkeit", "fx_Lauf",
                                    "awaTeilraum", "awaArtPrStelle", "awaTeilraum_MI"}) {
            for (auto& zeile : db.Abzug(tabelle)) abzug.push_back(tabelle + (": " + zeile));
        }
        return abzug;
    }

    Projektdatenbank db;

private:
    void FuelleTaxa() {
        struct Art {
            std::int32_t ID, Gruppe;
            double SI, Trophiewert;
        };
        for (const auto& art : {Art{1, 128, 2, 3}, Art{2, 128, 1, 2}, Art{3, 130, 2, 3}, Art{4, 130, 1, 2},
                                Art{5, 130, 1, 2}, Art{6, 130, 1, 2}, Art{7, 132, 1, 2}}) {
            Taxon taxon;
            taxon.ID_GRGR = art.Gruppe;
            taxon.SI = art.SI;
            taxon.Trophiewert = art.Trophiewert;
            taxon.Sap_GBer = taxon.Trophiegewicht = 1;
            db.Art(art.ID, taxon);
        }
    }
    /// Five classes of 0.2 each, which share their bounds.
    void FuelleGrenzen(const std::string& gruppe) {
        db.ETI(gruppe, "mäßig", 1.3);
        db.ESI(gruppe, 2, 1.5);
        db.ERI(gruppe, "Kalk", 0.8);
        const double grenzen[] = {1, 0.8, 0.6, 0.4, 0.2, 0};
        for (std::int16_t klasse = 1; klasse <= 5; ++klasse) {
            const double von = grenzen[klasse];
            const double bis = grenzen[klasse - 1];
            db.TIOEZK(gruppe, "mäßig", von, bis, klasse);
            db.SIOEZK(gruppe, 2, von, bis, klasse);
            db.RIOEZK(gruppe, "Kalk", von, bis, klasse);
        }
    }
};

const ExplainedIndex& Index(const ExplainedAssessment& bewertung, const std::string& spalte) {
    const auto fund = std::find_if(bewertung.Indices.begin(), bewertung.Indices.end(),
                                   [&](const auto& index) { return index.Column == spalte; });
    if (fund == bewertung.Indices.end()) throw std::runtime_error("no index " + spalte);
    return *fund;
}

double Zahl(const ReferenceSpeciesTrace& arten, const std::string& spalte) {
    for (const auto& zahl : arten.Counts) {
        if (zahl.Column == spalte) return zahl.Result;
    }
    throw std::runtime_error("no count " + spalte);
}

std::vector<std::string> Abweichungen(const ExplainedAssessment& bewertung) {
    std::vector<std::string> spalten;
    for (const auto& spalte : bewertung.Columns) {
        if (spalte.Differs) spalten.push_back(spalte.Column);
    }
    return spalten;
}

TEST_F(Bewertungserklaerung, TellsTheRoadOfAWholeSample) {
    Bewerte();
    const auto bewertung = Erste();
    EXPECT_FALSE(bewertung.KAOnly);
    EXPECT_FALSE(bewertung.Failed.has_value());
    EXPECT_EQ(bewertung.State, StoredResult::Current);
    const auto& spur = bewertung.Trace;
    EXPECT_TRUE(spur.ListBuilt);

    // frequency list: six findings in, the moss out
    ASSERT_TRUE(spur.Column.has_value());
    EXPECT_EQ(spur.Column->ValveSum, 40);
    EXPECT_EQ(spur.Column->DG_Gesamt, 50.0F);
    ASSERT_THAT(spur.Column->Findings, SizeIs(7));
    std::vector<double> zellen;
    for (const auto& fund : spur.Column->Findings) zellen.push_back(fund.Cell);
    EXPECT_THAT(zellen, ElementsAre(75, 25, 40, 20, 20, 20, 0));
    EXPECT_EQ(spur.Column->Findings[6].LeftOut, NotListed::OtherMajorGroup);
    // the stand covers 20 of 50 percent, half of which is taxon 6
    ASSERT_THAT(spur.Column->Findings[5].FromStands, SizeIs(1));
    EXPECT_EQ(spur.Column->Findings[5].FromStands[0].SharePercent, 40);

    // group: 100 percent and 4 taxa besides the diatoms
    ASSERT_TRUE(spur.ReferenceSpecies.has_value());
    const auto& arten = *spur.ReferenceSpecies;
    EXPECT_EQ(arten.Reason, GroupReason::AllGroups);
    EXPECT_EQ(Zahl(arten, "AbundanzArtniveauNKA"), 100);
    EXPECT_EQ(Zahl(arten, "TaxazahlArtniveauNKA"), 4);
    EXPECT_EQ(arten.RestrictionAbundance, 200);
    EXPECT_FALSE(arten.BedingtBewertbar);
    // (75 + 40 + 20) / (200 - 0) = 0.675; 3 of 6 taxa: 0.5; mean 0.5875; against 0.8: 0.734375
    EXPECT_EQ(arten.RI_Abundanz, 0.675F);
    EXPECT_EQ(arten.RI_Anzahl, 0.5F);
    ASSERT_TRUE(arten.Ratio.Unrounded.has_value());
    EXPECT_THAT(*arten.Ratio.Unrounded, DoubleNear(0.734375, 1e-6));
    EXPECT_EQ(arten.Ratio.EQR, 0.73F);
    EXPECT_EQ(arten.Ratio.Class.OEZK, 2);

    // TI: (75*3 + 25*2 + 40*3 + 3*20*2) / 200 = 515 / 200 = 2.575; (4 - 2.575) / (4 - 1.3) = 0.5278
    EXPECT_EQ(Index(bewertung, "TI").ValueSum, 515);
    EXPECT_EQ(Index(bewertung, "TI").WeightSum, 200);
    ASSERT_TRUE(spur.Trophic.has_value());
    EXPECT_EQ(spur.Trophic->Ratio.Index, 2.575F);
    EXPECT_EQ(spur.Trophic->Ratio.EQR, 0.53F);
    EXPECT_EQ(spur.Trophic->Ratio.Class.OEZK, 3);
    EXPECT_EQ(spur.Trophic->Ratio.Raised.OEZK, 3);
    // SI: (75*2 + 25 + 40*2 + 60) / 200 = 315 / 200 = 1.575; (4 - 1.575) / (4 - 1.5) = 0.97
    EXPECT_EQ(Index(bewertung, "SapIndex").ValueSum, 315);
    EXPECT_EQ(spur.Saprobic->Ratio.EQR, 0.97F);
    EXPECT_EQ(spur.Saprobic->Ratio.Class.OEZK, 1);

    // 3, 1, 2: the trophic module alone is worst, and 0.56 is class 3 too
    ASSERT_TRUE(spur.Overall.has_value());
    EXPECT_EQ(spur.Overall->Classes, (std::array<std::int16_t, 3>{3, 1, 2}));
    EXPECT_EQ(spur.Overall->Deciding, AssessmentModule::Trophic);
    EXPECT_FALSE(spur.Overall->Softened);
    EXPECT_EQ(spur.Overall->OEZK, 3);
    EXPECT_EQ(spur.Overall->OEZK_Klasse, "Stufe 3");
    const auto besser = NextBetterClass(spur.Trophic->Ratio);
    ASSERT_TRUE(besser.has_value());
    EXPECT_DOUBLE_EQ(besser->Distance, 0.07);  // 0.6 - 0.53
}

TEST_F(Bewertungserklaerung, AgreesWithTheStoredRow) {
    Bewerte();
    for (const auto& bewertung : Erklaere()) {
        const auto& spur = bewertung.Trace;
        const bool KAOnly = bewertung.KAOnly;
        for (const auto& zahl : spur.ReferenceSpecies->Counts) {
            EXPECT_EQ(Spalte(zahl.Column, KAOnly).R8(), zahl.Result) << zahl.Column;
        }
        EXPECT_EQ(Spalte("Taxagruppe", KAOnly).Text(), spur.ReferenceSpecies->Taxagruppe);
        EXPECT_EQ(Spalte("RI_EQR", KAOnly).R4(), spur.ReferenceSpecies->Ratio.EQR);
        EXPECT_EQ(Spalte("TI_EQR", KAOnly).R4(), spur.Trophic->Ratio.EQR);
        EXPECT_EQ(Spalte("TI", KAOnly).R4(), Index(bewertung, spur.Trophic->IndexColumn).Result.R4());
        EXPECT_EQ(Spalte("SI", KAOnly).R4(), Index(bewertung, spur.Saprobic->IndexColumn).Result.R4());
        EXPECT_EQ(Spalte("SI_OEZK3", KAOnly).I2(), spur.Saprobic->Ratio.Raised.OEZK);
        EXPECT_EQ(Spalte("OEZK", KAOnly).I2(), spur.Overall->OEZK);
        EXPECT_THAT(Abweichungen(bewertung), IsEmpty());
        EXPECT_EQ(bewertung.Columns.front().Column, "ID");
        EXPECT_GT(bewertung.Columns.size(), 40U);
    }
}

TEST_F(Bewertungserklaerung, TellsThatOfTheDiatomsAfterTheFirst) {
    Bewerte();
    const auto bewertungen = Erklaere();
    ASSERT_THAT(bewertungen, SizeIs(2));
    const auto& diatomeen = bewertungen[1];
    EXPECT_TRUE(diatomeen.KAOnly);
    EXPECT_EQ(diatomeen.State, StoredResult::Current);
    EXPECT_FALSE(diatomeen.Trace.Skipped.has_value());
    EXPECT_EQ(diatomeen.Trace.ReferenceSpecies->Reason, GroupReason::DiatomsAsked);
    // 75 / 100 and 1 of 2 taxa; (75*3 + 25*2) / 100 = 2.75; 1.25 / 2.7 = 0.463
    EXPECT_EQ(diatomeen.Trace.ReferenceSpecies->RI_Abundanz, 0.75F);
    EXPECT_EQ(diatomeen.Trace.Trophic->Ratio.Index, 2.75F);
    EXPECT_EQ(diatomeen.Trace.Trophic->Ratio.EQR, 0.46F);
    // what is no diatom is left out by the run
    const auto& index = Index(diatomeen, "TI");
    EXPECT_THAT(index.Terms, SizeIs(2));
    for (const auto& fund : index.LeftOut) {
        const bool gemeint = fund.Finding.ID_ART >= 3 && fund.Abundance.value_or(0) > 0;
        EXPECT_EQ(fund.Rule, gemeint ? LeftOutRule::DiatomsOnly : LeftOutRule::NoAbundance)
            << fund.Finding.ID_ART;
    }
}

TEST_F(Bewertungserklaerung, OfALoneRunOfTheDiatomsMakesThatAlone) {
    Berechnung_WRRLInit(db.Datenbank());
    Lauf(true);
    const auto bewertungen = Erklaere();
    ASSERT_THAT(bewertungen, SizeIs(1));
    EXPECT_TRUE(bewertungen[0].KAOnly);
    EXPECT_EQ(bewertungen[0].State, StoredResult::Current);
    EXPECT_EQ(bewertungen[0].Trace.Trophic->Ratio.Index, 2.75F);
}

TEST_F(Bewertungserklaerung, WithoutStoredAssessmentIsEmpty) {
    EXPECT_THAT(Erklaere(), IsEmpty());
    // a classic calculation is none
    Berechnung_Execute(db.Datenbank(), TR, true, false, false);
    EXPECT_THAT(Erklaere(), IsEmpty());
}

TEST_F(Bewertungserklaerung, ChangesNothing) {
    Bewerte();
    // a list of another scope and a run noted by the host stand there
    db.Ausfuehren("INSERT INTO awaArtenlisteHaeufigkeit (ID_Art, CF) VALUES(99, 0);");
    db.Ausfuehren("INSERT INTO awaErgWRRL (ID, Taxagruppe) VALUES(18, 'Alle');");
    db.Datenbank();
    auto& anzahl = store::Thread().GueteklasseAnzahl;
    anzahl = {1, 2, 3, 4, 5, 6, 7};
    const auto vorher = AllesGeschriebene();
    EXPECT_THAT(Erklaere(), SizeIs(2));
    EXPECT_EQ(AllesGeschriebene(), vorher);
    EXPECT_EQ(anzahl, (calc::Klassenzahlen{1, 2, 3, 4, 5, 6, 7}));

    // and the list reads right for whoever makes it next
    Bewerte();
    const auto danach = db.Abzug("awaErgWRRL");
    Erklaere();
    Bewerte();
    EXPECT_EQ(db.Abzug("awaErgWRRL"), danach);
}

TEST_F(Bewertungserklaerung, LeavesNoListWhereThereWasNone) {
    Bewerte();
    db.Datenbank()->TableDefs().Delete("awaArtenlisteHaeufigkeit");
    EXPECT_EQ(Erste().State, StoredResult::Current);
    EXPECT_THROW(db.Abzug("awaArtenlisteHaeufigkeit"), Error);
}

TEST_F(Bewertungserklaerung, OfAChangedFindingIsOutOfDate) {
    Bewerte();
    db.Ausfuehren("UPDATE awaArtPrStelle SET Schalen_KA=10 WHERE ID_ART=1;");
    const auto bewertung = Erste();
    EXPECT_EQ(bewertung.State, StoredResult::OutOfDate);
    // half of the valves each: (50*3 + 50*2 + 120 + 120) / 200 = 490 / 200
    EXPECT_EQ(bewertung.Trace.Trophic->Ratio.Index, 2.45F);
    EXPECT_THAT(Abweichungen(bewertung),
                testing::IsSupersetOf({"TI", "SI", "AbundanzRefart", "KASchalenzahl"}));
    EXPECT_EQ(Index(bewertung, "TI").Stored, store::Value(2.575F));
    EXPECT_EQ(Index(bewertung, "TI").Result, store::Value(2.45F));
}

// A finding that is there during the rerun alone, as one of another program may be.
TEST_F(Bewertungserklaerung, TellsTheFindingsThatTheRerunSaw) {
    Bewerte();
    db.Datenbank()->SharedConnection()->TheEngine().Run(
        "CREATE TRIGGER Zwischenfund AFTER INSERT ON awaErgProjekt BEGIN INSERT OR IGNORE INTO "
        "awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (5, 2, -1, 40); END;");
    const auto bewertung = Erste();
    std::vector<std::pair<std::int32_t, bool>> schalen;
    for (const auto& posten : Index(bewertung, "TI_KA").Terms)
        schalen.emplace_back(posten.Finding.ID_ART, posten.Finding.CF);
    EXPECT_THAT(schalen,
                testing::UnorderedElementsAre(std::pair(1, false), std::pair(2, false), std::pair(2, true)));
}

TEST_F(Bewertungserklaerung, OfChangedClassBoundsIsOutOfDate) {
    Bewerte();
    // 0.53 falls into class 2 now, as the reference species do
    db.Ausfuehren("UPDATE awaWRRL_TIOEZK SET EQRMin=0.5 WHERE Taxagruppe='Alle' AND OEZK=2;");
    db.Ausfuehren("UPDATE awaWRRL_TIOEZK SET EQRMax=0.5 WHERE Taxagruppe='Alle' AND OEZK=3;");
    const auto bewertungen = Erklaere();
    ASSERT_THAT(bewertungen, SizeIs(2));
    EXPECT_EQ(bewertungen[0].State, StoredResult::OutOfDate);
    EXPECT_THAT(Abweichungen(bewertungen[0]), testing::UnorderedElementsAre("TI_OEZK", "TI_OEZK3", "OEZK",
                                                                            "OEZK_Klasse", "TI_OEZK_Klasse"));
    EXPECT_EQ(bewertungen[1].State, StoredResult::Current) << "the bounds of the diatoms are others";
}

TEST_F(Bewertungserklaerung, OfADiatomRunThatWouldNotBeMadeAgainSaysWhy) {
    Bewerte();
    // without three of the taxa besides the diatoms the first run rests on the diatoms
    db.Ausfuehren("DELETE * FROM awaArtPrStelle WHERE ID_ART>3;");
    const auto bewertungen = Erklaere();
    ASSERT_THAT(bewertungen, SizeIs(2));
    EXPECT_EQ(bewertungen[0].Trace.ReferenceSpecies->Taxagruppe, "KA");
    EXPECT_EQ(bewertungen[1].Trace.Skipped, NotAssessed::DiatomsAlready);
    EXPECT_EQ(bewertungen[1].State, StoredResult::OutOfDate);
    EXPECT_THAT(bewertungen[1].Indices, IsEmpty());
}

TEST_F(Bewertungserklaerung, TellsHowFarAFailingAssessmentCame) {
    // 4 expected: the trophic ratio divides by zero, after the reference species
    db.Ausfuehren("UPDATE awaWRRL_ETI SET ErwarteterWert=4 WHERE Taxagruppe='Alle';");
    Berechnung_WRRLInit(db.Datenbank());
    EXPECT_THROW(Lauf(false), Error);
    const auto vorher = AllesGeschriebene();
    const auto bewertung = Erste();
    ASSERT_TRUE(bewertung.Failed.has_value());
    EXPECT_EQ(bewertung.Failed->Number, ErrorNumber::DivisionByZero);
    EXPECT_EQ(bewertung.State, StoredResult::Current);
    EXPECT_TRUE(bewertung.Trace.ReferenceSpecies->Done);
    ASSERT_TRUE(bewertung.Trace.Trophic.has_value());
    EXPECT_FALSE(bewertung.Trace.Trophic->Done);
    EXPECT_FALSE(bewertung.Trace.Saprobic.has_value());
    EXPECT_FALSE(bewertung.Trace.Overall.has_value());
    EXPECT_EQ(AllesGeschriebene(), vorher);
}

TEST_F(Bewertungserklaerung, NamesTheFindingAtWhichAnIndexFailed) {
    db.Setze("awaModulStandard", "SI", "ID_ART=3");
    Berechnung_WRRLInit(db.Datenbank());
    EXPECT_THROW(Lauf(false), Error);
    const auto bewertung = Erste();
    ASSERT_TRUE(bewertung.Failed.has_value());
    EXPECT_THAT(bewertung.Failed->Description, HasSubstr("awaModulStandard.SI"));
    const auto& ausgelassen = Index(bewertung, "SapIndex").LeftOut;
    EXPECT_TRUE(std::any_of(ausgelassen.begin(), ausgelassen.end(), [](const auto& fund) {
        return fund.Finding.ID_ART == 3 && fund.Rule == LeftOutRule::FailedHere;
    }));
    EXPECT_TRUE(bewertung.Trace.Column.has_value());
}

TEST_F(Bewertungserklaerung, UsesTheVariantOfTheStoredRun) {
    Berechnung_WRRLInit(db.Datenbank());
    Lauf(false, false);
    // the classic covers: 60 percent in all, so taxon 3 has 20 / 60
    auto bewertung = Erste();
    EXPECT_EQ(bewertung.State, StoredResult::Current);
    EXPECT_EQ(bewertung.Trace.Column->DG_Gesamt, 60.0F);

    // a calculation afterwards took the row's place: the assessment was one in the variant of the Directive
    Bewerte();
    Berechnung_Init(db.Datenbank());
    Berechnung_Execute(db.Datenbank(), TR, false, false, false);
    bewertung = Erste();
    EXPECT_EQ(bewertung.State, StoredResult::Current);
    EXPECT_EQ(bewertung.Trace.Column->DG_Gesamt, 50.0F);
    EXPECT_TRUE(Index(bewertung, "TI").Stored.IsNull());
}

TEST_F(Bewertungserklaerung, AndTheClassicExplanationAgreeOnTheRow) {
    Bewerte();
    const auto klassisch = Explain(db.Datenbank(), TR);
    EXPECT_EQ(klassisch.State, StoredResult::Current);
    EXPECT_TRUE(klassisch.IstWRRL);
    EXPECT_EQ(klassisch.Indices[0].ValueSum, 315);
}

TEST_F(Bewertungserklaerung, NamesTaxaByTheirKeys) {
    EXPECT_EQ(TaxonName(db.Datenbank(), 3), "Gattung3 grün3");
    EXPECT_EQ(TaxonName(db.Datenbank(), 99), "");
}

TEST(BewertungserklaerungOhneDatenbank, FailsWith3343) {
    try {
        ExplainAssessments(nullptr, {});
        FAIL() << "nothing failed";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 3343);
        EXPECT_THAT(error.Description(), HasSubstr("ExplainAssessments"));
    }
}

}  // namespace
