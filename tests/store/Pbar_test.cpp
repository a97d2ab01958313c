#include "store/Pbar.h"

#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include "FX_Algen/Display.h"
#include "FX_Algen/Messages.h"

namespace FX_Algen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes what the progress form is told; fails where it draws, or is taken away, when asked to.
class ProgressPort : public store::RecordingMessages {
public:
    void ProgressShow(std::int32_t window, float left, float top, float width, float height) override {
        Calls.push_back("show " + std::to_string(window) + " " + std::to_string(std::lround(left)) + " " +
                        std::to_string(std::lround(top)) + " " + std::to_string(std::lround(width)) + " " +
                        std::to_string(std::lround(height)));
    }
    void ProgressDraw(std::int16_t percent, std::string_view text) override {
        Calls.push_back("draw " + std::to_string(percent) + " '" + std::string(text) + "'");
        if (FailsToDraw) throw std::runtime_error("no picture");
    }
    void ProgressHide(std::int32_t window) override { Calls.push_back("hide " + std::to_string(window)); }
    std::vector<std::string> Calls;
    bool FailsToDraw = false;
};

class Pbar : public testing::Test {
protected:
    ~Pbar() override { SetDisplay(former_); }
    std::shared_ptr<ProgressPort> port = std::make_shared<ProgressPort>();

private:
    std::shared_ptr<store::Messages> former_ = SetDisplay(port);
};

TEST_F(Pbar, IsShownDrawnAndTakenAway) {
    Allgemein::Pbar_Anzeigen(7, 1, 2, 300, 20);
    Allgemein::Pbar_Zeichnen(50, " Häufigkeiten");
    Allgemein::Pbar_Zeichnen(100);
    Allgemein::Pbar_Ausblenden(7);
    EXPECT_THAT(port->Calls, ElementsAre("show 7 1 2 300 20", "draw 0 ''", "draw 50 ' Häufigkeiten'",
                                         "draw 100 ''", "hide 7"));
}

TEST_F(Pbar, IsNotShownWhereTheHostGaveNoWindow) {
    for (const std::int32_t window : {0, -1}) {
        Allgemein::Pbar_Anzeigen(window, 1, 2, 300, 20);
        Allgemein::Pbar_Ausblenden(window);
    }
    EXPECT_THAT(port->Calls, IsEmpty());
}

TEST_F(Pbar, IsTakenAwayWhereItCannotBeDrawn) {
    port->FailsToDraw = true;
    EXPECT_THROW(Allgemein::Pbar_Anzeigen(7, 1, 2, 300, 20), std::runtime_error);
    EXPECT_THAT(port->Calls, ElementsAre("show 7 1 2 300 20", "draw 0 ''", "hide 7"));
}

TEST(PbarText, IsThePercentageThenTheText) {
    struct Case {
        std::int16_t Percent;
        std::string Text, Expected;
    };
    const std::vector<Case> cases{
        {0, "", "%"},  // the format "###" shows no digit of 0
        {0, " Arten", "% Arten"},
        {1, "", "1%"},
        {50, " Häufigkeiten", "50% Häufigkeiten"},
        {100, "", "100%"},
    };
    for (const auto& [percent, text, expected] : cases)
        EXPECT_EQ(Allgemein::Pbar_Text(percent, text), expected);
}

TEST(PbarText, BeginsSoThatItStandsInTheMiddleWhereItFits) {
    struct Case {
        float Width, Left;
    };
    const std::vector<Case> cases{
        {0, 50},    {20, 40},  // 50 - 20 / 2
        {99, 0.5F}, {100, 0}, {100.5F, 0}, {300, 0},
    };
    for (const auto& [width, left] : cases) EXPECT_EQ(Allgemein::Pbar_TextLinks(width), left) << width;
}

}  // namespace
}  // namespace FX_Algen
