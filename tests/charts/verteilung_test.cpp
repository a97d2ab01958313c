// The distribution chart: texts of its statement, bars, and the rows that the statement yields.
#include "charts/Verteilung.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"
#include "charts/Grafikdatenbank.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;

constexpr std::int16_t Deutsch = 10000;
constexpr std::int16_t Englisch = 20000;

Verteilungsgrafik Grafik(std::int16_t art, std::int16_t stellenbez = 1, std::int16_t SprachID = Deutsch) {
    return Grafik_Verteilung_Init(art, stellenbez, SprachID).value();
}

// ---- statement -----------------------------------------------------------------------------------------

const std::string Ende =
    "FROM ((((Abschnitt INNER JOIN UnvUStelle ON Abschnitt.ID_AB = UnvUStelle.ID_AB) "
    "INNER JOIN VerUStelle ON UnvUStelle.ID_UUS = VerUStelle.ID_UUS) "
    "INNER JOIN Teilraum ON VerUStelle.ID_VUS = Teilraum.ID_VUS) "
    "INNER JOIN (awaErgProjekt INNER JOIN awaTeilraum ON awaErgProjekt.ID = awaTeilraum.ID_TR) "
    "ON Teilraum.ID_TR = awaTeilraum.ID_TR) "
    "INNER JOIN awaPrStelle ON awaTeilraum.ID_TR = awaPrStelle.ID_TR "
    "WHERE awaPrStelle.Anzeige=-1 "
    "ORDER BY Abschnitt.RF, Abschnitt.ABBez, UnvUStelle.RF, UnvUStelle.USBez, VerUStelle.USDatumVon, "
    "Teilraum.RF, Teilraum.TRBez, awaPrStelle.PSBez;";

const std::string Valenzen =
    "AS Stelle, awaErgProjekt.Xeno AS Wert1, awaErgProjekt.Oligo AS Wert2, awaErgProjekt.OligoBeta AS Wert3, "
    "awaErgProjekt.Beta AS Wert4, awaErgProjekt.BetaAlpha AS Wert5, awaErgProjekt.Alpha AS Wert6, "
    "awaErgProjekt.AlphaPoly AS Wert7, awaErgProjekt.Poly AS Wert8, '0' AS Wert9, '0' AS Wert10 ";

const std::string Klassen =
    "AS Stelle, awaErgProjekt.ANZ_Gueteklasse_I AS Wert1, awaErgProjekt.ANZ_Gueteklasse_I_II AS Wert2, "
    "awaErgProjekt.ANZ_Gueteklasse_II AS Wert3, awaErgProjekt.ANZ_Gueteklasse_II_III AS Wert4, "
    "awaErgProjekt.ANZ_Gueteklasse_III AS Wert5, awaErgProjekt.ANZ_Gueteklasse_III_IV AS Wert6, "
    "awaErgProjekt.ANZ_Gueteklasse_IV AS Wert7, '0' AS Wert8, '0' AS Wert9, '0' AS Wert10 ";

TEST(Verteilung, StatementIsComposedOfLabelValuesAndJoin) {
    const std::string stelle = "UnvUStelle.USBez & ' ' & VerUStelle.USDatumVon & ' ' & awaPrStelle.PSBez ";
    const struct {
        std::int16_t Art;
        std::int16_t Stellenbez;
        std::string SQL;
    } faelle[] = {
        {1, 0, "SELECT DISTINCTROW " + stelle + Valenzen + Ende},
        {1, 1, "SELECT DISTINCTROW " + stelle + Valenzen + Ende},
        {1, 2, "SELECT DISTINCTROW awaPrStelle.PSBez_Anzeige " + Valenzen + Ende},
        {2, 0, "SELECT DISTINCTROW " + stelle + Klassen + Ende},
        {2, 1, "SELECT DISTINCTROW " + stelle + Klassen + Ende},
        {2, 2, "SELECT DISTINCTROW awaPrStelle.PSBez_Anzeige " + Klassen + Ende},
        {1, 3, "SELECT DISTINCTROW " + Valenzen + Ende},
        {2, 7, "SELECT DISTINCTROW " + Klassen + Ende},
        {2, -1, "SELECT DISTINCTROW " + Klassen + Ende},
    };
    for (const auto& fall : faelle)
        EXPECT_EQ(Grafik(fall.Art, fall.Stellenbez).SQL, fall.SQL) << fall.Art << " " << fall.Stellenbez;
}

