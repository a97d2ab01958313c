#pragma once

#include <cstddef>
#include <string>

#include "fxalgen/Command.h"

namespace FX_Algen::cli {

/// A bar on a terminal for work of a known number of steps; nothing where the messages go elsewhere. The
/// line is wiped when the object ends, so that messages start on a clean one.
class Progress {
public:
    Progress(Streams& streams, std::string text, std::size_t steps);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `done` of the steps are finished. Draws only where the percentage changed.
    void Show(std::size_t done);

private:
    Streams& streams_;
    std::string text_;
    std::size_t steps_;
    int shown_ = -1;  ///< percentage on the screen
};

}  // namespace FX_Algen::cli
