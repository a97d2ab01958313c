#include "FX_Algen/Display.h"

#include <utility>

#include "store/ThreadValues.h"

namespace FX_Algen {

std::shared_ptr<store::Messages> SetDisplay(std::shared_ptr<store::Messages> port) {
    return std::exchange(store::Thread().Port, std::move(port));
}

}  // namespace FX_Algen