TEST(Verteilung, AnyOtherKindGivesNoChartAndLooksUpNoText) {
    for (const std::int16_t art : {-32768, -1, 0, 3, 4, 32767})
        EXPECT_FALSE(Grafik_Verteilung_Init(art, 1, 32000).has_value()) << art;
}

TEST(Verteilung, FailsWhereATextIsMissing) {
    // 12000 + 7301 has no text; 30000 + 7301 is more than 16 bits hold.
    for (const std::int16_t art : {1, 2}) {
        EXPECT_EQ(Fehlernummer([&] { Grafik_Verteilung_Init(art, 1, 12000); }), ErrorNumber::StringNotFound);
        EXPECT_EQ(Fehlernummer([&] { Grafik_Verteilung_Init(art, 1, 30000); }), ErrorNumber::Overflow);
    }
}

// ---- bars ----------------------------------------------------------------------------------------------

/// A bar as "colour pattern pattern-colour text".
std::vector<std::string> Balkentexte(const Verteilungsgrafik& grafik) {
    std::vector<std::string> texte;
    for (const auto& balken : grafik.AlleBalken)
        texte.push_back(std::to_string(balken.Farbe) + (balken.Muster ? " true " : " false ") +
                        std::to_string(balken.Musterfarbe) + " " + balken.Legendentext);
    return texte;
}

TEST(Verteilung, OfValencesHasEightBars) {
    const auto deutsch = Grafik(1);
    EXPECT_EQ(deutsch.Standardtitel, "Algen - Verteilung der saprobiellen Valenzen");
    EXPECT_EQ(deutsch.Legendenzeilen, 2);
    EXPECT_THAT(Balkentexte(deutsch),
                ElementsAre("15 false 0 xenosaprob", "9 false 0 oligosaprob", "10 true 9 oligo-beta",
                            "10 false 0 beta-mesosaprob", "10 true 14 beta-alpha",
                            "14 false 0 alpha-mesosaprob", "12 true 14 alpha-poly", "12 false 0 polysaprob"));
    const auto englisch = Grafik(1, 1, Englisch);
    EXPECT_EQ(englisch.Standardtitel, "Algae - distribution of the saprobic valences");
    EXPECT_EQ(englisch.SQL, deutsch.SQL);
    EXPECT_THAT(Balkentexte(englisch), ElementsAre("15 false 0 xenosaprobic", "9 false 0 oligosaprobic",
                                                   "10 true 9 oligo-beta", "10 false 0 beta-mesosaprobic",
                                                   "10 true 14 beta-alpha", "14 false 0 alpha-mesosaprobic",
                                                   "12 true 14 alpha-poly", "12 false 0 polysaprobic"));
}

TEST(Verteilung, OfQualityClassesHasSevenBars) {
    const auto deutsch = Grafik(2);
    EXPECT_EQ(deutsch.Standardtitel, "Taxazahl je Gütestufen");
    EXPECT_EQ(deutsch.Legendenzeilen, 2);
    const auto balken = ElementsAre("9 false 0 I", "10 true 9 I-II", "10 false 0 II", "10 true 14 II-III",
                                    "14 false 0 III", "12 true 14 III-IV", "12 false 0 IV");
    EXPECT_THAT(Balkentexte(deutsch), balken);
    const auto englisch = Grafik(2, 1, Englisch);
    EXPECT_EQ(englisch.Standardtitel, "Number of taxa per quality class");
    EXPECT_THAT(Balkentexte(englisch), balken);
}

// ---- rows ----------------------------------------------------------------------------------------------

