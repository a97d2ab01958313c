#include "host/NotBuilt.h"

#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::host {

void NotBuilt(std::string_view className, std::string_view operation) {
    throw Error(ErrorNumber::NotBuilt, std::string(className) + "." + std::string(operation) +
                                           ": this version does not offer the operation yet.");
}

}  // namespace FX_Algen::host
