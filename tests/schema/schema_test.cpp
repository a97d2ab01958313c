#include <gmock/gmock.h>

#include <map>
#include <set>

#include "FX_Algen/Error.h"
#include "TestDatabase.h"
#include "store/Strings.h"

namespace FX_Algen::store {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::int32_t NumberOf(TestDatabase& db, const std::string& sql) {
    try {
        db.Run(sql);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

// ---- kinds ---------------------------------------------------------------------------------------

TEST(Schema, EveryColumnHasATypeThatCarriesItsKind) {
    const std::set<std::string> kinds{"SMALLINT", "INTEGER", "FLOAT", "DOUBLE",
                                      "BOOLEAN",  "TEXT",    "DATE",  "TIME"};
    for (const auto kind : {DatabaseKind::Project, DatabaseKind::Main, DatabaseKind::Report}) {
        TestDatabase db(kind);
        for (const auto& row : db.Rows(
                 "SELECT m.name || '.' || c.name, c.type FROM sqlite_master m, pragma_table_info(m.name) c "
                 "WHERE m.type='table' AND m.name NOT LIKE 'sqlite_%'")) {
            const auto bar = row.find('|');
            EXPECT_TRUE(kinds.contains(row.substr(bar + 1))) << row;
        }
    }
}

struct ColumnCase {
    const char* Column;
    const char* Type;
};

TEST(Schema, KindsOfTheColumnsThatTheCalculationRestsOn) {
    TestDatabase db;
    // Ratings are read as 64-bit numbers, covers as 32-bit floats, valves as whole numbers.
    for (const ColumnCase& c : std::vector<ColumnCase>{{"awaModulStandard.SI", "DOUBLE"},
                                                       {"awaModulStandard.Sap_GBer", "DOUBLE"},
                                                       {"awaModulStandard.AP", "DOUBLE"},
                                                       {"awaModulStandard.Trophiegewicht_N", "DOUBLE"},
                                                       {"awaTeilraum.DG_Gesamt", "FLOAT"},
                                                       {"awaTeilraum.MitBewuchsdichte_WRRL", "FLOAT"},
                                                       {"awaTeilraum_MI.DG_MI", "FLOAT"},
                                                       {"awaArtPrStelle.DG_MA", "FLOAT"},
                                                       {"awaArtPrStelle.Schalen_KA", "INTEGER"},
                                                       {"awaErgProjekt.SapIndex", "FLOAT"},
                                                       {"awaErgProjekt.AMI", "DOUBLE"},
                                                       {"awaErgProjekt.Taxa", "DOUBLE"},
                                                       {"awaErgProjekt.ANZ_Gueteklasse_II_III", "SMALLINT"},
                                                       {"awaErgWRRL.OEZK", "SMALLINT"},
                                                       {"awaErgWRRL.TaxazahlArtniveauNKA", "INTEGER"},
                                                       {"awaErgWRRL.TGZK", "TEXT"},
                                                       {"awaWRRL_SGZK.Gueteklasse", "SMALLINT"},
                                                       {"awaWRRL_TGZK.Hoehenstufe", "SMALLINT"},
                                                       {"VerUStelle.USDatumVon", "DATE"},
                                                       {"VerUStelle.USZeitVon", "TIME"},
                                                       {"awaFundarchiv.Häufigkeit", "TEXT"}}) {
        const std::string name = c.Column;
        const auto dot = name.find('.');
        EXPECT_EQ(db.One("SELECT type FROM pragma_table_info('" + name.substr(0, dot) + "') WHERE name='" +
                         name.substr(dot + 1) + "'"),
                  c.Type)
            << c.Column;
    }
}

TEST(Schema, UsesNothingThatOtherToolsDoNotHave) {
    for (const auto kind : {DatabaseKind::Project, DatabaseKind::Main, DatabaseKind::Report}) {
        TestDatabase db(kind);
        EXPECT_THAT(
            db.Rows("SELECT name FROM sqlite_master WHERE sql LIKE '%COLLATE%' OR sql LIKE '%VIRTUAL%'"),
            IsEmpty());
    }
}

TEST(Schema, ABooleanIsMinusOneOrZeroAndMayBeNull) {
    TestDatabase db;
    EXPECT_EQ(NumberOf(db, "INSERT INTO Teilraum (Anzeige) VALUES (-1)"), 0);
    EXPECT_EQ(NumberOf(db, "INSERT INTO Teilraum (Anzeige) VALUES (0)"), 0);
    EXPECT_EQ(NumberOf(db, "INSERT INTO Teilraum (Anzeige) VALUES (NULL)"), 0);
    EXPECT_NE(NumberOf(db, "INSERT INTO Teilraum (Anzeige) VALUES (1)"), 0);
    // Every column of the kind has the check.
    EXPECT_THAT(db.Rows("SELECT m.name || '.' || c.name FROM sqlite_master m, pragma_table_info(m.name) c "
                        "WHERE m.type='table' AND c.type='BOOLEAN' "
                        "AND instr(m.sql, 'CHECK (' || c.name || ' IN (-1, 0))') = 0"),
                IsEmpty());
}

// ---- keys ----------------------------------------------------------------------------------------

TEST(Schema, KeysOfTheTables) {
    TestDatabase db;
    const std::map<std::string, std::string> keys{{"awaArtPrStelle", "ID_PS,ID_ART,CF"},
                                                  {"awaArtPrStelle_MI", "ID_TR_MI,ID_ART,CF"},
                                                  {"sesArtPrStelle", "ID_PS,ID_ART,CF"},
                                                  {"awaErgProjekt", "ID,KAOnly"},
                                                  {"awaErgWRRL", "ID,KAOnly"},
                                                  {"sesErgProjekt", "ID"},
                                                  {"awaTeilraum", "ID_TR"},
                                                  {"awaModulStandard", "ID_ART"},
                                                  {"awaWRRL_TGZK", "ID_AL_Bioregion,Hoehenstufe"},
                                                  {"awaWRRL_Klasse", "Klassenzahl"},
                                                  {"sesErgProjektTmp", "Null"},
                                                  {"awaArtenlisteHaeufigkeit", "Null"},
                                                  {"awaWRRL_TIOEZK", "Null"}};
    for (const auto& [table, key] : keys)
        EXPECT_EQ(db.One("SELECT group_concat(name) FROM (SELECT name FROM pragma_table_info('" + table +
                         "') WHERE pk > 0 ORDER BY pk)"),
                  key)
            << table;
}

TEST(Schema, ReportTablesHaveNoKey) {
    TestDatabase db(DatabaseKind::Report);
    EXPECT_THAT(db.Rows("SELECT m.name FROM sqlite_master m, pragma_table_info(m.name) c "
                        "WHERE m.type='table' AND c.pk > 0"),
                IsEmpty());
}

TEST(Schema, ATaxonMayStandAtASiteWithAndWithoutCfButNotTwice) {
    TestDatabase db;
    db.Run("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 7, 0), (1, 7, -1)");
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 7, 0)"),
              ErrorNumber::DuplicateKey);
}

TEST(Schema, NormalAndDiatomRowOfOneSubHabitatStandSideBySide) {
    TestDatabase db;
    db.Run("INSERT INTO awaErgProjekt (ID, KAOnly) VALUES (17, 0), (17, -1)");
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaErgProjekt (ID) VALUES (17)"), ErrorNumber::DuplicateKey);
}

TEST(Schema, ACounterNeverGivesANumberOutTwice) {
    TestDatabase db;
    const std::map<std::string, std::string> counters{{"awaArt", "ID_ART"},
                                                      {"awaPrStelle", "ID_PS"},
                                                      {"awaTeilraum_MI", "ID_TR_MI"},
                                                      {"awaSynArt", "ID_SYNART"},
                                                      {"awaArtBild", "ID_ArtBild"},
                                                      {"awaUnterFam", "ID_UFAM"},
                                                      {"awaReich", "ID_REICH"},
                                                      {"Teilraum", "ID_TR"},
                                                      {"Projekt", "ID_PRJ"},
                                                      {"sesArt", "ID_ART"},
                                                      {"sesPrStelle", "ID_PS"},
                                                      {"RechenProjekt", "ID_RechMan"},
                                                      {"AL_Bioregion", "ID_AL_Bioregion"}};
    for (const auto& [table, key] : counters) {
        db.Run("INSERT INTO " + table + " (" + key + ") VALUES (5)");
        db.Run("DELETE FROM " + table + " WHERE " + key + "=5");
        db.Run("INSERT INTO " + table + " DEFAULT VALUES");
        EXPECT_EQ(db.One("SELECT " + key + " FROM " + table), "6") << table;
    }
}

// ---- defaults ------------------------------------------------------------------------------------

TEST(Schema, NumbersAndFlagsOfEntryTablesDefaultToZero) {
    TestDatabase db;
    const std::set<std::string> references{"ID_TR", "ID_Klasse"};
    for (const std::string table : {"awaTeilraum", "awaTeilraum_MI", "awaArtPrStelle", "awaArtPrStelle_MI",
                                    "awaModulStandard", "sesArt", "sesArtPrStelle"}) {
        for (const auto& row :
             db.Rows("SELECT name, coalesce(dflt_value, 'Null'), type FROM pragma_table_info('" + table +
                     "') WHERE pk = 0 OR name='CF'")) {
            const std::string column = row.substr(0, row.find('|'));
            const bool text = row.ends_with("|TEXT") || row.ends_with("|DATE");
            const std::string expected = text || references.contains(column) ? "|Null|" : "|0|";
            EXPECT_NE(row.find(expected), std::string::npos) << table << ": " << row;
        }
    }
}

TEST(Schema, ARowInsertedByItsKeysAloneCanBeCalculated) {
    TestDatabase db;
    db.Run("INSERT INTO awaTeilraum (ID_TR) VALUES (1)");
    EXPECT_EQ(db.One("SELECT DG_Gesamt, DG_MA, DG_Gesamt_WRRL, MitBewuchsdichte FROM awaTeilraum"),
              "0.0|0.0|0.0|0.0");
    db.Run("INSERT INTO awaModulStandard (ID_ART) VALUES (1)");
    EXPECT_EQ(db.One("SELECT SI, X, Sap_GBer, Trophiewert, Lebensform, BSBSaprobie, Algenart, Abundanz "
                     "FROM awaModulStandard"),
              "0.0|0.0|0.0|0.0|0|0|Null|Null");
    db.Run("INSERT INTO awaArtPrStelle (ID_PS, ID_ART) VALUES (1, 1)");
    EXPECT_EQ(db.One("SELECT CF, MAalsMI, DG_MA, SD_MA, Schalen_KA, DG_MP FROM awaArtPrStelle"),
              "0|0|0.0|0.0|0|0.0");
}

TEST(Schema, ANumberOfAnEntryTableMayBeNull) {
    TestDatabase db;
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (1, NULL)"), 0);
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaModulStandard (ID_ART, SI) VALUES (1, NULL)"), 0);
}

TEST(Schema, MarksAndDeletionDefaults) {
    TestDatabase db;
    db.Run("INSERT INTO Teilraum (ID_VUS) VALUES (1); INSERT INTO awaPrStelle (ID_TR) VALUES (1)");
    db.Run("INSERT INTO awaArt (Gattung) VALUES ('Fragilaria')");
    EXPECT_EQ(db.One("SELECT Anzeige FROM Teilraum"), "-1");
    EXPECT_EQ(db.One("SELECT Anzeige FROM awaPrStelle"), "-1");
    EXPECT_EQ(db.One("SELECT Loeschstatus, IstArtniveau, ID_UFAM FROM awaArt"), "0|0|Null");
}

TEST(Schema, ResultColumnsAreNullUntilWrittenButFlagsAndTheCountOfRatedRows) {
    TestDatabase db;
    for (const std::string table : {"awaErgProjekt", "awaErgWRRL", "sesErgProjekt", "sesErgProjektTmp"}) {
        for (const auto& row : db.Rows("SELECT type || ' ' || name, coalesce(dflt_value, 'Null') FROM "
                                       "pragma_table_info('" +
                                       table + "')")) {
            const bool zero = row.starts_with("BOOLEAN ") || row.starts_with("SMALLINT n|");
            EXPECT_TRUE(row.ends_with(zero ? "|0" : "|Null")) << table << ": " << row;
        }
    }
    db.Run("INSERT INTO awaErgProjekt (ID) VALUES (17)");
    EXPECT_EQ(db.One("SELECT XENO, KUMPOLY, TAXAMA, SI_Streuung_W, AMI, IstWRRL FROM awaErgProjekt"),
              "Null|Null|Null|Null|Null|0");
}

// ---- references ----------------------------------------------------------------------------------

TEST(Schema, TheTaxaOfAStandGoWithIt) {
    TestDatabase db;
    db.Run("INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR) VALUES (1, 1), (2, 1)");
    db.Run("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART) VALUES (1, 5), (1, 6), (2, 5)");
    db.Run("DELETE FROM awaTeilraum_MI WHERE ID_TR_MI=1");
    EXPECT_THAT(db.Rows("SELECT ID_TR_MI, ID_ART FROM awaArtPrStelle_MI"), ElementsAre("2|5"));
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART) VALUES (9, 5)"),
              ErrorNumber::RowIsReferredTo);
}