class Verteilungszeilen : public testing::Test {
protected:
    /// Labels of the rows in their order.
    std::vector<std::string> Stellen(std::int16_t stellenbez = 1) {
        auto zeilen = db.Zeilen(Grafik(2, stellenbez).SQL);
        for (auto& zeile : zeilen) zeile.erase(zeile.find('|'));
        return zeilen;
    }

    Grafikdatenbank db;
};

TEST_F(Verteilungszeilen, HoldLabelAndValuesOfTheResultTable) {
    db.Zweig(17, "Brücke", "Ufer");
    db.Ergebnis(17);
    db.Setze("awaErgProjekt",
             "XENO=0.5, OLIGO=1.25, OLIGOBETA=0, BETA=4, BETAALPHA=0.25, ALPHA=2, ALPHAPOLY=1, POLY=1",
             "ID=17");
    db.Setze("awaErgProjekt",
             "ANZ_Gueteklasse_I=1, ANZ_Gueteklasse_I_II=2, ANZ_Gueteklasse_II=3, ANZ_Gueteklasse_II_III=4, "
             "ANZ_Gueteklasse_III=5, ANZ_Gueteklasse_III_IV=6, ANZ_Gueteklasse_IV=7",
             "ID=17");
    EXPECT_THAT(db.Zeilen(Grafik(1).SQL), ElementsAre("Brücke 12.05.2026 Ufer|0.5|1.25|0|4|0.25|2|1|1|0|0"));
    EXPECT_THAT(db.Zeilen(Grafik(1, 2).SQL), ElementsAre("Anzeige Ufer|0.5|1.25|0|4|0.25|2|1|1|0|0"));
    EXPECT_THAT(db.Zeilen(Grafik(2).SQL), ElementsAre("Brücke 12.05.2026 Ufer|1|2|3|4|5|6|7|0|0|0"));
    EXPECT_THAT(db.Zeilen(Grafik(2, 2).SQL), ElementsAre("Anzeige Ufer|1|2|3|4|5|6|7|0|0|0"));
}

TEST_F(Verteilungszeilen, AreNullWhereTheResultTableHoldsNothingAndTextBeyondTheBars) {
    db.Zweig(17, "Brücke", "Ufer");
    db.Ergebnis(17);
    EXPECT_THAT(db.Zeilen(Grafik(1).SQL), ElementsAre("Brücke 12.05.2026 Ufer|-|-|-|-|-|-|-|-|0|0"));
    EXPECT_THAT(db.Zeilen(Grafik(2).SQL), ElementsAre("Brücke 12.05.2026 Ufer|-|-|-|-|-|-|-|0|0|0"));
    const auto zeilen = db.Datenbank()->OpenRecordset(Grafik(2).SQL);
    EXPECT_EQ((*zeilen)["Wert8"], store::Value("0"));
    EXPECT_EQ((*zeilen)["Wert10"], store::Value("0"));
}

TEST_F(Verteilungszeilen, ComeForMarkedSitesWithAResultOnly) {
    db.Zweig(17, "Brücke", "Ufer");
    db.Zweig(18, "Mühle", "Wehr");
    db.Stelle(20, 17, "Äste");
    db.Stelle(21, 17, "Öde");
    db.Ergebnis(17);
    db.Setze("awaPrStelle", "Anzeige=False", "ID_PS=21");
    EXPECT_THAT(Stellen(2), ElementsAre("Anzeige Äste", "Anzeige Ufer"));
    db.Setze("awaPrStelle", "Anzeige=Null", "ID_PS=20");
    EXPECT_THAT(Stellen(2), ElementsAre("Anzeige Ufer"));
    db.Ergebnis(18);
    EXPECT_THAT(Stellen(2), ElementsAre("Anzeige Ufer", "Anzeige Wehr"));
    // A result of a sub-habitat that has no row of covers any more.
    db.Ausfuehren("DELETE * FROM awaTeilraum WHERE ID_TR=18;");
    EXPECT_THAT(Stellen(2), ElementsAre("Anzeige Ufer"));
}

