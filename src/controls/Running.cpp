#include "controls/Running.h"

#include "store/ThreadValues.h"

namespace FX_Algen::controls {

namespace {

struct Turns {
    int Open = 0;
};

int& OpenTurns() { return store::Thread().Part<Turns>().Open; }

}  // namespace

bool HandlerRuns() noexcept { return OpenTurns() > 0; }

HandlerTurn::HandlerTurn() { ++OpenTurns(); }
HandlerTurn::~HandlerTurn() { --OpenTurns(); }

}  // namespace FX_Algen::controls