TEST(Schema, TheEngineEnforcesNoOtherReference) {
    TestDatabase db;
    EXPECT_THAT(db.Rows("SELECT m.name FROM sqlite_master m, pragma_foreign_key_list(m.name) f"),
                ElementsAre("awaArtPrStelle_MI"));
}

/// Tables of the levels with their keys, from the highest.
const std::vector<std::pair<std::string, std::string>>& Levels() {
    static const std::vector<std::pair<std::string, std::string>> levels{{"awaReich", "ID_REICH"},
                                                                         {"awaUnterreich", "ID_UREICH"},
                                                                         {"awaStamm", "ID_STAMM"},
                                                                         {"awaUnterstamm", "ID_USTAMM"},
                                                                         {"awaUeberklasse", "ID_UEKLASSE"},
                                                                         {"awaKlasse", "ID_KLASSE"},
                                                                         {"awaZwgrKlasse", "ID_ZGKLASSE"},
                                                                         {"awaUnterklasse", "ID_UKLASSE"},
                                                                         {"awaUeberordnung", "ID_UEORDNUNG"},
                                                                         {"awaOrdnung", "ID_ORDNUNG"},
                                                                         {"awaUnterordnung", "ID_UORDNUNG"},
                                                                         {"awaInfraordnung", "ID_IORDNUNG"},
                                                                         {"awaZwgrOrdnung", "ID_ZGORDNUNG"},
                                                                         {"awaFamilienreihe", "ID_FAMREIHE"},
                                                                         {"awaZwgrReihe1", "ID_ZGREIHE1"},
                                                                         {"awaZwgrReihe2", "ID_ZGREIHE2"},
                                                                         {"awaUeberfamilie", "ID_UEFAM"},
                                                                         {"awaFamilie", "ID_FAM"},
                                                                         {"awaUnterFam", "ID_UFAM"}};
    return levels;
}

