#include "controls/FieldText.h"

#include "FX_Algen/Error.h"
#include "controls/Numbers.h"
#include "store/Format.h"

namespace FX_Algen::controls {

namespace {

[[noreturn]] void FailMismatch(const std::string& text, store::Kind kind, std::string_view field) {
    throw Error(ErrorNumber::TypeMismatch, "Type mismatch: '" + text + "' in field '" + std::string(field) +
                                               "' is not " + std::string(store::KindName(kind)) + ".");
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

store::Value NumberValue(const std::string& text, store::Kind kind, std::string_view field) {
    const auto number = ReadNumber(text);
    if (!number) FailMismatch(text, kind, field);
    try {
        return store::Value(*number).As(kind);
    } catch (const Error& error) {
        throw Error(error.Number(), "Overflow: '" + text + "' in field '" + std::string(field) +
                                        "' does not fit " + std::string(store::KindName(kind)) + ".");
    }
}

}  // namespace

std::string FieldText(const store::Value& value, std::int16_t Sprache) {
    switch (value.kind()) {
        case store::Kind::Null:
            return {};
        case store::Kind::I2:
        case store::Kind::I4:
        case store::Kind::R4:
        case store::Kind::R8:
            return ShownNumber(value, Sprache);
        case store::Kind::Date:
            return store::GermanDate(value.AsDate());
        case store::Kind::Bool:
        case store::Kind::Text:
            return value.Text();
    }
    return {};
}

store::Value FieldValue(const std::string& text, store::Kind kind, std::string_view field) {
    if (kind == store::Kind::Text || kind == store::Kind::Null) return text;
    if (IsBlank(text)) return {};
    if (kind != store::Kind::Date) return NumberValue(text, kind, field);
    try {
        return store::Value(text).As(kind);
    } catch (const Error&) {
        FailMismatch(text, kind, field);
    }
}

bool MeansShown(const std::string& text, const std::string& shown, store::Kind kind, std::int16_t Sprache) {
    if (text == shown) return true;
    if (kind == store::Kind::Text || kind == store::Kind::Null) return false;
    try {
        return FieldText(FieldValue(text, kind, {}), Sprache) == shown;
    } catch (const Error&) {
        return false;  // it means nothing, so writing it has to say so
    }
}

}  // namespace FX_Algen::controls
