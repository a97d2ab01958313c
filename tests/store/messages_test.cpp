#include "FX_Algen/Messages.h"

#include <gtest/gtest.h>

namespace FX_Algen::store {
namespace {

TEST(RecordingMessages, AnswersQuestionsFromTheListAndThenSafely) {
    RecordingMessages port;
    port.SetAnswers({Answer::Yes, Answer::Ok});
    EXPECT_EQ(port.Box("Algen", "Löschen?", Buttons::YesNo, Symbol::Question), Answer::Yes);
    EXPECT_EQ(port.Box("Algen", "Nur ein Hinweis", Buttons::Ok, Symbol::None), Answer::Ok);
    EXPECT_EQ(port.Box("Algen", "Weiter?", Buttons::OkCancel, Symbol::Question), Answer::Ok);
    EXPECT_EQ(port.Box("Algen", "Löschen?", Buttons::YesNo, Symbol::Question), Answer::No);
    EXPECT_EQ(port.Box("Algen", "Sichern?", Buttons::YesNoCancel, Symbol::Question), Answer::Cancel);

    const auto shown = port.TakeShown();
    ASSERT_EQ(shown.size(), 5U);
    EXPECT_EQ(shown[0].Text, "Löschen?");
    EXPECT_EQ(shown[0].Given, Answer::Yes);
    EXPECT_TRUE(port.TakeShown().empty());
}

TEST(RecordingMessages, AnAnswerTheBoxDoesNotOfferIsReplacedByTheSafest) {
    RecordingMessages port;
    port.SetAnswers({Answer::Ok, Answer::Yes});
    EXPECT_EQ(port.Box("t", "a", Buttons::YesNo, Symbol::Question), Answer::No);
    EXPECT_EQ(port.Box("t", "b", Buttons::YesNo, Symbol::Question), Answer::Yes);
}

TEST(RecordingMessages, KeepsTheLastBoxesOnly) {
    RecordingMessages port;
    for (std::size_t i = 0; i < RecordingMessages::Limit + 1; ++i)
        port.Box("t", std::to_string(i), Buttons::Ok, Symbol::None);
    const auto shown = port.TakeShown();
    ASSERT_EQ(shown.size(), RecordingMessages::Limit);
    EXPECT_EQ(shown.front().Text, "1");
}

}  // namespace
}  // namespace FX_Algen::store
