#include "controls/FieldText.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "FX_Algen/Error.h"

namespace FX_Algen::controls {
namespace {

using store::Date;
using store::Value;

constexpr std::int16_t german = 10000;
constexpr std::int16_t english = 20000;

TEST(FieldText, ShowsValuesAsPeopleReadThem) {
    struct Case {
        Value Held;
        std::string German, English;
    };
    const std::vector<Case> cases{
        {Value(), "", ""},
        {Value(0.0F), "0", "0"},
        {Value(12.5F), "12,5", "12.5"},
        // The 32-bit float next to 0.1 is 0.100000001490...; 0.1 reads back the same.
        {Value(0.1F), "0,1", "0.1"},
        {Value(0.1), "0,1", "0.1"},
        {Value(std::int16_t{-7}), "-7", "-7"},
        {Value(2147483647), "2147483647", "2147483647"},
        {Value(true), "-1", "-1"},
        {Value(false), "0", "0"},
        {Value("Ötz, 2,5 m über Grund"), "Ötz, 2,5 m über Grund", "Ötz, 2,5 m über Grund"},
        {Value(Date{"2026-05-09"}), "09.05.2026", "09.05.2026"},
        {Value(Date{"09:30:00"}), "09:30:00", "09:30:00"},
    };
    for (const auto& [held, in_german, in_english] : cases) {
        EXPECT_EQ(FieldText(held, german), in_german);
        EXPECT_EQ(FieldText(held, english), in_english);
    }
}

TEST(FieldText, ReadsTypedTextsByTheKindOfTheField) {
    struct Case {
        std::string Typed;
        store::Kind Kind;
        Value Meant;
    };
    const std::vector<Case> cases{
        {"12,5", store::Kind::R4, Value(12.5F)},
        {"12.5", store::Kind::R8, Value(12.5)},
        {" 12 ", store::Kind::I4, Value(12)},
        // To the nearest integer, halves to the even one: 2.5 to 2, 3.5 to 4.
        {"2,5", store::Kind::I2, Value(std::int16_t{2})},
        {"3.5", store::Kind::I4, Value(4)},
        {"32767", store::Kind::I2, Value(std::int16_t{32767})},
        {"-1", store::Kind::Bool, Value(true)},
        {"0", store::Kind::Bool, Value(false)},
        {"9.5.2026", store::Kind::Date, Value(Date{"2026-05-09"})},
        {"2026-05-09", store::Kind::Date, Value(Date{"2026-05-09"})},
        {"Öd", store::Kind::Text, Value("Öd")},
        {"7", store::Kind::Text, Value("7")},
        {"", store::Kind::Text, Value("")},
        {" ", store::Kind::Text, Value(" ")},
        {"", store::Kind::R4, Value()},
        {"  ", store::Kind::R8, Value()},
        {"", store::Kind::I2, Value()},
        {"", store::Kind::I4, Value()},
        {"", store::Kind::Bool, Value()},
        {"", store::Kind::Date, Value()},
    };
    for (const auto& [typed, kind, meant] : cases)
        EXPECT_EQ(FieldValue(typed, kind, "Feld"), meant) << "'" << typed << "' as " << store::KindName(kind);
}

TEST(FieldText, RefusesWhatTheFieldCannotTakeAndNamesBoth) {
    struct Case {
        std::string Typed;
        store::Kind Kind;
        std::int32_t Number;
    };
    const std::vector<Case> cases{
        {"viel", store::Kind::R4, ErrorNumber::TypeMismatch},
        {"1,5 %", store::Kind::R4, ErrorNumber::TypeMismatch},
        {"1.234,5", store::Kind::R8, ErrorNumber::TypeMismatch},
        {"1e3", store::Kind::I4, ErrorNumber::TypeMismatch},
        {"ja", store::Kind::Bool, ErrorNumber::TypeMismatch},
        {"31.02.2026", store::Kind::Date, ErrorNumber::TypeMismatch},
        {"gestern", store::Kind::Date, ErrorNumber::TypeMismatch},
        // 32767 and 2147483647 are the greatest of 16 and 32 bits, 3.4e38 about that of a 32-bit float.
        {"32768", store::Kind::I2, ErrorNumber::Overflow},
        {"-32769", store::Kind::I2, ErrorNumber::Overflow},
        {"99999999999", store::Kind::I4, ErrorNumber::Overflow},
        {"1" + std::string(39, '0'), store::Kind::R4, ErrorNumber::Overflow},
    };
    for (const auto& [typed, kind, number] : cases) {
        std::optional<Error> failure;
        try {
            FieldValue(typed, kind, "Häufigkeit");
        } catch (const Error& error) {
            failure = error;
        }
        ASSERT_TRUE(failure) << typed;
        EXPECT_EQ(failure->Number(), number) << typed;
        EXPECT_NE(failure->Description().find("'" + typed + "'"), std::string::npos)
            << failure->Description();
        EXPECT_NE(failure->Description().find("'Häufigkeit'"), std::string::npos) << failure->Description();
    }
}

TEST(FieldText, TellsOtherWritingFromAnotherValue) {
    struct Case {
        std::string Text, Shown;
        store::Kind Kind;
        bool Same;
    };
    const std::vector<Case> cases{
        {"12,5", "12,5", store::Kind::R4, true},
        {"12.50", "12,5", store::Kind::R4, true},
        {" 012,5", "12,5", store::Kind::R8, true},
        {"12,6", "12,5", store::Kind::R4, false},
        {"", "0", store::Kind::R4, false},
        {"0", "", store::Kind::R4, false},
        {" ", "", store::Kind::R4, true},
        {"viel", "12,5", store::Kind::R4, false},
        {"12,50", "12,5", store::Kind::Text, false},
        {" ", "", store::Kind::Text, false},
        {"9.5.2026", "09.05.2026", store::Kind::Date, true},
        {"Ötz", "Ötz", store::Kind::Text, true},
        {"ötz", "Ötz", store::Kind::Text, false},
    };
    for (const auto& [text, shown, kind, same] : cases)
        EXPECT_EQ(MeansShown(text, shown, kind, german), same) << "'" << text << "' for '" << shown << "'";
}

}  // namespace
}  // namespace FX_Algen::controls
