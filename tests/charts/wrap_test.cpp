#include "charts/Wrap.h"

#include <gtest/gtest.h>

#include "metrics.h"

namespace FX_Algen::charts {
namespace {

const test::PlainMetrics kMetrics;
const Font kFont{10, false};  // 6 points a letter

using Lines = std::vector<std::string>;

struct WrapCase {
    const char* Name;
    const char* Text;
    double Letters;  ///< width of a line
    Lines Expected;
};

TEST(Wrap, BreaksStandWhereTheyMay) {
    const WrapCase cases[] = {
        {"fits", "Obere Alm", 9, {"Obere Alm"}},
        {"at blanks", "Obere Alm bei Zell", 9, {"Obere Alm", "bei Zell"}},
        {"many blanks", "  Obere   Alm  ", 20, {"Obere Alm"}},
        {"line breaks", "Obere\nAlm", 20, {"Obere", "Alm"}},
        {"empty lines go", "Obere\n\n\nAlm\n", 20, {"Obere", "Alm"}},
        {"nothing", "", 20, {}},
        {"only blanks", " \n ", 20, {}},
        {"behind a hyphen", "Ober-Unterlauf", 10, {"Ober-", "Unterlauf"}},
        {"behind a slash", "Zell/Schwarzach", 10, {"Zell/", "Schwarzach"}},
        {"not inside a date", "2024-05-12", 8, {"2024-05-", "12"}},
        {"a date goes to the next line", "am 2024-05-12", 10, {"am", "2024-05-12"}},
        {"hyphen at an end", "-a b-", 3, {"-a", "b-"}},
        // 33 letters in lines of 12.
        {"very long word",
         "Donaudampfschifffahrtsgesellschaft",
         12,
         {"Donaudampfsc", "hifffahrtsge", "sellschaft"}},
        {"long word among others", "An Donaudampfer ab", 6, {"An", "Donaud", "ampfer", "ab"}},
        {"rest and next word", "Donaudampf ab", 6, {"Donaud", "ampf", "ab"}},
        {"rest and next word on a line", "Donaudampf ab", 7, {"Donauda", "mpf ab"}},
        {"umlauts are one letter", "Mühlbäche", 9, {"Mühlbäche"}},
        {"umlauts are not split", "äöüßÄÖ", 2, {"äö", "üß", "ÄÖ"}},
        {"combining marks stay with their letter", "u\u0308bu\u0308b", 3, {"u\u0308b", "u\u0308b"}},
        {"narrower than a letter", "abc", 0.5, {"a", "b", "c"}},
        {"letters of four bytes", "𝛼𝛽𝛾", 1, {"𝛼", "𝛽", "𝛾"}},
    };
    for (const WrapCase& c : cases)
        EXPECT_EQ(WrapText(c.Text, c.Letters * 6 + 1e-9, kFont, kMetrics), c.Expected) << c.Name;
}

TEST(Wrap, NothingIsLostAndNoLineIsTooWide) {
    const std::string text =
        "Großglockner-Hochalpenstraße/Fuscher Ache, Donaudampfschifffahrtsgesellschaft 12.05.2026 (Mündung) "
        "ÄÖÜ";
    for (double letters = 1; letters < 130; ++letters) {
        std::string all;
        for (const std::string& line : WrapText(text, letters * 6 + 1e-9, kFont, kMetrics)) {
            EXPECT_LE(test::Letters(line), letters) << line;
            EXPECT_FALSE(line.empty());
            EXPECT_NE(static_cast<unsigned char>(line.front()) & 0xC0U, 0x80U) << "begins inside a letter";
            all += line;
        }
        EXPECT_EQ(test::WithoutBlanks(all), test::WithoutBlanks(text)) << letters;
    }
}

TEST(Wrap, BytesThatAreNoTextDoNotHang) {
    const std::string bytes = "\xC3\x28\xFF\xFE\x80\x80 \xE2\x82";
    for (double width = 1; width < 60; width += 7) {
        std::string all;
        for (const std::string& line : WrapText(bytes, width, kFont, kMetrics)) all += line;
        EXPECT_EQ(test::WithoutBlanks(all), test::WithoutBlanks(bytes));
    }
}

TEST(Wrap, TheWidestWordIsWhatMustStayTogether) {
    // "Schwarzach" has 10 letters, 6 points each.
    EXPECT_DOUBLE_EQ(WidestWord("Zell/Schwarzach bei Au", kFont, kMetrics), 60);
    EXPECT_DOUBLE_EQ(WidestWord("", kFont, kMetrics), 0);
}

TEST(Wrap, HeightOfLines) {
    // A line is 8 + 2 high.
    EXPECT_DOUBLE_EQ(TextHeight(0, kFont, kMetrics), 0);
    EXPECT_DOUBLE_EQ(TextHeight(1, kFont, kMetrics), 10);
    EXPECT_DOUBLE_EQ(TextHeight(3, kFont, kMetrics), 30);
}

}  // namespace
}  // namespace FX_Algen::charts
