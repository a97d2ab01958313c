// Operations of AL_PS behind the overviews of a host: counts over a scope, reference bioregions, results of
// the assessment.
#include <gmock/gmock.h>

#include <functional>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Error.h"
#include "TestDatabase.h"

namespace FX_Algen {
namespace {

/// Number and description of a failure; 0 and nothing where the call does not fail.
std::pair<std::int32_t, std::string> FailureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return {error.Number(), error.Description()};
    }
    return {0, {}};
}

std::int32_t NumberOf(const std::function<void()>& call) { return FailureOf(call).first; }

/// Project 1 with section 1, station 111 and visit 11 with the sub-habitats 1 (taxa 901, 902) and 2 (taxon
/// 903), and station 112 with visit 12 and sub-habitat 3 (taxon 901). Seston taxa 801 and 802 in
/// sub-habitat 1.
class AL_PS_Uebersichten : public testing::Test {
protected:
    AL_PS_Uebersichten() {
        for (const char* statement : {
                 "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Übung')",
                 "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez) VALUES (1, 1, 'Mündung')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (111, 1, 'Brücke')",
                 "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez) VALUES (112, 1, 'Öd')",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (11, 111)",
                 "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (12, 112)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (1, 11, 'Blöcke', 1)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (2, 11, 'Kies', 2)",
                 "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (3, 12, 'Äste', 1)",
                 "INSERT INTO awaTeilraum (ID_TR) SELECT ID_TR FROM Teilraum",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR) SELECT ID_TR, ID_TR FROM Teilraum",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 901, False)",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 902, False)",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (2, 903, False)",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (3, 901, True)",
                 "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (1, 1)",
                 "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 801, False)",
                 "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 802, False)",
                 "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Bezeichnung, Kurzzeichen) VALUES (3, 'Ödland', "
                 "'Ö')",
                 "INSERT INTO awaErgWRRL (ID, Taxagruppe) SELECT ID_TR, 'Alle' FROM Teilraum",
                 "INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) "
                 "VALUES (7, 'UnvU-Stelle', 'Teilraum.ID_TR>0')",
                 "INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (7, 111, 1)",
             })
            db.Handle->Execute(statement);
        ps.CurrentDB(db.Handle);
    }

    test::TestDatabase db;
    AL_PS ps;
};

TEST_F(AL_PS_Uebersichten, CountsFollowTheScopeOfTheContext) {
    const struct {
        const char* scope;
        std::int32_t id;
        const char* taxa;
        std::int16_t algae, seston;
    } cases[] = {
        {"Projekt", 1, "", 3, 2},                                 // 901, 902, 903; 801, 802
        {"UStelle", 112, "", 1, 0},                               // 901
        {"Rechenmanager", 7, "", 3, 2},                           // station 111
        {"Rechenmanager", 7, " AND gibtEsNicht=1", 3, 2},         // not read there
        {"Projekt", 1, " AND UnvUStelle.USBez='Öd'", 1, 0},       // sub-habitat 3
        {"Projekt", 1, " AND Teilraum.TRBez IN ('Kies')", 1, 0},  // 903
    };
    for (const auto& c : cases) {
        ps.AktUebersicht(c.scope);
        ps.ProjektID(c.id);
        ps.TaxaAuswahl(c.taxa);
        EXPECT_EQ(ps.Gesamttaxazahl(), c.algae) << c.scope << c.taxa;
        EXPECT_EQ(ps.GesamttaxazahlSeston(), c.seston) << c.scope << c.taxa;
    }
}

TEST_F(AL_PS_Uebersichten, CountOverAListLooksAtTheListAlone) {
    ps.AktUebersicht("UStelle");
    ps.ProjektID(112);
    ps.TaxaAuswahl("AND gibtEsNicht=1");
    EXPECT_EQ(ps.GesamttaxazahlTLR("1,2"), 3);
    EXPECT_EQ(ps.GesamttaxazahlTLR("3"), 1);
    EXPECT_EQ(NumberOf([&] { ps.GesamttaxazahlTLR(""); }), ErrorNumber::SyntaxError);
}

