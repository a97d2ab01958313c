#include "store/TextOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace FX_Algen::store {
namespace {

TEST(TextOrder, EqualWithoutRegardToCaseUmlautsIncluded) {
    EXPECT_EQ(CompareCaseBlind("HÄUFIGKEIT", "Häufigkeit"), 0);
    EXPECT_EQ(CompareCaseBlind("Cladophora GLOMERATA", "cladophora glomerata"), 0);
    EXPECT_EQ(CompareCaseBlind("Überwasser", "überwasser"), 0);
    EXPECT_EQ(CompareCaseBlind("", ""), 0);
}

TEST(TextOrder, LettersThatDifferInMoreThanCaseAreNotEqual) {
    EXPECT_NE(CompareCaseBlind("Maß", "Mass"), 0);
    EXPECT_NE(CompareCaseBlind("Bär", "Bar"), 0);
    EXPECT_NE(CompareCaseBlind("a", "a "), 0);
    EXPECT_NE(CompareCaseBlind("", "a"), 0);
}

TEST(TextOrder, GermanDictionaryOrderPutsUmlautsWithTheirLetters) {
    std::vector<std::string> names{"Zebra", "Ärzte", "Apfel", "ähre", "Masse", "Maß",
                                   "Maße",  "Mast",  "azur",  "Öl",   "Ofen"};
    std::stable_sort(names.begin(), names.end(),
                     [](const auto& a, const auto& b) { return CompareGerman(a, b) < 0; });
    // ä counts as a (ahre < apfel < arzte < azur), ß as ss (mass < masse = masse < mast), ö as o.
    EXPECT_EQ(names, (std::vector<std::string>{"ähre", "Apfel", "Ärzte", "azur", "Maß", "Masse", "Maße",
                                               "Mast", "Ofen", "Öl", "Zebra"}));
}

TEST(TextOrder, ComparisonsStandInGermanOrderToo) {
    EXPECT_LT(CompareCaseBlind("Ähre", "B"), 0);
    EXPECT_GT(CompareCaseBlind("Ähre", "A"), 0);
    EXPECT_LT(CompareCaseBlind("10", "a"), 0);
    EXPECT_LT(CompareCaseBlind("-", "1"), 0);
}

TEST(TextOrder, OrderIsTheSameBothWaysAndTransitive) {
    const std::vector<std::string> texts{"",  "a", "A",  "ä",         "Ä",  "a ", "a-b", "ab",   "aB",
                                         "b", "ß", "ss", "sS",        "st", "1",  "10",  "2",    "_",
                                         "?", "[", "ae", "a\xCC\x88", "Z",  "é",  "e",   "\x01", "Ω"};
    for (const auto& compare : {CompareCaseBlind, CompareGerman})
        for (const auto& a : texts)
            for (const auto& b : texts) {
                const int ab = compare(a, b);
                const int ba = compare(b, a);
                EXPECT_TRUE((ab < 0) == (ba > 0) && (ab == 0) == (ba == 0)) << a << " / " << b;
                for (const auto& c : texts)
                    if (ab <= 0 && compare(b, c) <= 0) {
                        EXPECT_LE(compare(a, c), 0) << a << " / " << b << " / " << c;
                    }
            }
}

TEST(TextOrder, BytesThatAreNoTextAreComparedWithoutHarm) {
    EXPECT_EQ(CompareCaseBlind("\xFF", "\xFF"), 0);
    EXPECT_NE(CompareCaseBlind("\xC3", "a"), 0);
}

}  // namespace
}  // namespace FX_Algen::store
