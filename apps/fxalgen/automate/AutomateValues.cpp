#include "fxalgen/automate/AutomateValues.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "FX_Algen/Error.h"
#include "fxalgen/Json.h"

namespace FX_Algen::cli::rpc {

namespace {

[[noreturn]] void WrongType(const std::string& where, const std::string& wanted) {
    throw Failure(Code::InvalidParams, where + ": " + wanted + " is needed.");
}

template <class Integer>
Integer IntegerFrom(const Json& value, const std::string& where) {
    const std::string wanted(store::KindName(sizeof(Integer) == 2 ? store::Kind::I2 : store::Kind::I4));
    // A number without fraction is an integer however it is written: 17, 17.0, 1.7e1.
    if (!value.is_number() ||
        (value.is_number_float() && std::trunc(value.get<double>()) != value.get<double>()))
        WrongType(where, wanted);
    const auto number = value.get<double>();
    if (number < static_cast<double>(std::numeric_limits<Integer>::min()) ||
        number > static_cast<double>(std::numeric_limits<Integer>::max()))
        throw Error(ErrorNumber::Overflow,
                    "Overflow: " + where + ": " + value.dump() + " does not fit " + wanted + ".");
    return static_cast<Integer>(number);
}

}  // namespace

const store::DatabasePtr& DatabaseOf(const Databases& databases, const Json& number,
                                     const std::string& where) {
    const auto found = databases.find(IntegerFrom<std::int32_t>(number, where));
    if (found == databases.end())
        throw Failure(Code::InvalidParams, where + ": there is no open database " + number.dump() + ".");
    return found->second;
}

template <>
bool FromJson<bool>(const Json& value, const Databases&, const std::string& where) {
    if (!value.is_boolean()) WrongType(where, "true or false");
    return value.get<bool>();
}

template <>
std::int16_t FromJson<std::int16_t>(const Json& value, const Databases&, const std::string& where) {
    return IntegerFrom<std::int16_t>(value, where);
}

template <>
std::int32_t FromJson<std::int32_t>(const Json& value, const Databases&, const std::string& where) {
    return IntegerFrom<std::int32_t>(value, where);
}

template <>
float FromJson<float>(const Json& value, const Databases&, const std::string& where) {
    if (!value.is_number()) WrongType(where, "a number");
    const auto out = static_cast<float>(value.get<double>());
    if (!std::isfinite(out))
        throw Error(ErrorNumber::Overflow,
                    "Overflow: " + where + ": " + value.dump() + " does not fit a 32-bit float.");
    return out;
}

template <>
double FromJson<double>(const Json& value, const Databases&, const std::string& where) {
    if (!value.is_number()) WrongType(where, "a number");
    return value.get<double>();
}

template <>
std::string FromJson<std::string>(const Json& value, const Databases&, const std::string& where) {
    if (!value.is_string()) WrongType(where, "a text");
    return value.get<std::string>();
}

template <>
store::DatabasePtr FromJson<store::DatabasePtr>(const Json& value, const Databases& databases,
                                                const std::string& where) {
    if (value.is_null()) return nullptr;
    if (!value.is_object() || value.size() != 1 || !value.contains("database"))
        WrongType(where, "{\"database\": number}");
    return DatabaseOf(databases, value["database"], where);
}

template <>
store::WorkspacePtr FromJson<store::WorkspacePtr>(const Json& value, const Databases&,
                                                  const std::string& where) {
    if (value.is_null()) return nullptr;
    if (!value.is_object() || value.size() != 1 || !value.contains("workspace") || value["workspace"] != 1)
        WrongType(where, "{\"workspace\": 1}");
    return std::make_shared<store::Workspace>();
}

Json ToJson(bool value) { return value; }
Json ToJson(std::int16_t value) { return value; }
Json ToJson(std::int32_t value) { return value; }

Json ToJson(float value) {
    if (!std::isfinite(value)) return store::NumberText(value);
    return Widened(value);
}

Json ToJson(double value) {
    if (!std::isfinite(value)) return store::NumberText(value);
    return value;
}

Json ToJson(const std::string& value) { return value; }

Json ToJson(const store::Value& value) {
    switch (value.kind()) {
        case store::Kind::Null:
            return nullptr;
        case store::Kind::I2:
            return value.I2();
        case store::Kind::I4:
            return value.I4();
        case store::Kind::R4:
            return ToJson(value.R4());
        case store::Kind::R8:
            return ToJson(value.R8());
        case store::Kind::Bool:
            return value.Bool();
        case store::Kind::Text:
        case store::Kind::Date:
            return value.Text();
    }
    return nullptr;
}

Json ToJson(const store::RecordsetPtr& recordset) {
    if (!recordset) return nullptr;
    Json columns = Json::array();
    for (const auto& field : recordset->Fields()) columns.push_back(field.Name);
    Json rows = Json::array();
    if (recordset->RecordCount() > 0) recordset->MoveFirst();
    for (; !recordset->Eof(); recordset->MoveNext()) {
        Json row = Json::array();
        for (std::size_t i = 0; i < columns.size(); ++i) row.push_back(ToJson((*recordset)[i]));
        rows.push_back(std::move(row));
    }
    return {{"columns", std::move(columns)}, {"rows", std::move(rows)}};
}

}  // namespace FX_Algen::cli::rpc
