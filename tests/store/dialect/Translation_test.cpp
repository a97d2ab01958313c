#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SampleCatalogue.h"

// What a translation tells besides its text: parameters, pins, result columns, row identities, failures.
namespace FX_Algen::store::dialect::testing {
namespace {

std::vector<std::string> NamesOf(std::string_view statement) {
    std::vector<std::string> names;
    for (const ResultColumn& column : Translated(statement).Columns) names.push_back(column.Name);
    return names;
}

using Names = std::vector<std::string>;

TEST(ResultColumns, AreNamedAsTheirColumnOrAlias) {
    EXPECT_EQ(NamesOf("SELECT id_art, gattung AS Name, RF+1, Count(*) AS n, Art & 'x' FROM awaArt GROUP BY "
                      "id_art, gattung, RF, Art"),
              (Names{"ID_ART", "Name", "Expr1000", "n", "Expr1001"}));
}

TEST(ResultColumns, ThatRepeatSayTheirTable) {
    EXPECT_EQ(NamesOf("SELECT s.ID_PS, f.ID_PS, s.PSBez FROM awaPrStelle s INNER JOIN awaArtPrStelle AS f ON "
                      "s.ID_PS=f.ID_PS"),
              (Names{"s.ID_PS", "f.ID_PS", "PSBez"}));
    EXPECT_EQ(
        NamesOf("SELECT awaTeilraum_MI.*, awaPrStelle.ID_TR FROM awaTeilraum_MI INNER JOIN awaPrStelle ON "
                "awaTeilraum_MI.ID_TR=awaPrStelle.ID_TR"),
        (Names{"ID_TR_MI", "awaTeilraum_MI.ID_TR", "DG_MI", "awaPrStelle.ID_TR"}));
    // An alias keeps its name; the same column twice has one name to give.
    EXPECT_EQ(NamesOf("SELECT PSBez AS ID_TR, ID_TR FROM awaPrStelle"),
              (Names{"ID_TR", "awaPrStelle.ID_TR"}));
    EXPECT_EQ(NamesOf("SELECT ID_TR, ID_TR FROM awaPrStelle"), (Names{"awaPrStelle.ID_TR", "Expr1000"}));
}

TEST(ResultColumns, StarsFollowTheOrderOfTheTextEvenThroughARightJoin) {
    EXPECT_EQ(
        NamesOf("SELECT * FROM awaTeilraum_MI RIGHT JOIN Reich ON awaTeilraum_MI.ID_TR = Reich.ID_REICH"),
        (Names{"ID_TR_MI", "ID_TR", "DG_MI", "Reich", "ID_REICH"}));
}

TEST(ResultColumns, HaveTheKindOfTheirExpression) {
    struct Case {
        const char* Expression;
        Kind Expected;
    };
    const std::vector<Case> cases{
        {"ID_ART", Kind::I4},
        {"Gattung", Kind::Text},
        {"Erstellt", Kind::Date},
        {"Loeschstatus", Kind::Bool},
        {"ID_ART+1", Kind::I4},
        {"ID_ART+RF", Kind::R8},
        {"ID_ART/2", Kind::R8},
        {"Gattung+Art", Kind::Text},
        {"Gattung & ID_ART", Kind::Text},
        {"RF>1", Kind::Bool},
        {"IsNull(RF)", Kind::Bool},
        {"IIf(RF>1,ID_ART,RF)", Kind::R8},
        {"IIf(RF>1,'A',Null)", Kind::Text},
        {"IIf(RF>1,'A',RF)", Kind::Text},
        {"IIf(RF>1,Erstellt,'A')", Kind::Text},
        {"IIf(RF>1,Erstellt,RF)", Kind::Null},
        {"Format(RF,'0.0')", Kind::Text},
        {"'0'", Kind::Text},
        {"7", Kind::I4},
        {"-7.5", Kind::R8},
        {"#1/2/2026#", Kind::Date},
        {"True", Kind::Bool},
        {"Null", Kind::Null},
        {"Count(*)", Kind::I4},
        {"Sum(ID_ART)", Kind::R8},
        {"Avg(ID_ART)", Kind::R8},
        {"Max(Erstellt)", Kind::Date},
        {"Min(ID_ART)", Kind::I4},
    };
    for (const Case& c : cases) {
        const std::string statement = std::string("SELECT ") + c.Expression + " AS w FROM awaArt";
        EXPECT_EQ(Translated(statement).Columns.at(0).Type, c.Expected) << c.Expression;
    }
}

TEST(ResultColumns, OfPlainColumnsTellTableAndColumn) {
    const Translation translation =
        Translated("SELECT t.dg_mi AS Deckung, t.DG_MI*2 AS Doppelt FROM awaTeilraum_MI t");
    EXPECT_EQ(translation.Columns[0].Alias, "t");
    EXPECT_EQ(translation.Columns[0].Table, "awaTeilraum_MI");
    EXPECT_EQ(translation.Columns[0].Column, "DG_MI");
    EXPECT_FALSE(translation.Columns[1].Table.has_value());
}

TEST(RowIdentities, StandBehindResultsThatCanBeChanged) {
    const auto aliases = [](std::string_view statement) {
        Names names;
        for (const RowIdColumn& column : Translated(statement).RowIds)
            names.push_back(column.Alias + "=" + column.Table);
        return names;
    };
    EXPECT_EQ(aliases("SELECT * FROM awaArt"), (Names{"awaArt=awaArt"}));
    EXPECT_EQ(aliases("SELECT DISTINCTROW s.ID_PS, f.DG_MA FROM awaPrStelle s INNER JOIN awaArtPrStelle f ON "
                      "s.ID_PS=f.ID_PS"),
              (Names{"s=awaPrStelle", "f=awaArtPrStelle"}));
    // A table of a join that shows no column cannot be changed.
    EXPECT_EQ(aliases("SELECT f.DG_MA FROM awaPrStelle s INNER JOIN awaArtPrStelle f ON s.ID_PS=f.ID_PS"),
              (Names{"f=awaArtPrStelle"}));
    for (const char* statement :
         {"SELECT DISTINCT ID_ART FROM awaArt", "SELECT Count(*) FROM awaArt",
          "SELECT ID_ART FROM awaArt GROUP BY ID_ART", "SELECT * FROM Reich",
          "SELECT awaArt.ID_ART FROM awaArt INNER JOIN Reich ON awaArt.ID_ART=Reich.ID_REICH"}) {
        EXPECT_TRUE(aliases(statement).empty()) << statement;
    }
}

TEST(Parameters, CarryTheKindOfTheColumnTheyAreWrittenTo) {
    const Translation translation =
        Translated("INSERT INTO awaArt (ID_UFAM, Loeschstatus, Erstellt) VALUES (3, -1, #1/2/2026#)");
    ASSERT_EQ(translation.Bindings.size(), 3U);
    EXPECT_EQ(translation.Bindings[0].ConvertTo, Kind::I4);
    EXPECT_FALSE(translation.Bindings[0].Negate);
    EXPECT_EQ(translation.Bindings[1].ConvertTo, Kind::Bool);
    EXPECT_TRUE(translation.Bindings[1].Negate);
    EXPECT_EQ(translation.Bindings[2].ConvertTo, Kind::Date);
    EXPECT_TRUE(translation.Bindings[2].DayOnly);
    EXPECT_EQ(translation.Is, Translation::Verb::Insert);
    EXPECT_EQ(translation.Target, "awaArt");
}

TEST(Parameters, OfATimeColumnKeepTheTime) {
    const Translation translation = Translated("UPDATE VerUStelle SET USZeitVon=#9:30:00# WHERE ID_VUS=1");
    EXPECT_FALSE(translation.Bindings.at(0).DayOnly);
    EXPECT_EQ(translation.Bindings.at(1).ConvertTo, Kind::Null);
}

TEST(Parameters, OfAPatternAreMarked) {
    EXPECT_TRUE(Translated("SELECT ID_ART FROM awaArt WHERE Gattung LIKE 'C*'").Bindings.at(0).IsPattern);
}

TEST(Parameters, StandInTheOrderOfTheirNumbersAndSkipPins) {
    const Translation translation =
        Translated("SELECT Format(Erstellt,'yyyy') AS j FROM awaArt WHERE Gattung<>'' AND RF>5 ORDER BY 1");
    ASSERT_EQ(translation.Bindings.size(), 1U);
    EXPECT_EQ(translation.Bindings[0].LiteralIndex, 2U);
    ASSERT_EQ(translation.Pins.size(), 3U);
    EXPECT_EQ(translation.Pins[0].Raw, "'yyyy'");
    EXPECT_EQ(translation.Pins[1].Raw, "''");
    EXPECT_EQ(translation.Pins[2].Raw, "1");
}

TEST(Parameters, OfLongListsStandInTheText) {
    std::string list = "1";
    for (int i = 2; i <= 501; ++i) list += ", " + std::to_string(i);
    const Translation translation = Translated("SELECT ID_ART FROM awaArt WHERE ID_ART IN (" + list + ")");
    EXPECT_TRUE(translation.Bindings.empty());
    EXPECT_EQ(translation.Pins.size(), 501U);
    EXPECT_NE(translation.Sql.find("IN (1, 2, 3"), std::string::npos);
}

TEST(Sources, AreSixtyFourAtMost) {
    const auto joined = [](int count) {
        std::string text = "SELECT DISTINCT t1.ID_ART FROM awaArt AS t1";
        for (int i = 2; i <= count; ++i) text += ", awaArt AS t" + std::to_string(i);
        return text;
    };
    EXPECT_EQ(FailureOf([&] { Translated(joined(64)); }), 0);
    EXPECT_EQ(FailureOf([&] { Translated(joined(65)); }), ErrorNumber::SyntaxError);
}

TEST(Refusals, OfWhatTheEngineCannotDo) {
    struct Case {
        const char* Statement;
        const char* Words;
    };
    const std::vector<Case> cases{
        // The condition between the nested joins needs X, which its own outer join may leave empty.
        {"SELECT S.ID_PS FROM awaPrStelle S LEFT JOIN ((awaTeilraum_MI Q INNER JOIN awaArtPrStelle_MI P ON "
         "Q.ID_TR_MI=P.ID_TR_MI) INNER JOIN (awaArtPrStelle A LEFT JOIN awaArt X ON A.ID_ART=X.ID_ART) ON "
         "P.ID_ART=X.ID_ART) ON S.ID_TR=Q.ID_TR",
         "cannot stand in a join nested"},
        {"UPDATE awaPrStelle S LEFT JOIN (awaTeilraum_MI Q INNER JOIN awaArtPrStelle_MI P ON "
         "Q.ID_TR_MI=P.ID_TR_MI) ON S.ID_TR=Q.ID_TR SET P.DG_MI=1",
         "cannot be changed"},
        {"DELETE P.* FROM awaPrStelle S LEFT JOIN (awaTeilraum_MI Q INNER JOIN awaArtPrStelle_MI P ON "
         "Q.ID_TR_MI=P.ID_TR_MI) ON S.ID_TR=Q.ID_TR",
         "cannot be changed"},
        {"UPDATE Reich SET Reich='x'", "view"},
        {"DELETE * FROM Reich", "view"},
        {"DELETE Reich.* FROM Reich INNER JOIN awaArt ON Reich.ID_REICH=awaArt.ID_ART", "view"},
        {"INSERT INTO Reich (Reich) VALUES ('x')", "view"},
        {"SELECT Gattung AS Ä, Art AS ä FROM awaArt", "bear the name"},
        {"SELECT DISTINCT Gattung FROM awaArt ORDER BY Art", "DISTINCT"},
        {"SELECT DISTINCT RF+1 FROM awaArt ORDER BY RF+2", "DISTINCT"},
    };
    for (const Case& c : cases) {
        try {
            Translated(c.Statement);
            ADD_FAILURE() << "taken: " << c.Statement;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SyntaxError) << c.Statement;
            EXPECT_NE(error.Description().find(c.Words), std::string::npos) << error.Description();
        }
    }
}

TEST(DistinctAndOrder, GoTogetherWhereTheTermIsInTheList) {
    for (const char* statement : {"SELECT DISTINCT Gattung, RF FROM awaArt ORDER BY RF DESC, Gattung",
                                  "SELECT DISTINCT RF+1 FROM awaArt ORDER BY RF+1",
                                  "SELECT DISTINCT Gattung AS g FROM awaArt ORDER BY g, 1",
                                  "SELECT DISTINCT a.* FROM awaArt a ORDER BY a.Gattung"})
        EXPECT_EQ(FailureOf([&] { Translated(statement); }), 0) << statement;
    // What makes the two the same stands in the text.
    EXPECT_EQ(Translated("SELECT DISTINCT RF+1 FROM awaArt ORDER BY RF+1").Pins.size(), 2U);
}

TEST(StartsWithWord, TellsStatementsFromNames) {
    for (const char* text : {"SELECT", " where;", "Delete * FROM x"})
        EXPECT_TRUE(StartsWithWord(text)) << text;
    for (const char* text : {"awaArt", "[SELECT]", "", "'x", "Selection"})
        EXPECT_FALSE(StartsWithWord(text)) << text;
}

TEST(TableSource, TakesABareName) {
    const SampleCatalogue tables;
    for (const char* source : {"awaArt", " awaart ", "[awaArt]", "AWAART;", "[awaArt] ; "}) {
        EXPECT_EQ(TableSource(source, tables), "SELECT * FROM [awaArt]") << source;
    }
    for (const char* source :
         {"", "awaGibtEsNicht", "awaArt awaArt", "SELECT * FROM awaArt", "'awaArt'", "awaArt;;", "[awaArt"}) {
        EXPECT_FALSE(TableSource(source, tables).has_value()) << source;
    }
}

TEST(Criterion, NamesTheColumnsItUsesAndItsConstants) {
    const std::vector<ResultColumn> columns{
        {"Bezeichnung", Kind::Text, "AL_Bioregion", "AL_Bioregion", "Bezeichnung"},
        {"Kurzzeichen", Kind::Text, "AL_Bioregion", "AL_Bioregion", "Kurzzeichen"},
        {"t.RF", Kind::I4, "t", "Teilraum", "RF"},
        {"u.RF", Kind::I4, "u", "UnvUStelle", "RF"},
    };
    const Criterion plain = TranslateCriterion("kurzzeichen='K'", columns);
    EXPECT_EQ(plain.Sql, "SELECT 1 WHERE ?1 COLLATE FX_CI = ?2");
    EXPECT_EQ(plain.ColumnsUsed, (std::vector<std::size_t>{1}));
    EXPECT_EQ(plain.Literals, (std::vector<Value>{"K"}));

    const Criterion both = TranslateCriterion("u.RF=-2 AND [t].[RF]>1.5 AND u.RF<9", columns);
    EXPECT_EQ(both.Sql, "SELECT 1 WHERE (?1 = (?3)) AND (?2 > ?4) AND (?1 < ?5)");
    EXPECT_EQ(both.ColumnsUsed, (std::vector<std::size_t>{3, 2}));
    EXPECT_EQ(both.Literals, (std::vector<Value>{std::int32_t{-2}, 1.5, std::int32_t{9}}));

    const Criterion pattern = TranslateCriterion("t.RF=1 AND Kurzzeichen LIKE 'K*'", columns);
    EXPECT_EQ(pattern.Patterns, (std::vector<std::size_t>{1}));

    EXPECT_EQ(FailureOf([&] { TranslateCriterion("Unfug=1", columns); }), ErrorNumber::UnknownName);
    EXPECT_EQ(FailureOf([&] { TranslateCriterion("RF=1", columns); }),
              ErrorNumber::UnknownName);  // two of them
    EXPECT_EQ(FailureOf([&] { TranslateCriterion("Kurzzeichen=1", columns); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([&] { TranslateCriterion("", columns); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureOf([&] { TranslateCriterion("t.RF IN (SELECT a FROM b)", columns); }),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureOf([&] { TranslateCriterion("Count(*)>1", columns); }), ErrorNumber::SyntaxError);
}

TEST(Failures, NameLineColumnAndToken) {
    try {
        Translated("SELECT Gattung, 'Ä',\n  Häufigkeit FROM awaArt");
        FAIL() << "an unknown column was taken";
    } catch (const Error& error) {
        // The name starts behind two blanks of the second line.
        EXPECT_EQ(error.Number(), ErrorNumber::UnknownName);
        EXPECT_NE(error.Description().find("line 2, column 3, at \"Häufigkeit\""), std::string::npos)
            << error.Description();
        EXPECT_EQ(error.Statement(), "SELECT Gattung, 'Ä',\n  Häufigkeit FROM awaArt");
    }
    try {
        Translated("SELECT 'Ä' FROM Projekt JOIN Abschnitt");
        FAIL() << "JOIN alone was taken";
    } catch (const Error& error) {
        // Ä counts as one character: S=1, 'Ä'=8..10, FROM=12, Projekt=17, JOIN=25.
        EXPECT_NE(error.Description().find("line 1, column 25, at \"JOIN\""), std::string::npos)
            << error.Description();
    }
    try {
        Translated("SELECT Gattung FROM awaArt WHERE");
        FAIL() << "an empty WHERE was taken";
    } catch (const Error& error) {
        EXPECT_NE(error.Description().find("at the end of the statement"), std::string::npos)
            << error.Description();
    }
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