/// Two chains 1 and 2 from top to bottom, each with one taxon of that number.
void TwoChains(TestDatabase& db) {
    for (const std::string id : {"1", "2"}) {
        for (std::size_t i = 0; i < Levels().size(); ++i) {
            const auto& [table, key] = Levels()[i];
            const std::string parent = i == 0 ? "" : ", " + Levels()[i - 1].second;
            db.Run("INSERT INTO " + table + " (" + key + parent + ") VALUES (" + id +
                   (i == 0 ? "" : ", " + id) + ")");
        }
        db.Run("INSERT INTO awaArt (ID_ART, ID_UFAM) VALUES (" + id + ", " + id + ")");
    }
}

TEST(Schema, DeletingALevelDeletesWhatHangsBelowItDownToTheTaxa) {
    TestDatabase db;
    TwoChains(db);
    for (std::size_t level = 0; level < Levels().size(); ++level) {
        db.Run("BEGIN");
        const auto& [table, key] = Levels()[level];
        db.Run("DELETE FROM " + table + " WHERE " + key + "=1");
        for (std::size_t i = 0; i < Levels().size(); ++i)
            EXPECT_EQ(db.One("SELECT group_concat(" + Levels()[i].second + ") FROM " + Levels()[i].first),
                      i < level ? "1,2" : "2")
                << table << " -> " << Levels()[i].first;
        EXPECT_EQ(db.One("SELECT group_concat(ID_ART) FROM awaArt"), "2") << table;
        db.Run("ROLLBACK");
    }
}