TEST_F(AL_PS_Uebersichten, CountsOfAFreshScopeFailAtTheEmptyStatement) {
    EXPECT_EQ(NumberOf([&] { ps.Gesamttaxazahl(); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(NumberOf([&] { ps.GesamttaxazahlSeston(); }), ErrorNumber::SyntaxError);
}

TEST_F(AL_PS_Uebersichten, BioregionsAreToldByName) {
    EXPECT_EQ(ps.GetBioregion_Kurzzeichen("Ö1, X"), "Ödland (Ö1), X");
    EXPECT_EQ(ps.GetBioregion_Kurzzeichen(""), "");
    EXPECT_EQ(NumberOf([&] { ps.GetBioregion_Kurzzeichen("d'Oc"); }), ErrorNumber::SyntaxError);
}

TEST_F(AL_PS_Uebersichten, ResultsAreOpenedByModeAndCurrentPlace) {
    ps.WRRLErgAuswahlAnzeige(1);
    ps.Get_WRRLErgRecordset();
    ASSERT_NE(ps.WRRLErgRecordset(), nullptr);
    EXPECT_EQ(ps.WRRLErgRecordset()->RecordCount(), 3);
    ps.WRRLErgAuswahlAnzeige(2);
    ps.TeilraumID(11);  // a visit, as the assessment variant is not set
    ps.Get_WRRLErgRecordset();
    EXPECT_EQ(ps.WRRLErgRecordset()->RecordCount(), 2);
    ps.IstWRRLBerechnung(true);
    ps.TeilraumID(3);
    ps.Get_WRRLErgRecordset();
    ASSERT_EQ(ps.WRRLErgRecordset()->RecordCount(), 1);
    EXPECT_EQ((*ps.WRRLErgRecordset())["TRBez"].Text(), "Äste");
}

TEST_F(AL_PS_Uebersichten, FailuresNameTheOperationThatWasCalled) {
    const std::pair<std::string, std::function<void()>> operations[] = {
        {"GesamttaxazahlTLR", [&] { ps.GesamttaxazahlTLR("1,,2"); }},
        {"Gesamttaxazahl", [&] { ps.Gesamttaxazahl(); }},
        {"GesamttaxazahlSeston", [&] { ps.GesamttaxazahlSeston(); }},
        {"GetBioregion_Kurzzeichen", [&] { ps.GetBioregion_Kurzzeichen("d'Oc"); }},
        {"Get_WRRLErgRecordset", [&] { ps.Get_WRRLErgRecordset(); }},
    };
    ps.AktUebersicht("Übersicht");
    ps.WRRLErgAuswahlAnzeige(4);
    for (const auto number : {ErrorNumber::SyntaxError, ErrorNumber::NotADatabase}) {
        if (number == ErrorNumber::NotADatabase) ps.CurrentDB(nullptr);
        for (const auto& [name, call] : operations) {
            const auto [failure, description] = FailureOf(call);
            EXPECT_EQ(failure, number) << name;
            EXPECT_TRUE(description.starts_with(name + ": ")) << description;
        }
    }
}

TEST_F(AL_PS_Uebersichten, UnknownModeLeavesTheFormerResults) {
    ps.WRRLErgAuswahlAnzeige(4);
    EXPECT_EQ(NumberOf([&] { ps.Get_WRRLErgRecordset(); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(ps.WRRLErgRecordset(), nullptr);
    ps.WRRLErgAuswahlAnzeige(0);
    ps.Get_WRRLErgRecordset();
    const auto former = ps.WRRLErgRecordset();
    ASSERT_NE(former, nullptr);
    ps.WRRLErgAuswahlAnzeige(-1);
    EXPECT_EQ(NumberOf([&] { ps.Get_WRRLErgRecordset(); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(ps.WRRLErgRecordset(), former);
    EXPECT_EQ(former->RecordCount(), 3);
}

}  // namespace
}  // namespace FX_Algen
