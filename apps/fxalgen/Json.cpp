#include "fxalgen/Json.h"

#include <charconv>

#include "FX_Algen/Error.h"
#include "fxalgen/Utf8.h"

namespace FX_Algen::cli {

double Widened(float value) {
    const std::string text = store::ExactText(value);
    double wide = value;
    std::from_chars(text.data(), text.data() + text.size(), wide);
    return wide;
}

Json ToJson(const store::Value& value, const std::string& where) {
    switch (value.kind()) {
        case store::Kind::Null:
            return nullptr;
        case store::Kind::I2:
        case store::Kind::I4:
            return value.I4();
        case store::Kind::R4:
            return Widened(value.R4());
        case store::Kind::R8:
            return value.R8();
        case store::Kind::Bool:
            return value.Bool();
        case store::Kind::Text:
        case store::Kind::Date:
            break;
    }
    std::string text = value.Text();
    if (FirstBadByte(text)) {
        throw Error(ErrorNumber::TypeMismatch, "the text in " + where + " is not UTF-8");
    }
    return text;
}

}  // namespace FX_Algen::cli
