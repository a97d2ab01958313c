// Where the statements of the frequency list, and those that read it, begin: their cost must not grow with
// the project or the catalogue, and the order of their rows follows from it.
#include "calc/Abfragen.h"
#include "store/Connection.h"
#include "store/dialect/Translate.h"
#include "wrrl/ArtenlisteAbfragen.h"
#include "wrrl/Listenprobe.h"

namespace FX_Algen {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ArtenlistePlaene : public Listenprobe {
protected:
    std::vector<std::string> Plan(const std::string& abfrage) {
        auto& verbindung = *db.Datenbank()->SharedConnection();
        store::dialect::Shape form;
        store::dialect::ScanShape(abfrage, form);
        const auto uebersetzt = store::dialect::Translate(abfrage, form, store::CatalogueOf(verbindung));
        const auto zeile = store::EngineOf(verbindung).Prepare("EXPLAIN QUERY PLAN " + uebersetzt.Sql);
        std::vector<std::string> plan;
        while (zeile->Step()) plan.emplace_back(zeile->Text(3));
        return plan;
    }
    /// Every table but the first is searched by a key, or walked where the case allows it.
    void Erwarte(const std::string& abfrage, const std::string& anfang) {
        const auto plan = Plan(abfrage);
        ASSERT_FALSE(plan.empty()) << abfrage;
        EXPECT_THAT(plan.front(), StartsWith(anfang)) << abfrage;
        for (std::size_t i = 1; i < plan.size(); ++i) {
            EXPECT_THAT(plan[i], Not(StartsWith("SCAN"))) << abfrage;
            EXPECT_THAT(plan[i], Not(HasSubstr("AUTOMATIC"))) << abfrage;
        }
    }
};

TEST_F(ArtenlistePlaene, OfOneSubHabitatBeginThere) {
    auto auftrag = Auftrag();
    auftrag.TeilraumID = 17;
    // Both tables have the key of the sub-habitat for their own.
    Erwarte(artenliste::abfragen::Teilraeume(auftrag), "SEARCH awaTeilraum USING INTEGER PRIMARY KEY");
    auftrag.USTAuswahl = true;
    Erwarte(artenliste::abfragen::Teilraeume(auftrag), "SEARCH Teilraum USING INTEGER PRIMARY KEY");
    for (const bool wrrl : {false, true})
        Erwarte(calc::abfragen::Schalensumme(17, wrrl), "SEARCH awaPrStelle USING");
    Erwarte(artenliste::abfragen::Funde(17), "SEARCH awaPrStelle USING");
    Erwarte(calc::abfragen::Bestaende(17), "SEARCH awaTeilraum_MI USING");
    Erwarte(artenliste::abfragen::Bestandsarten(17), "SEARCH awaTeilraum_MI USING");
}

TEST_F(ArtenlistePlaene, OfThoseWhoReadTheListBeginWithIt) {
    ASSERT_TRUE(Artenliste_Haeufigkeit(Auftrag()));
    const std::string von(calc::abfragen::VonHaeufigkeit());
    const std::string liste = "SCAN awaArtenlisteHaeufigkeit";
    for (const std::string bedingung :
         {"((awaFamilie.ID_GRGR)<=132)", "((awaFamilie.ID_GRGR)<=132) AND (awaArt.IstArtniveau = True)",
          "((awaFamilie.ID_GRGR <= 132) And (awaFamilie.ID_GRGR <> 128) AND (awaArt.IstArtniveau = True))",
          "((awaFamilie.ID_GRGR)=128)", "((awaFamilie.ID_GRGR)=128) AND (awaArt.IstArtniveau = True)"}) {
        Erwarte("SELECT Count(awaArtenlisteHaeufigkeit.ID_Art) AS [AnzahlArt] " + von +
                    "WHERE (((awaArtenlisteHaeufigkeit.A17)>0) AND " + bedingung + ");",
                liste);
        Erwarte("SELECT Sum(awaArtenlisteHaeufigkeit.A17) AS [AbundanzSumme] " + von + "WHERE (" + bedingung +
                    ");",
                liste);
    }
    const std::string auswahl = "awaArtenlisteHaeufigkeit.ID_Art, awaArtenlisteHaeufigkeit.A17 AS Abundanz";
    for (const bool nurSchalen : {false, true}) {
        Erwarte(calc::abfragen::ReferenzartenTypA(17, auswahl, nurSchalen), liste);
        for (const std::string kriterium :
             {"", "(awaRefArt_TypB.ID_AL_Bioregion=2 AND awaRefArt_TypB.ID_AL_Hoehenstufe=1)"})
            EXPECT_THAT(Plan(calc::abfragen::ReferenzartenTypB(17, auswahl, kriterium, nurSchalen)).front(),
                        StartsWith(liste));
    }
}

}  // namespace
}  // namespace FX_Algen
