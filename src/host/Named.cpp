#include "host/Named.h"

#include <string>

#include "FX_Algen/Error.h"
#include "controls/OpenForms.h"

namespace FX_Algen::host {

void ThrowNamed(std::string_view operation, const Error& error) {
    const auto prefix = std::string(operation) + ": ";
    const auto description = error.Description();
    throw Error(error.Number(), description.starts_with(prefix) ? description : prefix + description,
                error.Statement(), error.Translated());
}

void LeaveRows() {
    auto& forms = controls::OpenForms();
    if (!forms.All().empty()) forms.SaveRows();
}

}  // namespace FX_Algen::host
