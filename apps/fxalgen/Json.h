#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

using Json = nlohmann::ordered_json;

/// A value as JSON: Null as null, booleans as true and false, dates as ISO text, numbers with the digits
/// that their column holds. `where` names the field in the failure (13) for a text that is not UTF-8.
Json ToJson(const store::Value& value, const std::string& where);

}  // namespace FX_Algen::cli
