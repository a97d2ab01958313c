#include "store/load/Csv.h"

#include <gmock/gmock.h>

namespace FX_Algen::store::load {
namespace {

using testing::ElementsAre;

/// Rows as "line:text|text"; a quoted field in angle brackets, a fault behind "!".
std::vector<std::string> Read(std::string_view text, char delimiter = ',') {
    CsvReader reader(text, delimiter);
    std::vector<CsvField> fields;
    std::deque<std::string> buffers;
    std::vector<std::string> out;
    while (reader.Next(fields, buffers)) {
        std::string row;
        for (const auto& field : fields) {
            row += row.empty() ? std::to_string(field.Line) + ":" : "|";
            row += field.Quoted ? "<" + std::string(field.Text) + ">" : std::string(field.Text);
            if (field.Fault != nullptr) row += "!";
        }
        out.push_back(row);
    }
    return out;
}

TEST(CsvReader, ReadsRowsWithEitherLineEndAndWithoutOneAtTheEnd) {
    EXPECT_THAT(Read("a,b\n1,2\n"), ElementsAre("1:a|b", "2:1|2"));
    EXPECT_THAT(Read("a,b\r\n1,2"), ElementsAre("1:a|b", "2:1|2"));
    EXPECT_THAT(Read(""), ElementsAre());
}

TEST(CsvReader, TellsEmptyFieldsFromEmptyTexts) { EXPECT_THAT(Read(",\"\",x,\n"), ElementsAre("1:|<>|x|")); }

TEST(CsvReader, AFieldInQuotesHoldsSeparatorsLineBreaksAndQuotes) {
    EXPECT_THAT(Read("\"a,b\",\"sagt \"\"Häufig\"\"\"\n\"x\r\ny\",z\n3,4\n"),
                ElementsAre("1:<a,b>|<sagt \"Häufig\">", "2:<x\r\ny>|z", "4:3|4"));
}

TEST(CsvReader, PassesOverEmptyLinesButCountsThem) {
    EXPECT_THAT(Read("a\n\n\r\nb\n"), ElementsAre("1:a", "4:b"));
}

TEST(CsvReader, AMarkOfFaultyQuotesStandsAtTheirField) {
    EXPECT_THAT(Read("a\"b,c\n"), ElementsAre("1:a\"b!|c"));
    EXPECT_THAT(Read("\"a\"b,c\nd,e\n"), ElementsAre("1:<a>!|c", "2:d|e"));
    EXPECT_THAT(Read("a,\"b\nc,d\n"), ElementsAre("1:a|<b\nc,d\n>!"));
}

TEST(CsvReader, ALoneCarriageReturnBelongsToTheText) { EXPECT_THAT(Read("a\rb,c"), ElementsAre("1:a\rb|c")); }

TEST(Delimiter, IsDecidedOnTheHeaderLineOutsideQuotes) {
    EXPECT_EQ(Delimiter("a;b\n1,5;2"), ';');
    EXPECT_EQ(Delimiter("a,b\n1;2"), ',');
    EXPECT_EQ(Delimiter("\"a,x\";b\n"), ';');
    EXPECT_EQ(Delimiter("ID_TR\n1;2\n"), ',');
    EXPECT_EQ(Delimiter(""), ',');
}

TEST(WithoutMark, DropsAByteOrderMark) {
    EXPECT_EQ(WithoutMark("\xEF\xBB\xBFID_TR"), "ID_TR");
    EXPECT_EQ(WithoutMark("ID_TR"), "ID_TR");
}

struct EncodingCase {
    std::string_view Text;
    int At;  ///< -1 = well-formed
};

TEST(FirstBadByte, FindsWhatIsNotWellFormed) {
    using namespace std::string_view_literals;
    for (const EncodingCase& c : std::vector<EncodingCase>{
             {"", -1},
             {"Bäche und Flüsse, plain letters behind", -1},
             {"\xF0\x9F\x90\x9F", -1},    // a character of four bytes
             {"abcdefghijkl\xE4rz", 12},  // ä in one byte, behind eight plain characters
             {"\xC3", 0},                 // cut off
             {"a\xC0\xAF", 1},            // overlong
             {"\xE0\x80\x80", 0},         // overlong
             {"\xED\xA0\x80", 0},         // half of a pair
             {"\xF4\x90\x80\x80", 0},     // beyond the last character
             {"\xF5\x80\x80\x80", 0},
             {"\x80", 0},
             {"a\0b"sv, 1},
             {"abcdefgh\0"sv, 8},
             {"abcdefg\0abcdefgh"sv, 7}}) {
        const auto bad = FirstBadByte(c.Text);
        EXPECT_EQ(bad ? static_cast<int>(*bad) : -1, c.At) << c.Text;
    }
}

}  // namespace
}  // namespace FX_Algen::store::load