TEST(Schema, FindingsRatingsAndSynonymsOfADeletedTaxonKeepItsKey) {
    TestDatabase db;
    TwoChains(db);
    db.Run("INSERT INTO awaArtPrStelle (ID_PS, ID_ART) VALUES (1, 1)");
    db.Run("INSERT INTO awaModulStandard (ID_ART) VALUES (1)");
    db.Run("INSERT INTO awaSynArt (ID_SYN, SynGattung) VALUES (1, 'Ulothrix')");
    db.Run("DELETE FROM awaStamm WHERE ID_STAMM=1");
    EXPECT_EQ(db.One("SELECT ID_ART FROM awaArtPrStelle"), "1");
    EXPECT_EQ(db.One("SELECT ID_ART FROM awaModulStandard"), "1");
    EXPECT_EQ(db.One("SELECT ID_SYN FROM awaSynArt"), "1");
}

TEST(Schema, AChainMayLackRowsAndSubfamilyZeroInserts) {
    TestDatabase db;
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaArt (ID_UFAM, Gattung, Art) VALUES (0, '<NEU>', '<NEU>')"), 0);
    EXPECT_EQ(NumberOf(db, "INSERT INTO awaUnterFam (ID_FAM, Unterfamilie) VALUES (99, 'ohne Familie')"), 0);
}

