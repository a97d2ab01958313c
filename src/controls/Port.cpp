#include "controls/Port.h"

#include <memory>
#include <utility>

#include "store/ThreadValues.h"

namespace FX_Algen::controls {

namespace {

/// Shows forms without windows and hands all else to a port that knows boxes only.
class BoxesOnly : public Display {
public:
    explicit BoxesOnly(std::shared_ptr<store::Messages> port) : port_(std::move(port)) {}

    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol) override {
        return port_->Box(title, text, buttons, symbol);
    }
    void Busy(bool on) override { port_->Busy(on); }
    void ProgressShow(std::int32_t hostWindow, float left, float top, float width, float height) override {
        port_->ProgressShow(hostWindow, left, top, width, height);
    }
    void ProgressDraw(std::int16_t percent, std::string_view text) override {
        port_->ProgressDraw(percent, text);
    }
    void ProgressHide(std::int32_t hostWindow) override { port_->ProgressHide(hostWindow); }

private:
    std::shared_ptr<store::Messages> port_;
};

/// The display made around a port that is none, for as long as that port is installed.
struct Around {
    std::shared_ptr<store::Messages> Port;
    std::shared_ptr<Display> Made;
};

struct Hourglasses {
    int Open = 0;
};

}  // namespace

Display& DisplayPort() {
    auto& port = store::Thread().Port;
    if (!port) port = std::make_shared<RecordingDisplay>();
    auto& around = store::Thread().Part<Around>();
    if (auto* display = dynamic_cast<Display*>(port.get())) {
        around = {};
        return *display;
    }
    if (around.Port != port) {
        around.Port = port;
        if (auto recording = std::dynamic_pointer_cast<store::RecordingMessages>(port))
            around.Made = std::make_shared<RecordingDisplay>(std::move(recording));
        else
            around.Made = std::make_shared<BoxesOnly>(port);
    }
    return *around.Made;
}

Hourglass::Hourglass() {
    // Only the outermost switches: the pointer must not go back while one of them lives.
    auto& open = store::Thread().Part<Hourglasses>().Open;
    if (open == 0) DisplayPort().Busy(true);
    ++open;
}

Hourglass::~Hourglass() {
    if (--store::Thread().Part<Hourglasses>().Open > 0) return;
    try {
        DisplayPort().Busy(false);
    } catch (...) {  // NOLINT(bugprone-empty-catch): a pointer that stays busy must not end the program
    }
}

}  // namespace FX_Algen::controls
