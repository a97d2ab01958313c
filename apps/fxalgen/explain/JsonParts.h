#pragma once

#include <optional>
#include <string>

#include "fxalgen/Json.h"

/// Pieces of which larger structures are put together as JSON.
namespace FX_Algen::cli {

inline Json TextOf(const std::string& text, const char* where) { return ToJson(store::Value(text), where); }

/// Null for an absent value.
template <typename T>
Json Optional(const std::optional<T>& value) {
    return value ? Json(*value) : Json(nullptr);
}

template <typename List, typename Convert>
Json ListOf(const List& list, Convert convert) {
    Json array = Json::array();
    for (const auto& entry : list) array.push_back(convert(entry));
    return array;
}

}  // namespace FX_Algen::cli
