#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

using Json = nlohmann::ordered_json;

/// The 64-bit number whose shortest text is that of the 32-bit one: 1.8 and not 1.7999999523162842. Rounded
/// to 32 bits it is the same number again.
double Widened(float value);

/// A value as JSON: Null as null, booleans as true and false, dates as ISO text, numbers with the digits
/// that their column holds. `where` names the field in the failure (13) for a text that is not UTF-8.
Json ToJson(const store::Value& value, const std::string& where);

}  // namespace FX_Algen::cli
