#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "FX_Algen/Store.h"
#include "FX_Algen/Value.h"
#include "fxalgen/automate/AutomateRpc.h"

/// Values of the public classes as JSON and back.
namespace FX_Algen::cli::rpc {

/// Open databases by the number that the host knows them by.
using Databases = std::map<std::int32_t, store::DatabasePtr>;

/// The database with the number; -32602 where there is none.
const store::DatabasePtr& DatabaseOf(const Databases& databases, const Json& number,
                                     const std::string& where);

/// Reads a value of the C++ type from JSON. `where` names the member or argument for messages. What is of
/// another type fails with -32602, a number outside the range of its type with 6.
template <class T>
T FromJson(const Json& value, const Databases& databases, const std::string& where);

template <>
bool FromJson<bool>(const Json&, const Databases&, const std::string&);
template <>
std::int16_t FromJson<std::int16_t>(const Json&, const Databases&, const std::string&);
template <>
std::int32_t FromJson<std::int32_t>(const Json&, const Databases&, const std::string&);
template <>
float FromJson<float>(const Json&, const Databases&, const std::string&);
template <>
double FromJson<double>(const Json&, const Databases&, const std::string&);
template <>
std::string FromJson<std::string>(const Json&, const Databases&, const std::string&);
/// `{"database": n}`, or null for none.
template <>
store::DatabasePtr FromJson<store::DatabasePtr>(const Json&, const Databases&, const std::string&);
/// `{"workspace": 1}`, the one workspace there is, or null for none.
template <>
store::WorkspacePtr FromJson<store::WorkspacePtr>(const Json&, const Databases&, const std::string&);

Json ToJson(bool value);
Json ToJson(std::int16_t value);
Json ToJson(std::int32_t value);
Json ToJson(float value);
Json ToJson(double value);
Json ToJson(const std::string& value);
/// Null as null, booleans as true and false, dates as ISO text, 32-bit floats as short as they read back.
Json ToJson(const store::Value& value);
/// `{columns, rows}` with all rows of the result; null where there is none.
Json ToJson(const store::RecordsetPtr& recordset);

}  // namespace FX_Algen::cli::rpc