TEST(Schema, BothViewsShowTheKingdoms) {
    TestDatabase db;
    db.Run("INSERT INTO awaReich (ID_REICH, Reich) VALUES (3, 'Überreich')");
    EXPECT_EQ(db.One("SELECT Reich, ID_REICH FROM Reich"), "Überreich|3");
    EXPECT_EQ(db.One("SELECT Reich, ID_REICH FROM awaUReich"), "Überreich|3");
}

// ---- indexes -------------------------------------------------------------------------------------

TEST(Schema, EveryKeyThatRefersToAnotherTableIsIndexed) {
    TestDatabase db;
    // An index, or the key, that begins with the column. Keys of other tables begin with ID_; those of the
    // result tables and of the frequency list are not joined from.
    EXPECT_THAT(
        db.Rows("SELECT m.name || '.' || c.name FROM sqlite_master m, pragma_table_info(m.name) c "
                "WHERE m.type='table' AND c.name LIKE 'ID\\_%' ESCAPE '\\' AND c.pk <> 1 "
                "AND m.name <> 'awaArtenlisteHaeufigkeit' "
                "AND NOT EXISTS (SELECT 1 FROM pragma_index_list(m.name) l, pragma_index_info(l.name) i "
                "WHERE i.seqno = 0 AND i.name = c.name)"),
        IsEmpty());
}

TEST(Schema, AStatementAboutOneSubHabitatBeginsAtTheSubHabitat) {
    TestDatabase db;
    // The statement that counts taxa of an assessment: the plan must not begin at a flag of the taxa.
    const auto plan = db.Rows(
        "EXPLAIN QUERY PLAN SELECT awaArtPrStelle.ID_ART FROM awaPrStelle "
        "JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS "
        "JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART "
        "JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM "
        "JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM "
        "JOIN awaModulStandard ON awaArt.ID_ART = awaModulStandard.ID_ART "
        "WHERE awaPrStelle.ID_TR = 5 AND awaModulStandard.Lebensform = 1 AND awaFamilie.ID_GRGR = 128 "
        "AND awaArt.IstArtniveau = -1 GROUP BY awaArtPrStelle.ID_ART");
    ASSERT_FALSE(plan.empty());
    EXPECT_NE(plan.front().find("SEARCH awaPrStelle"), std::string::npos) << plan.front();
}

// ---- first rows ----------------------------------------------------------------------------------

TEST(FirstRows, CatalogueOne) {
    TestDatabase db;
    EXPECT_EQ(db.One("SELECT ID_KAT FROM awaKatalog"), "1");
}

TEST(FirstRows, MajorGroupsOfTheRulesAreThere) {
    TestDatabase db;
    for (const std::string id : {"128", "132", "133", "134", "135", "136", "137"})
        EXPECT_EQ(db.One("SELECT count(*) FROM awaGrossGr WHERE ID_GRGR=" + id), "1") << id;
    EXPECT_EQ(db.One("SELECT Grossgruppe FROM awaGrossGr WHERE ID_GRGR=128"), "KIESELALGEN");
    // The frequency list takes this column for "is a diatom", the taxa list orders macrophytes by it.
    EXPECT_EQ(db.One("SELECT group_concat(ID_GRGR) FROM awaGrossGr WHERE RF_Kieselalge=1"), "128");
    EXPECT_EQ(db.One("SELECT group_concat(ID_GRGR) FROM awaGrossGr WHERE RF_Kieselalge>=100"),
              "132,135,136,137");
}

TEST(FirstRows, KindsOfAlgaeAndLifeForms) {
    TestDatabase db;
    EXPECT_THAT(db.Rows("SELECT Algenart FROM awaAL_Algenart ORDER BY RF"),
                ElementsAre("Null", "Makroalge", "Mikroalge"));
    EXPECT_THAT(db.Rows("SELECT ID_AL_Lebensform, Lebensform FROM awaAL_Lebensform ORDER BY RF"),
                ElementsAre("0|", "1|benthisch"));
}

