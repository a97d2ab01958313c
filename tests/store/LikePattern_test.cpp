#include "store/LikePattern.h"

#include <gtest/gtest.h>

#include "TemporaryFolder.h"

namespace FX_Algen::store {
namespace {

struct Case {
    const char* Text;
    const char* Pattern;
    bool Matches;
};

TEST(LikePattern, WildcardsAndClasses) {
    const Case cases[] = {
        {"Navicula", "Nav*", true},
        {"Navicula", "*cul*", true},
        {"Navicula", "*cul", false},
        {"Navicula", "navicula", true},
        {"", "*", true},
        {"", "", true},
        {"", "?", false},
        {"a", "", false},
        {"Bär", "b?r", true},  // an umlaut is one character, two bytes
        {"BÄR", "bär", true},
        {"A7", "A#", true},
        {"Ax", "A#", false},
        {"A12", "A#", false},
        {"Gras", "[GK]ras", true},
        {"kras", "[GK]ras", true},
        {"Tras", "[GK]ras", false},
        {"Tras", "[!GK]ras", true},
        {"gras", "[!GK]ras", false},
        {"5b", "[a-c0-9]b", true},
        {"äb", "[a-c]b", true},  // German order: ä stands between a and b
        {"zb", "[a-c]b", false},
        {"a*b", "a[*]b", true},
        {"axb", "a[*]b", false},
        {"a?", "a[?]", true},
        {"a[b", "a[[]b", true},
        {"a-b", "a[x-]b", true},
        {"!", "[!]", true},
        {"ab", "a[]b", true},  // an empty class asks for nothing
        {"aXbXc", "a*b*c", true},
        {"aaab", "*ab", true},
        {"100%_", "100%_", true},  // not wildcards here
        {"100xx", "100%_", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(LikePattern(c.Pattern).Matches(c.Text), c.Matches) << c.Text << " like " << c.Pattern;
}

TEST(LikePattern, OpenBracketAndBackwardRangeAreSyntaxErrors) {
    EXPECT_EQ(test::FailureNumber([] { LikePattern("Nav[*"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(test::FailureNumber([] { LikePattern("["); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(test::FailureNumber([] { LikePattern("[z-a]"); }), ErrorNumber::SyntaxError);
    EXPECT_EQ(test::FailureNumber([] { LikePattern("Nav]*"); }), 0);
}

TEST(LikePattern, ManyRunsInALongTextEndSoon) {
    // Each run is tried again from the last one only: 5000 characters times 5000 places at most.
    EXPECT_FALSE(LikePattern("*a*a*a*a*a*a*a*a*b").Matches(std::string(5000, 'a')));
}

}  // namespace
}  // namespace FX_Algen::store
