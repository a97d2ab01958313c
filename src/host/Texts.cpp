#include "FX_Algen/Texts.h"

#include "store/Allgemein.h"
#include "store/Strings.h"

namespace FX_Algen {

std::string Text(std::int16_t offset, std::int16_t SprachID) {
    return store::Text(offset, Allgemein::SprachID_Anheben(SprachID));
}

}  // namespace FX_Algen
