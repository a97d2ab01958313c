#include "fxalgen/Utf8.h"

#include <gtest/gtest.h>

using namespace FX_Algen::cli;

namespace {

TEST(Utf8, FindsTheFirstByteThatIsNotWellFormed) {
    struct Case {
        std::string Text;
        std::optional<std::size_t> Bad;
    };
    const Case cases[] = {
        {"", std::nullopt},
        {"Algen", std::nullopt},
        {"Grünalge µ 水 \xF0\x9F\x8C\xBF", std::nullopt},  // two, three and four bytes
        {"Gr\xFCn", 2},                                    // an 8-bit ü
        {"a\xC3", 1},                                      // cut off
        {"a\xC0\xAF", 1},                                  // "/" written longer than need be
        {"\xED\xA0\x80", 0},                               // half of a surrogate pair
        {"\xF4\x90\x80\x80", 0},                           // past the last code point
        {"ab\x80", 2},                                     // a byte that only continues
    };
    for (const Case& c : cases) EXPECT_EQ(FirstBadByte(c.Text), c.Bad) << testing::PrintToString(c.Text);
}

TEST(Utf8, CountsColumnsNotBytes) {
    EXPECT_EQ(DisplayWidth("Bäche"), 5u);
    EXPECT_EQ(DisplayWidth("Ba\xCC\x88"
                           "che"),
              5u);  // a with a combining diaeresis
    EXPECT_EQ(DisplayWidth("水"), 2u);
    EXPECT_EQ(DisplayWidth(""), 0u);
}

}  // namespace
