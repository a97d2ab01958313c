#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SampleCatalogue.h"

// What is written, and what the engine gets, construct by construct.
namespace FX_Algen::store::dialect::testing {
namespace {

struct Pair {
    const char* Written;
    const char* Translated;
};

void ExpectPairs(const std::vector<Pair>& pairs) {
    for (const Pair& pair : pairs) {
        try {
            EXPECT_EQ(Translated(pair.Written).Sql, pair.Translated) << pair.Written;
        } catch (const Error& error) {
            ADD_FAILURE() << pair.Written << "\n" << error.Number() << " " << error.Description();
        }
    }
}

TEST(Pairs, SelectListAndNames) {
    ExpectPairs({
        // No DISTINCT: each table's row identity follows as a hidden column, so that the rows can be changed.
        {"SELECT ID_PS FROM awaPrStelle;",
         "SELECT \"awaPrStelle\".\"ID_PS\", \"awaPrStelle\".rowid FROM \"awaPrStelle\""},
        {"select distinctrow id_ps, [PSBEZ] from AWAPRSTELLE",
         "SELECT \"awaPrStelle\".\"ID_PS\", \"awaPrStelle\".\"PSBez\", \"awaPrStelle\".rowid FROM "
         "\"awaPrStelle\""},
        {"SELECT t.* FROM awaTeilraum_MI AS t",
         "SELECT \"t\".\"ID_TR_MI\", \"t\".\"ID_TR\", \"t\".\"DG_MI\", \"t\".rowid FROM \"awaTeilraum_MI\" "
         "AS \"t\""},
        {"SELECT t.ID_TR MeinTeilraum FROM awaTeilraum_MI t",
         "SELECT \"t\".\"ID_TR\" AS \"MeinTeilraum\", \"t\".rowid FROM \"awaTeilraum_MI\" AS \"t\""},
        {"SELECT HÄUFIGKEIT FROM awaFundarchiv",
         "SELECT \"awaFundarchiv\".\"Häufigkeit\", \"awaFundarchiv\".rowid FROM \"awaFundarchiv\""},
        {"SELECT ID_TR AS [a\"b] FROM awaTeilraum_MI",
         "SELECT \"awaTeilraum_MI\".\"ID_TR\" AS \"a\"\"b\", \"awaTeilraum_MI\".rowid FROM "
         "\"awaTeilraum_MI\""},
        // A view's rows have no identity.
        {"SELECT DISTINCTROW Reich.Reich FROM Reich", "SELECT \"Reich\".\"Reich\" FROM \"Reich\""},
    });
}

TEST(Pairs, DistinctComparesTextsWithoutCase) {
    ExpectPairs({
        {"SELECT DISTINCT Gattung, ID_UFam FROM awaArt",
         "SELECT DISTINCT (\"awaArt\".\"Gattung\") COLLATE FX_CI, \"awaArt\".\"ID_UFAM\" FROM \"awaArt\""},
    });
}

TEST(Pairs, JoinsStandInARow) {
    ExpectPairs({
        // A select in a condition may name any table before it, so the condition stays at its own place.
        {"SELECT DISTINCT s.ID_PS FROM (awaPrStelle s INNER JOIN awaArtPrStelle f ON s.ID_PS=f.ID_PS) INNER "
         "JOIN "
         "awaArt a ON f.ID_ART In (SELECT m.ID_ART FROM awaModulStandard m WHERE m.ID_ART=a.ID_ART)",
         "SELECT DISTINCT \"s\".\"ID_PS\" FROM \"awaPrStelle\" AS \"s\" INNER JOIN \"awaArtPrStelle\" AS "
         "\"f\" ON "
         "\"s\".\"ID_PS\" = \"f\".\"ID_PS\" INNER JOIN \"awaArt\" AS \"a\" ON \"f\".\"ID_ART\" IN (SELECT "
         "\"m\".\"ID_ART\" FROM \"awaModulStandard\" AS \"m\" WHERE \"m\".\"ID_ART\" = \"a\".\"ID_ART\")"},
        {"SELECT DISTINCT awaArt.ID_ART FROM (awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = "
         "awaArtPrStelle.ID_PS) INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART",
         "SELECT DISTINCT \"awaArt\".\"ID_ART\" FROM \"awaPrStelle\" INNER JOIN \"awaArtPrStelle\" ON "
         "\"awaPrStelle\".\"ID_PS\" = \"awaArtPrStelle\".\"ID_PS\" INNER JOIN \"awaArt\" ON "
         "\"awaArtPrStelle\".\"ID_ART\" = \"awaArt\".\"ID_ART\""},
        // Nested on the right: the inner join is written first, the brackets go.
        {"SELECT DISTINCT a.ID_ART FROM awaArt a INNER JOIN (awaArtPrStelle f INNER JOIN awaPrStelle s ON "
         "f.ID_PS=s.ID_PS) ON "
         "a.ID_ART=f.ID_ART",
         "SELECT DISTINCT \"a\".\"ID_ART\" FROM \"awaArtPrStelle\" AS \"f\" INNER JOIN \"awaPrStelle\" AS "
         "\"s\" ON "
         "\"f\".\"ID_PS\" = \"s\".\"ID_PS\" INNER JOIN \"awaArt\" AS \"a\" ON \"a\".\"ID_ART\" = "
         "\"f\".\"ID_ART\""},
        {"SELECT DISTINCT a.ID_ART FROM awaArt a LEFT JOIN awaModulStandard m ON a.ID_ART=m.ID_ART",
         "SELECT DISTINCT \"a\".\"ID_ART\" FROM \"awaArt\" AS \"a\" LEFT JOIN \"awaModulStandard\" AS \"m\" "
         "ON "
         "\"a\".\"ID_ART\" = \"m\".\"ID_ART\""},
        {"SELECT DISTINCT a.ID_ART FROM awaModulStandard m RIGHT OUTER JOIN awaArt a ON a.ID_ART=m.ID_ART",
         "SELECT DISTINCT \"a\".\"ID_ART\" FROM \"awaArt\" AS \"a\" LEFT JOIN \"awaModulStandard\" AS \"m\" "
         "ON "
         "\"a\".\"ID_ART\" = \"m\".\"ID_ART\""},
        {"SELECT DISTINCT a.ID_ART FROM awaArt a, awaModulStandard m WHERE a.ID_ART=m.ID_ART",
         "SELECT DISTINCT \"a\".\"ID_ART\" FROM \"awaArt\" AS \"a\" INNER JOIN \"awaModulStandard\" AS \"m\" "
         "WHERE "
         "\"a\".\"ID_ART\" = \"m\".\"ID_ART\""},
        // Behind an outer join the brackets carry meaning and stay.
        {"SELECT DISTINCT a.ID_ART FROM awaArt a LEFT JOIN (awaArtPrStelle f INNER JOIN awaPrStelle s ON "
         "f.ID_PS=s.ID_PS) ON "
         "a.ID_ART=f.ID_ART",
         "SELECT DISTINCT \"a\".\"ID_ART\" FROM \"awaArt\" AS \"a\" LEFT JOIN (\"awaArtPrStelle\" AS \"f\" "
         "INNER JOIN "
         "\"awaPrStelle\" AS \"s\" ON \"f\".\"ID_PS\" = \"s\".\"ID_PS\") ON \"a\".\"ID_ART\" = "
         "\"f\".\"ID_ART\""},
    });
}

TEST(Pairs, Conditions) {
    const std::string from =
        "SELECT DISTINCT \"awaModulStandard\".\"ID_ART\" FROM \"awaModulStandard\" WHERE ";
    const std::vector<Pair> conditions{
        {"Algenart='Makroalge'", "\"awaModulStandard\".\"Algenart\" COLLATE FX_CI = ?1"},
        {"Algenart<>''", "\"awaModulStandard\".\"Algenart\" <> ''"},
        {"(awaModulStandard.Lebensform)=1", "\"awaModulStandard\".\"Lebensform\" = ?1"},
        {"SI=-1", "\"awaModulStandard\".\"SI\" = (?1)"},
        {"SI Is Null Or Algenart Is Not Null",
         "(\"awaModulStandard\".\"SI\" IS NULL) OR (\"awaModulStandard\".\"Algenart\" IS NOT NULL)"},
        {"IsNull([SI])", "\"awaModulStandard\".\"SI\" IS NULL"},
        {"Not SI>0", "NOT (\"awaModulStandard\".\"SI\" > ?1)"},
        {"SI IN(1,2)", "\"awaModulStandard\".\"SI\" IN (?1, ?2)"},
        {"Algenart NOT IN('A','B')", "\"awaModulStandard\".\"Algenart\" COLLATE FX_CI NOT IN (?1, ?2)"},
        {"SI BETWEEN 1 AND 2 AND X>0",
         "(\"awaModulStandard\".\"SI\" BETWEEN ?1 AND ?2) AND (\"awaModulStandard\".\"X\" > ?3)"},
        {"SI Not Between 1 And 2", "\"awaModulStandard\".\"SI\" NOT BETWEEN ?1 AND ?2"},
        {"Algenart LIKE '*alge*'", "fx_like(\"awaModulStandard\".\"Algenart\", ?1)"},
        {"Algenart Not Like 'M*'", "NOT fx_like(\"awaModulStandard\".\"Algenart\", ?1)"},
        {"[x]+[o]=10", "(\"awaModulStandard\".\"X\" + \"awaModulStandard\".\"O\") = ?1"},
        {"X/O>2", "fx_div(\"awaModulStandard\".\"X\", \"awaModulStandard\".\"O\") > ?1"},
        {"(SI>0)=True", "(-(\"awaModulStandard\".\"SI\" > ?1)) = -1"},
        {"Lebensform IN (SELECT ID_TR FROM awaPrStelle WHERE Anzeige=-1)",
         "\"awaModulStandard\".\"Lebensform\" IN (SELECT \"awaPrStelle\".\"ID_TR\" FROM \"awaPrStelle\" "
         "WHERE "
         "\"awaPrStelle\".\"Anzeige\" = (?1))"},
    };
    for (const Pair& pair : conditions) {
        const std::string written =
            std::string("SELECT DISTINCT ID_ART FROM awaModulStandard WHERE ") + pair.Written;
        const std::string translated = from + pair.Translated;
        ExpectPairs({{written.c_str(), translated.c_str()}});
    }
}

TEST(Pairs, Values) {
    const std::vector<Pair> values{
        {"[Gattung]+' cf. '+[Art]", "\"awaArt\".\"Gattung\" || ?1 || \"awaArt\".\"Art\""},
        {"Gattung & ' ' & Erstellt",
         "COALESCE(\"awaArt\".\"Gattung\", '') || ?1 || COALESCE(fx_text(\"awaArt\".\"Erstellt\", 7), '')"},
        {"Gattung & 5", "COALESCE(\"awaArt\".\"Gattung\", '') || fx_text(?1, 2)"},
        {"IIf(Loeschstatus,'X','')", "CASE WHEN \"awaArt\".\"Loeschstatus\" THEN ?1 ELSE ?2 END"},
        {"Format([Erstellt],'dd.mm.yyyy')", "fx_format(\"awaArt\".\"Erstellt\", 'dd.mm.yyyy', 7)"},
        {"CStr(ID_ART)", "fx_cstr(\"awaArt\".\"ID_ART\", 2)"},
        {"RF*2-1", "(\"awaArt\".\"RF\" * ?1) - ?2"},
        // What may have grown beyond 64 bits is checked where another such value or a product meets it.
        {"RF*2-RF*3", "(\"awaArt\".\"RF\" * ?1) - fx_finite(\"awaArt\".\"RF\" * ?2, 0)"},
        {"(RF+2)*RF", "fx_finite(\"awaArt\".\"RF\" + ?1, 0) * \"awaArt\".\"RF\""},
        {"ID_ART*2-ID_ART*3", "(\"awaArt\".\"ID_ART\" * ?1) - (\"awaArt\".\"ID_ART\" * ?2)"},
        // A chain needs no brackets on its left, a nested one does.
        // Null + Null is a number, though a text follows; the engine's || would take its right side first.
        {"Null+Null+Gattung", "(NULL + NULL) || \"awaArt\".\"Gattung\""},
        {"RF+1-2+3", "\"awaArt\".\"RF\" + ?1 - ?2 + ?3"},
        {"RF-(1-RF)", "\"awaArt\".\"RF\" - (?1 - \"awaArt\".\"RF\")"},
        {"- - -RF", "-(\"awaArt\".\"RF\")"},
        {"Not Not Not RF", "-(NOT \"awaArt\".\"RF\")"},
        {"IIf(RF>1,1,IIf(RF>2,3,4))",
         "CASE WHEN \"awaArt\".\"RF\" > ?1 THEN ?2 WHEN \"awaArt\".\"RF\" > ?3 THEN ?4 ELSE ?5 END"},
        {"IIf(RF>1,IIf(RF>2,3,4),5)",
         "CASE WHEN (\"awaArt\".\"RF\" > ?1) IS NOT TRUE THEN ?2 WHEN \"awaArt\".\"RF\" > ?3 THEN ?4 ELSE ?5 "
         "END"},
        {"-RF", "-(\"awaArt\".\"RF\")"},
        {"-True", "-(-1)"},
        {"RF>1", "-(\"awaArt\".\"RF\" > ?1)"},
        {"Null", "NULL"},
        {"#5/12/2026#", "?1"},
    };
    for (const Pair& pair : values) {
        const std::string written = std::string("SELECT ") + pair.Written + " AS w FROM awaArt";
        const std::string translated =
            std::string("SELECT ") + pair.Translated + " AS \"w\", \"awaArt\".rowid FROM \"awaArt\"";
        ExpectPairs({{written.c_str(), translated.c_str()}});
    }
}

TEST(Pairs, GroupsAndOrder) {
    ExpectPairs({
        // Without ORDER BY a grouped query comes in the order of its groups.
        {"SELECT ID_ART FROM awaArtPrStelle GROUP BY ID_ART;",
         "SELECT \"awaArtPrStelle\".\"ID_ART\" FROM \"awaArtPrStelle\" GROUP BY "
         "\"awaArtPrStelle\".\"ID_ART\" ORDER BY "
         "\"awaArtPrStelle\".\"ID_ART\""},
        {"SELECT Gattung, Count(*) AS n From awaArt GROUP BY Gattung HAVING Count(*)>1",
         "SELECT \"awaArt\".\"Gattung\", count(*) AS \"n\" FROM \"awaArt\" GROUP BY \"awaArt\".\"Gattung\" "
         "COLLATE FX_CI "
         "HAVING count(*) > ?1 ORDER BY \"awaArt\".\"Gattung\" COLLATE FX_DE"},
        {"SELECT Sum(Schalen_KA) AS [Summe_Schalen_KA] FROM awaArtPrStelle",
         "SELECT sum(\"awaArtPrStelle\".\"Schalen_KA\") AS \"Summe_Schalen_KA\" FROM \"awaArtPrStelle\""},
        {"SELECT Min(Gattung), Max(RF), Avg(RF) FROM awaArt",
         "SELECT min(\"awaArt\".\"Gattung\" COLLATE FX_DE), max(\"awaArt\".\"RF\"), avg(\"awaArt\".\"RF\") "
         "FROM \"awaArt\""},
        {"SELECT ID_ART FROM awaArt ORDER BY Gattung, RF DESC, Art ASC",
         "SELECT \"awaArt\".\"ID_ART\", \"awaArt\".rowid FROM \"awaArt\" ORDER BY \"awaArt\".\"Gattung\" "
         "COLLATE "
         "FX_DE, "
         "\"awaArt\".\"RF\" DESC, \"awaArt\".\"Art\" COLLATE FX_DE"},
        {"SELECT DISTINCT RF+1 AS Stelle, Art FROM awaArt ORDER BY Stelle, 2 DESC",
         "SELECT DISTINCT \"awaArt\".\"RF\" + ?1 AS \"Stelle\", (\"awaArt\".\"Art\") COLLATE FX_CI FROM "
         "\"awaArt\" ORDER BY "
         "(\"awaArt\".\"RF\" + ?1), \"awaArt\".\"Art\" COLLATE FX_DE DESC"},
        // A constant orders nothing.
        {"SELECT DISTINCT ID_ART FROM awaArt ORDER BY True",
         "SELECT DISTINCT \"awaArt\".\"ID_ART\" FROM \"awaArt\""},
    });
}

TEST(Pairs, Inserts) {
    ExpectPairs({
        {"INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES(17, 4, -1);",
         "INSERT INTO \"awaArtPrStelle\" (\"ID_PS\", \"ID_ART\", \"CF\") VALUES (?1, ?2, ?3)"},
        {"INSERT INTO awaTeilraum_MI VALUES (1, 2, Null)",
         "INSERT INTO \"awaTeilraum_MI\" (\"ID_TR_MI\", \"ID_TR\", \"DG_MI\") VALUES (?1, ?2, NULL)"},
        // Kinds that agree or fit go as they are, others are converted.
        {"INSERT INTO awaArtPrStelle (ID_PS, CF, DG_MA) SELECT ID_TR, ID_PS, ID_TR+1 FROM awaPrStelle",
         "INSERT INTO \"awaArtPrStelle\" (\"ID_PS\", \"CF\", \"DG_MA\") SELECT \"awaPrStelle\".\"ID_TR\", "
         "fx_to(\"awaPrStelle\".\"ID_PS\", 5), fx_to(\"awaPrStelle\".\"ID_TR\" + ?1, 3) FROM "
         "\"awaPrStelle\""},
        {"INSERT INTO awaArtPrStelle (ID_PS, CF) SELECT ID_TR, -1 FROM awaPrStelle GROUP BY ID_TR",
         "INSERT INTO \"awaArtPrStelle\" (\"ID_PS\", \"CF\") SELECT \"awaPrStelle\".\"ID_TR\", ?1 FROM "
         "\"awaPrStelle\" "
         "GROUP BY \"awaPrStelle\".\"ID_TR\" ORDER BY \"awaPrStelle\".\"ID_TR\""},
        {"INSERT INTO awaArtPrStelle SELECT ID_TR AS ID_PS FROM awaPrStelle",
         "INSERT INTO \"awaArtPrStelle\" (\"ID_PS\") SELECT \"awaPrStelle\".\"ID_TR\" FROM \"awaPrStelle\""},
    });
}

TEST(Pairs, DistinctRowsAreConvertedBehindTheComparison) {
    ExpectPairs({
        {"INSERT INTO awaArtPrStelle (ID_PS, CF) SELECT DISTINCT ID_TR, ID_PS FROM awaPrStelle",
         "INSERT INTO \"awaArtPrStelle\" (\"ID_PS\", \"CF\") WITH \"fx_rows\" (\"v0\", \"v1\") AS (SELECT "
         "DISTINCT "
         "\"awaPrStelle\".\"ID_TR\", \"awaPrStelle\".\"ID_PS\" FROM \"awaPrStelle\") SELECT \"v0\", "
         "fx_to(\"v1\", 5) FROM \"fx_rows\""},
    });
}

TEST(Pairs, InsertsIntoAnotherDatabase) {
    const std::string select =
        "SELECT \"awaTeilraum_MI\".\"ID_TR\", \"awaTeilraum_MI\".\"DG_MI\" FROM \"awaTeilraum_MI\"";
    for (const char* written : {"INSERT INTO rpt_awaAuswertung ( ID, TI ) IN 'C:\\Berichte\\O''Hara.db' "
                                "SELECT ID_TR, DG_MI FROM awaTeilraum_MI",
                                "INSERT INTO rpt_awaAuswertung IN 'C:\\Berichte\\O''Hara.db' (ID, TI) SELECT "
                                "ID_TR, DG_MI FROM awaTeilraum_MI"}) {
        SampleExternal external;
        const Translation translation = Translated(written, &external);
        EXPECT_EQ(translation.Sql, "INSERT INTO \"other\".\"rpt_awaAuswertung\" (\"ID\", \"TI\") " + select);
        EXPECT_EQ(external.AttachedPath, "C:\\Berichte\\O'Hara.db");
        EXPECT_EQ(translation.ExternalPath, "C:\\Berichte\\O'Hara.db");
        ASSERT_EQ(translation.Pins.size(), 1U);
        EXPECT_EQ(translation.Pins[0].Raw, "'C:\\Berichte\\O''Hara.db'");
    }
}

TEST(Pairs, Updates) {
    ExpectPairs({
        {"UPDATE awaPrStelle SET Anzeige=-1;", "UPDATE \"awaPrStelle\" SET \"Anzeige\" = ?1"},
        {"UPDATE DISTINCTROW awaPrStelle SET awaPrStelle.PSBez = [PSBez] & 'x' WHERE (Anzeige = True);",
         "UPDATE \"awaPrStelle\" SET \"PSBez\" = COALESCE(\"awaPrStelle\".\"PSBez\", '') || ?1 WHERE "
         "\"awaPrStelle\".\"Anzeige\" = -1"},
        {"UPDATE awaArtPrStelle SET DG_MA=[DG_MA]/2*100, Schalen_KA=Null WHERE ID_PS=3",
         "UPDATE \"awaArtPrStelle\" SET \"DG_MA\" = fx_to(fx_div(\"awaArtPrStelle\".\"DG_MA\", ?1) * ?2, 3), "
         "\"Schalen_KA\" = NULL WHERE \"awaArtPrStelle\".\"ID_PS\" = ?3"},
        {"UPDATE awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON awaArtPrStelle_MI.ID_TR_MI = "
         "awaTeilraum_MI.ID_TR_MI SET "
         "awaArtPrStelle_MI.ID_ART =5 WHERE ID_TR=1 AND ID_Art=2 AND CF=0 ;",
         "UPDATE \"awaArtPrStelle_MI\" SET \"ID_ART\" = ?1 WHERE \"awaArtPrStelle_MI\".rowid IN (SELECT "
         "\"awaArtPrStelle_MI\".rowid FROM \"awaArtPrStelle_MI\" INNER JOIN \"awaTeilraum_MI\" ON "
         "\"awaArtPrStelle_MI\".\"ID_TR_MI\" = \"awaTeilraum_MI\".\"ID_TR_MI\" WHERE "
         "(\"awaTeilraum_MI\".\"ID_TR\" = ?2) AND "
         "(\"awaArtPrStelle_MI\".\"ID_ART\" = ?3) AND (\"awaArtPrStelle_MI\".\"CF\" = ?4))"},
        {"UPDATE awaArtPrStelle_MI a INNER JOIN awaTeilraum_MI t ON a.ID_TR_MI=t.ID_TR_MI SET "
         "a.DG_MI=t.DG_MI",
         "UPDATE \"awaArtPrStelle_MI\" AS \"a\" SET \"DG_MI\" = \"fx_values\".\"v0\" FROM (SELECT "
         "\"a\".rowid AS \"id\", "
         "\"t\".\"DG_MI\" AS \"v0\" FROM \"awaArtPrStelle_MI\" AS \"a\" INNER JOIN \"awaTeilraum_MI\" AS "
         "\"t\" ON "
         "\"a\".\"ID_TR_MI\" = \"t\".\"ID_TR_MI\") AS \"fx_values\" WHERE \"a\".rowid = "
         "\"fx_values\".\"id\""},
    });
}

TEST(Pairs, Deletes) {
    ExpectPairs({
        {"DELETE * FROM awaPrStelle;", "DELETE FROM \"awaPrStelle\""},
        {"DELETE FROM awaPrStelle WHERE ID_PS=1",
         "DELETE FROM \"awaPrStelle\" WHERE \"awaPrStelle\".\"ID_PS\" = ?1"},
        {"DELETE DISTINCTROW awaArtPrStelle_MI.* FROM awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON "
         "awaArtPrStelle_MI.ID_TR_MI = awaTeilraum_MI.ID_TR_MI WHERE ((awaTeilraum_MI.ID_TR=1) AND "
         "(awaArtPrStelle_MI.CF=False));",
         "DELETE FROM \"awaArtPrStelle_MI\" WHERE \"awaArtPrStelle_MI\".rowid IN (SELECT "
         "\"awaArtPrStelle_MI\".rowid FROM "
         "\"awaArtPrStelle_MI\" INNER JOIN \"awaTeilraum_MI\" ON \"awaArtPrStelle_MI\".\"ID_TR_MI\" = "
         "\"awaTeilraum_MI\".\"ID_TR_MI\" WHERE (\"awaTeilraum_MI\".\"ID_TR\" = ?1) AND "
         "(\"awaArtPrStelle_MI\".\"CF\" = 0))"},
    });
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