TEST(FirstRows, TheLevelsOfTheTaxonomyInTheirOrder) {
    TestDatabase db;
    EXPECT_THAT(db.Rows("SELECT seUebersicht_RF || ' ' || Ebene FROM awaseUebersicht"),
                ElementsAre("1 Reich", "2 Unterreich", "3 Stamm", "4 Unterstamm", "5 Überklasse", "6 Klasse",
                            "7 Zwischengruppe-Klasse", "8 Unterklasse", "9 Überordnung", "10 Ordnung",
                            "11 Unterordnung", "12 Infraordnung", "13 Zwischengruppe-Ordnung",
                            "14 Familienreihe", "15 Zwischengruppe 1", "16 Zwischengruppe 2",
                            "17 Überfamilie", "18 Familie", "19 Unterfamilie", "20 Gattung", "21 Art"));
}

TEST(FirstRows, EveryGridColumnOfBothOverviewsIsDefined) {
    TestDatabase db;
    EXPECT_EQ(db.One("SELECT count(*), min(SpaltenIndex), max(SpaltenIndex) FROM awaKatalogfeldDefinition"),
              "24|1|24");
    EXPECT_EQ(db.One("SELECT count(*), min(SpaltenIndex), max(SpaltenIndex) FROM sesKatalogfeldDefinition"),
              "13|1|13");
    for (const std::string table : {"awaKatalogfeldDefinition", "sesKatalogfeldDefinition"}) {
        EXPECT_EQ(db.One("SELECT count(*) FROM " + table +
                         " WHERE ColWidthUser<>ColWidthDefault OR ColSortUser<>ColSortDefault OR "
                         "coalesce(ColSortField,'')='' OR ColWidthUser<1 OR ResID_Label<1"),
                  "0")
            << table;
    }
    EXPECT_THAT(db.Rows("SELECT ColSortField FROM awaKatalogfeldDefinition WHERE ColSortUser=1"),
                ElementsAre("awaArt.Gattung", "awaArt.Art"));
    // The key of the row stays hidden and is not offered.
    EXPECT_EQ(db.One("SELECT IstVisible, IstEditable FROM awaKatalogfeldDefinition WHERE SpaltenIndex=4"),
              "0|0");
}

TEST(FirstRows, HeadingsOfTheColumnsThatCarryAKnownText) {
    TestDatabase db;
    const auto heading = [&](const std::string& table, int column) {
        return Text(
            static_cast<std::int16_t>(std::stoi(db.One("SELECT ResID_Label FROM " + table +
                                                       " WHERE SpaltenIndex=" + std::to_string(column)))),
            10000);
    };
    EXPECT_EQ(heading("awaKatalogfeldDefinition", 2), "Familie");
    EXPECT_EQ(heading("awaKatalogfeldDefinition", 5), "Gattung");
    EXPECT_EQ(heading("awaKatalogfeldDefinition", 8), "Art");
    EXPECT_EQ(heading("awaKatalogfeldDefinition", 18), "Angelegt am");
    EXPECT_EQ(heading("awaKatalogfeldDefinition", 22), "Algenart");
    EXPECT_EQ(heading("sesKatalogfeldDefinition", 3), "Klasse");
    EXPECT_EQ(heading("sesKatalogfeldDefinition", 13), "SI");
}

TEST(FirstRows, EveryHeadingHasATextInBothLanguages) {
    TestDatabase db;
    for (const std::string table : {"awaKatalogfeldDefinition", "sesKatalogfeldDefinition"})
        for (const auto& label : db.Rows("SELECT ResID_Label FROM " + table))
            for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{20000}})
                EXPECT_NO_THROW(EXPECT_FALSE(Text(static_cast<std::int16_t>(std::stoi(label)), base).empty()))
                    << table << " " << label;
}

TEST(FirstRows, TheFrequencyListIsThereAndEmpty) {
    TestDatabase db;
    EXPECT_THAT(db.Rows("SELECT name FROM pragma_table_info('awaArtenlisteHaeufigkeit')"),
                ElementsAre("ID_Art", "CF", "IstKA", "MAalsMI"));
    EXPECT_EQ(db.One("SELECT count(*) FROM awaArtenlisteHaeufigkeit"), "0");
}

}  // namespace
}  // namespace FX_Algen::store