TEST_F(Verteilungszeilen, ComeTwiceWhereThereAreTwoResults) {
    db.Zweig(17, "Brücke", "Ufer");
    db.Ergebnis(17, false);
    db.Ergebnis(17, true);
    EXPECT_EQ(db.Zeilen(Grafik(2).SQL).size(), 2U);
}

TEST_F(Verteilungszeilen, FollowSectionStationDateSubHabitatAndSite) {
    // One after the other each level decides: its position first, then its name (or date).
    db.Abschnitt(2, "Quelle", 0);
    db.Abschnitt(3, "Ästuar", 1);  // before "Mündung", which has the position 1, too
    db.Station(1, 1, "Wehr", 2);
    db.Station(2, 1, "Ödmühle", 2);  // ö with o, before W
    db.Station(3, 1, "Zoll", 1);
    db.Station(4, 2, "Zwiesel", 9);
    db.Station(5, 3, "Zaun", 9);
    db.Besuch(1, 1, "#5/12/2026#");
    db.Besuch(2, 2, "#11/1/2025#");
    db.Besuch(3, 3, "#5/12/2026#");
    db.Besuch(4, 4, "#5/12/2026#");
    db.Besuch(5, 5, "#5/12/2026#");
    db.Besuch(6, 2, "#5/1/2026#");  // after 1 November 2025, by the calendar
    db.Teilraum(1, 1, "Sand", 2);
    db.Teilraum(2, 2, "A", 1);
    db.Teilraum(3, 3, "A", 1);
    db.Teilraum(4, 4, "A", 1);
    db.Teilraum(5, 5, "A", 1);
    db.Teilraum(6, 6, "A", 1);
    db.Teilraum(7, 1, "Äste", 2);  // same visit and position as "Sand"
    db.Teilraum(8, 1, "Zweige", 1);
    for (const int tr : {1, 2, 3, 4, 5, 6, 7, 8}) db.Ergebnis(tr);
    db.Stelle(10, 1, "b");
    db.Stelle(11, 1, "ä");
    for (const int tr : {2, 3, 4, 5, 6, 7, 8}) db.Stelle(20 + tr, tr, "p");
    EXPECT_THAT(Stellen(), ElementsAre("Zwiesel 12.05.2026 p", "Zaun 12.05.2026 p", "Zoll 12.05.2026 p",
                                       "Ödmühle 01.11.2025 p", "Ödmühle 01.05.2026 p", "Wehr 12.05.2026 p",
                                       "Wehr 12.05.2026 p", "Wehr 12.05.2026 ä", "Wehr 12.05.2026 b"));
    const auto zeilen = db.Zeilen("SELECT Teilraum.ID_TR, awaPrStelle.ID_PS " + Ende);
    EXPECT_EQ(zeilen[5], "8|28");
    EXPECT_EQ(zeilen[6], "7|27");
}

TEST_F(Verteilungszeilen, LabelMissingPartsAsNothing) {
    db.Zweig(17, "Brücke", "Ufer");
    db.Ergebnis(17);
    db.Setze("VerUStelle", "USDatumVon=Null", "ID_VUS=17");
    db.Setze("awaPrStelle", "PSBez=Null, PSBez_Anzeige=Null", "ID_PS=17");
    EXPECT_THAT(Stellen(1), ElementsAre("Brücke  "));
    EXPECT_THAT(Stellen(2), ElementsAre("-"));
}

TEST_F(Verteilungszeilen, AreRejectedWithoutALabel) {
    for (const std::int16_t stellenbez : {-1, 3, 7})
        for (const std::int16_t art : {1, 2}) {
            const auto anweisung = Grafik(art, stellenbez).SQL;
            EXPECT_EQ(Fehlernummer([&] { db.Datenbank()->OpenRecordset(anweisung); }),
                      ErrorNumber::SyntaxError)
                << stellenbez;
        }
}

}  // namespace
}  // namespace FX_Algen
