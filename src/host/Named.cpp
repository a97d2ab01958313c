#include "host/Named.h"

#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::host {

void ThrowNamed(std::string_view operation, const Error& error) {
    const auto prefix = std::string(operation) + ": ";
    const auto description = error.Description();
    throw Error(error.Number(), description.starts_with(prefix) ? description : prefix + description,
                error.Statement(), error.Translated());
}

}  // namespace FX_Algen::host
