#pragma once

namespace FX_Algen::controls {

/// Whether a handler of a form or an operation of a host runs on the calling thread, or a box of a form is
/// open.
bool HandlerRuns() noexcept;

/// No form of the thread takes input while one lives.
class HandlerTurn {
public:
    HandlerTurn();
    ~HandlerTurn();
    HandlerTurn(const HandlerTurn&) = delete;
    HandlerTurn& operator=(const HandlerTurn&) = delete;
};

}  // namespace FX_Algen::controls
