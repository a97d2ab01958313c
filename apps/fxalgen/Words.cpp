#include "fxalgen/Words.h"

#include "FX_Algen/Texts.h"
#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

std::string With(std::int16_t offset, std::int16_t SprachID, std::string_view value) {
    std::string text = Text(offset, SprachID);
    const std::size_t at = text.find('|');
    if (at != std::string::npos) text.replace(at, 1, value);
    return text;
}

std::string WithNumber(std::int16_t offset, std::int16_t SprachID, std::int32_t number) {
    return With(offset, SprachID, store::NumberText(number));
}

}  // namespace FX_Algen::cli
