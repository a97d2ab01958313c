#pragma once

#include "FX_Algen/Display.h"

namespace FX_Algen::controls {

/// The display port of the calling thread. Where the host installed a port that knows boxes only, one that
/// shows forms without windows and hands boxes to that port.
Display& DisplayPort();

/// The busy pointer while it lives.
class Hourglass {
public:
    Hourglass();
    ~Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace FX_Algen::controls
