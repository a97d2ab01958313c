#include "fxalgen/Progress.h"

#include <ostream>
#include <utility>

#include "fxalgen/Utf8.h"

namespace FX_Algen::cli {

namespace {
constexpr int BarWidth = 30;
constexpr std::size_t TailWidth = BarWidth + 8;  // " [", bar, "] 100 %"
}  // namespace

Progress::Progress(Streams& streams, std::string text, std::size_t steps)
    : streams_(streams), text_(std::move(text)), steps_(steps) {}

Progress::~Progress() {
    if (shown_ < 0) return;
    streams_.Err << '\r' << std::string(DisplayWidth(text_) + TailWidth, ' ') << '\r' << std::flush;
}

void Progress::Show(std::size_t done) {
    if (!streams_.ErrIsTerminal || steps_ == 0) return;
    const int percent = static_cast<int>(done * 100 / steps_);
    if (percent == shown_) return;
    shown_ = percent;
    const auto filled = static_cast<std::size_t>(percent * BarWidth / 100);
    streams_.Err << '\r' << text_ << " [" << std::string(filled, '#') << std::string(BarWidth - filled, ' ')
                 << "] " << percent << " %" << std::flush;
}

}  // namespace FX_Algen::cli
