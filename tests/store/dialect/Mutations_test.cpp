#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Corpus.h"
#include "SampleCatalogue.h"

// Damaged statements must end in an error or a translation, never in anything else.
namespace FX_Algen::store::dialect::testing {
namespace {

constexpr std::uint32_t Seed = 20260512;

std::vector<std::string> SeedStatements() {
    std::vector<std::string> statements;
    for (const char* file : {"statements.txt", "must_fail.txt"}) {
        for (const CorpusLine& line : ReadCorpus(file)) statements.push_back(line.Statement);
    }
    return statements;
}

class Mutator {
public:
    explicit Mutator(std::vector<std::string> statements) : statements_(std::move(statements)) {}

    std::string Next() {
        std::string text = Any();
        for (std::size_t steps = 1 + Below(4); steps > 0; --steps) Step(text);
        return text;
    }

private:
    std::size_t Below(std::size_t limit) { return random_() % limit; }
    const std::string& Any() { return statements_[Below(statements_.size())]; }

    void Step(std::string& text) {
        static const std::vector<std::string> pieces{"(",
                                                     ")",
                                                     "'",
                                                     "\"",
                                                     "#",
                                                     "[",
                                                     "]",
                                                     ",",
                                                     ";",
                                                     ".",
                                                     "-",
                                                     "IN",
                                                     " NOT ",
                                                     " AS ",
                                                     " JOIN ",
                                                     "\xC3",
                                                     "Ä",
                                                     "\x01",
                                                     "1E9",
                                                     "&",
                                                     "*",
                                                     " NULL ",
                                                     " (SELECT ID_ART FROM awaArt) ",
                                                     std::string(1, '\0')};
        const std::size_t at = Below(text.size() + 1);
        switch (Below(4)) {
            case 0:
                text.insert(at, pieces[Below(pieces.size())]);
                break;
            case 1:
                text.erase(at, Below(12));
                break;
            case 2:
                text.insert(at, text, Below(text.size() + 1), 40);
                break;
            default: {
                const std::string& other = Any();
                text = text.substr(0, at) + other.substr(Below(other.size() + 1));
                break;
            }
        }
    }

    std::vector<std::string> statements_;
    std::mt19937 random_{Seed};
};

/// Number of the failure; anything but an Error leaves the test.
std::int32_t Outcome(const std::string& text) {
    SampleExternal external;
    return FailureOf([&] { Translated(text, &external); });
}

bool IsKnown(std::int32_t number) {
    switch (number) {
        case 0:
        case ErrorNumber::Overflow:
        case ErrorNumber::TypeMismatch:
        case ErrorNumber::FileNotFound:
        case ErrorNumber::UnknownName:
        case ErrorNumber::SyntaxError:
        case ErrorNumber::UnknownTable:
            return true;
        default:
            return false;
    }
}

TEST(Mutations, OfStatementsEndInAnErrorOrATranslation) {
    Mutator mutator(SeedStatements());
    for (int i = 0; i < 6000; ++i) {
        const std::string text = mutator.Next();
        std::int32_t number = -1;
        ASSERT_NO_THROW(number = Outcome(text)) << text;
        ASSERT_TRUE(IsKnown(number)) << number << " " << text;
    }
}

TEST(Mutations, OfCriteriaEndInAnErrorOrATranslation) {
    ResultColumn number{"ID_ART", Kind::I4, {}, {}, {}};
    ResultColumn text{"awaArt.Gattung", Kind::Text, "awaArt", "awaArt", "Gattung"};
    Mutator mutator(
        {"Gattung='Cladophora'", "ID_ART=5 AND Gattung LIKE 'C*'", "IsNull([Gattung]) Or ID_ART In (1,2)"});
    for (int i = 0; i < 3000; ++i) {
        const std::string criterion = mutator.Next();
        std::int32_t failure = -1;
        ASSERT_NO_THROW(failure = FailureOf([&] {
                            TranslateCriterion(criterion, {number, text});
                        }))
            << criterion;
        ASSERT_TRUE(IsKnown(failure)) << failure << " " << criterion;
    }
}

TEST(Mutations, DeepStatementsAreRefused) {
    const std::string select = "SELECT ID_ART FROM awaArt WHERE ";
    std::string list = "0";
    std::string chain = "ID_ART=1";
    for (int i = 0; i < 50000; ++i) chain += " OR ID_ART=1";
    for (int i = 1; i < 20000; ++i) list += "," + std::to_string(i);
    EXPECT_EQ(Outcome(select + std::string(100000, '(') + "1=1" + std::string(100000, ')')),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(Outcome(select + "ID_ART=" + std::string(100000, '-') + "1"), ErrorNumber::SyntaxError);
    EXPECT_EQ(Outcome("SELECT ID_ART FROM " + std::string(100000, '(') + "awaArt"), ErrorNumber::SyntaxError);
    EXPECT_EQ(Outcome(select + chain), ErrorNumber::SyntaxError);
    // A long list is no depth: scopes of many sub-habitats are written so.
    EXPECT_EQ(Outcome(select + "ID_ART IN (" + list + ")"), 0);
}

}  // namespace
}  // namespace FX_Algen::store::dialect::testing
