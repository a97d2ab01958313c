#include "FX_Algen/Display.h"

#include <gmock/gmock.h>

#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

using store::Answer;
using store::Buttons;
using store::RecordingMessages;

TEST(SetDisplay, InstallsThePortOfTheThreadAndReturnsTheFormerOne) {
    const auto first = std::make_shared<RecordingMessages>();
    const auto second = std::make_shared<RecordingMessages>();
    const auto before = SetDisplay(first);
    EXPECT_EQ(SetDisplay(second), first);
    store::Port().Box("Algen", "Grün");
    EXPECT_TRUE(first->TakeShown().empty());
    EXPECT_EQ(second->TakeShown().size(), 1U);
    EXPECT_EQ(SetDisplay(before), second);
}

TEST(SetDisplay, WithoutAPortARecordingOneServes) {
    const auto before = SetDisplay(nullptr);
    EXPECT_EQ(store::Port().Box("Algen", "Löschen?", Buttons::YesNo), Answer::No);
    EXPECT_NE(SetDisplay(before), nullptr);
}

struct AnswerCase {
    std::string word;
    Buttons buttons;
    Answer expected;
};

class AnswerWords : public testing::TestWithParam<AnswerCase> {};

TEST_P(AnswerWords, AreGivenWhereTheQuestionOffersThem) {
    RecordingMessages messages;
    messages.SetAnswerTexts({GetParam().word});
    EXPECT_EQ(messages.Box("Titel", "Text", GetParam().buttons, store::Symbol::Question),
              GetParam().expected);
    // Used up, whether it fitted or not.
    EXPECT_EQ(messages.Box("Titel", "Text", Buttons::YesNo, store::Symbol::Question), Answer::No);
}

INSTANTIATE_TEST_SUITE_P(Words, AnswerWords,
                         testing::Values(AnswerCase{"Yes", Buttons::YesNo, Answer::Yes},
                                         AnswerCase{"No", Buttons::YesNo, Answer::No},
                                         AnswerCase{"OK", Buttons::OkCancel, Answer::Ok},
                                         AnswerCase{"Cancel", Buttons::OkCancel, Answer::Cancel},
                                         AnswerCase{"Yes", Buttons::YesNoCancel, Answer::Yes},
                                         // What is not offered gives the safest answer.
                                         AnswerCase{"OK", Buttons::YesNo, Answer::No},
                                         AnswerCase{"Yes", Buttons::OkCancel, Answer::Cancel},
                                         AnswerCase{"OK", Buttons::YesNoCancel, Answer::Cancel},
                                         AnswerCase{"yes", Buttons::YesNo, Answer::Yes},
                                         AnswerCase{"/tmp/Übersicht.xlsx", Buttons::YesNo, Answer::No}));

TEST(AnswerWords, AreNotTakenByBoxesWithOkAlone) {
    RecordingMessages messages;
    messages.SetAnswerTexts({"Yes"});
    EXPECT_EQ(messages.Box("Titel", "Hinweis", Buttons::Ok, store::Symbol::None), Answer::Ok);
    EXPECT_EQ(messages.Box("Titel", "Frage", Buttons::YesNo, store::Symbol::None), Answer::Yes);
}

TEST(AnswerWords, TakeThePlaceOfThoseLeftOver) {
    RecordingMessages messages;
    messages.SetAnswers({Answer::Yes, Answer::Yes});
    messages.SetAnswerTexts({"No"});
    EXPECT_EQ(messages.Box("Titel", "Frage", Buttons::YesNo, store::Symbol::None), Answer::No);
    EXPECT_EQ(messages.Box("Titel", "Frage", Buttons::YesNo, store::Symbol::None), Answer::No);
}

}  // namespace
}  // namespace FX_Algen
