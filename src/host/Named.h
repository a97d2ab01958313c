#pragma once

#include <string_view>

namespace FX_Algen {
class Error;
}

namespace FX_Algen::host {

/// Throws `error` anew, with the operation in front of a description that does not name it; number and
/// statements stay.
[[noreturn]] void ThrowNamed(std::string_view operation, const Error& error);

/// Runs an operation of a public class; what fails in it names the operation that the host called.
template <class Body>
auto Named(std::string_view operation, Body body) {
    try {
        return body();
    } catch (const Error& error) {
        ThrowNamed(operation, error);
    }
}

}  // namespace FX_Algen::host
