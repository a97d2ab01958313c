#include "FX_Algen/Display.h"

#include <gmock/gmock.h>

#include "controls/Form.h"
#include "controls/Port.h"
#include "store/ThreadValues.h"

namespace FX_Algen::controls {
namespace {

using store::Answer;
using store::Buttons;
using testing::ElementsAre;

/// "kind|title|text|answer" of all that was shown.
std::vector<std::string> Lines(store::RecordingMessages& messages) {
    std::vector<std::string> out;
    for (const auto& shown : messages.TakeShown())
        out.push_back(shown.Kind + "|" + shown.Title + "|" + shown.Text + "|" + shown.GivenText);
    return out;
}

/// Installs a port for the time of a test.
class Installed {
public:
    explicit Installed(std::shared_ptr<store::Messages> port) : former_(SetDisplay(std::move(port))) {}
    ~Installed() { SetDisplay(former_); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

private:
    std::shared_ptr<store::Messages> former_;
};

TEST(RecordingDisplay, KeepsBoxesAndFilesInOneOrder) {
    RecordingDisplay display;
    display.Messages().SetAnswerTexts({"Yes", "/tmp/Größe.xlsx"});
    display.Box("Algen", "Löschen?", Buttons::YesNo, store::Symbol::Question);
    EXPECT_EQ(display.SaveFile("Speichern", "Mappe|*.xlsx"), "/tmp/Größe.xlsx");
    EXPECT_EQ(display.OpenFile("Öffnen", "Bild|*.png;*.jpg"), std::nullopt);
    display.OpenWithSystem("/tmp/Größe.xlsx");
    display.Box("Algen", "Fertig", Buttons::Ok, store::Symbol::None);
    EXPECT_THAT(Lines(display.Messages()),
                ElementsAre("question|Algen|Löschen?|Yes", "file|Speichern|Mappe|*.xlsx|/tmp/Größe.xlsx",
                            "file|Öffnen|Bild|*.png;*.jpg|Cancel", "open||/tmp/Größe.xlsx|OK",
                            "message|Algen|Fertig|OK"));
}

TEST(RecordingDisplay, AWordThatAnswersABoxCancelsAQuestionForAFile) {
    for (const auto* word : {"Yes", "No", "OK", "Cancel"}) {
        RecordingDisplay display;
        display.Messages().SetAnswerTexts({word, "/tmp/a"});
        EXPECT_EQ(display.SaveFile("", ""), std::nullopt) << word;
        EXPECT_EQ(display.SaveFile("", ""), "/tmp/a") << word;
    }
}

TEST(Display, WithoutAPersonChoosesNoFileAndNumbersForms) {
    struct Bare : Display {
        Answer Box(std::string_view, std::string_view, Buttons, store::Symbol) override { return Answer::Ok; }
        void Busy(bool) override {}
        void ProgressShow(std::int32_t, float, float, float, float) override {}
        void ProgressDraw(std::int16_t, std::string_view) override {}
        void ProgressHide(std::int32_t) override {}
    };
    const auto bare = std::make_shared<Bare>();
    const Installed installed(bare);
    EXPECT_EQ(bare->OpenFile("", ""), std::nullopt);
    EXPECT_EQ(bare->SaveFile("", ""), std::nullopt);
    Form first("a"), second("b");
    first.Show();
    second.Show();
    first.Show();
    EXPECT_EQ(first.Window(), 1);
    EXPECT_EQ(second.Window(), 2);
    first.Close();
    second.Close();
}

TEST(DisplayPort, IsARecordingOneWhereNoneWasInstalled) {
    const Installed none(nullptr);
    EXPECT_EQ(DisplayPort().Box("Algen", "Löschen?", Buttons::YesNo), Answer::No);
    EXPECT_EQ(&DisplayPort(), &store::Port());
    EXPECT_EQ(DisplayPort().OpenFile("", ""), std::nullopt);
}

TEST(DisplayPort, KeepsToTheRecordingPortThatServesAlready) {
    const auto messages = std::make_shared<store::RecordingMessages>();
    const Installed installed(messages);
    store::Port().Box("Algen", "Größe 1");
    messages->SetAnswerTexts({"/tmp/ä"});
    EXPECT_EQ(DisplayPort().OpenFile("Öffnen", "*"), "/tmp/ä");
    store::Port().Box("Algen", "Größe 2");
    EXPECT_THAT(Lines(*messages),
                ElementsAre("message|Algen|Größe 1|OK", "file|Öffnen|*|/tmp/ä", "message|Algen|Größe 2|OK"));
}

/// A port of a host that knows boxes only.
struct Boxes : store::Messages {
    std::vector<std::string> Log;
    Answer Box(std::string_view, std::string_view text, Buttons, store::Symbol) override {
        Log.emplace_back(text);
        return Answer::Yes;
    }
    void Busy(bool on) override { Log.emplace_back(on ? "busy" : "idle"); }
    void ProgressShow(std::int32_t window, float, float, float, float) override {
        Log.push_back("show " + std::to_string(window));
    }
    void ProgressDraw(std::int16_t percent, std::string_view) override {
        Log.push_back(std::to_string(percent));
    }
    void ProgressHide(std::int32_t window) override { Log.push_back("hide " + std::to_string(window)); }
};

TEST(DisplayPort, HandsBoxesToAPortThatKnowsNothingElse) {
    const auto boxes = std::make_shared<Boxes>();
    const Installed installed(boxes);
    Form form("frm");
    form.Show();
    EXPECT_EQ(form.Window(), 1);
    EXPECT_EQ(form.Box("Löschen?", Buttons::YesNo), Answer::Yes);
    DisplayPort().ProgressShow(7, 0, 0, 1, 1);
    DisplayPort().ProgressDraw(50, "");
    DisplayPort().ProgressHide(7);
    EXPECT_EQ(DisplayPort().SaveFile("", ""), std::nullopt);
    EXPECT_THAT(boxes->Log, ElementsAre("Löschen?", "show 7", "50", "hide 7"));
    form.Close();
}

TEST(DisplayPort, FollowsTheInstalledPort) {
    const auto first = std::make_shared<Boxes>(), second = std::make_shared<Boxes>();
    const Installed one(first);
    DisplayPort().Busy(true);
    {
        const Installed two(second);
        DisplayPort().Busy(true);
    }
    DisplayPort().Busy(false);
    EXPECT_THAT(first->Log, ElementsAre("busy", "idle"));
    EXPECT_THAT(second->Log, ElementsAre("busy"));
}

TEST(Hourglass, SwitchesThePointerOnceHoweverMany) {
    const auto boxes = std::make_shared<Boxes>();
    const Installed installed(boxes);
    {
        const Hourglass outer;
        { const Hourglass inner; }
        EXPECT_THAT(boxes->Log, ElementsAre("busy"));
    }
    EXPECT_THAT(boxes->Log, ElementsAre("busy", "idle"));
    try {
        const Hourglass failing;
        throw std::runtime_error("x");
    } catch (const std::runtime_error&) {
        boxes->Log.emplace_back("caught");
    }
    EXPECT_THAT(boxes->Log, ElementsAre("busy", "idle", "busy", "idle", "caught"));
}

}  // namespace
}  // namespace FX_Algen::controls
