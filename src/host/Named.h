#pragma once

#include <string_view>

#include "controls/Running.h"

namespace FX_Algen {
class Error;
}

namespace FX_Algen::host {

/// Throws `error` anew, with the operation in front of a description that does not name it; number and
/// statements stay.
[[noreturn]] void ThrowNamed(std::string_view operation, const Error& error);

/// Has all open forms leave their rows, so that an operation works on what was entered. What cannot be saved
/// was shown in a box and stays on its form; the operation goes on with what is stored.
void LeaveRows();

/// Runs an operation that has the open forms leave their rows by itself; what fails in it names the operation
/// that the host called. Until it ends no form takes input: a display may let a person reach the windows
/// behind a box or a progress form of the operation.
template <class Body>
auto NamedOnly(std::string_view operation, Body body) {
    try {
        const controls::HandlerTurn turn;
        return body();
    } catch (const Error& error) {
        ThrowNamed(operation, error);
    }
}

/// Runs an operation of a public class, after the open forms left their rows; else as `NamedOnly`. Where a
/// handler of a form itself calls the host, its row is just being dealt with and is left alone.
template <class Body>
auto Named(std::string_view operation, Body body) {
    const bool leave = !controls::HandlerRuns();
    return NamedOnly(operation, [&] {
        if (leave) LeaveRows();
        return body();
    });
}

}  // namespace FX_Algen::host
