#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fxalgen/automate/AutomateValues.h"

namespace FX_Algen::cli::rpc {

/// Which way a member goes.
enum class Direction : std::uint8_t { Set, Get, IndexedGet };

/// A member as the tables of the bridge know it.
struct MemberDescription {
    std::string Name;
    Direction Way;
};

/// An argument of an operation.
struct ArgumentDescription {
    std::string Name;
    bool IsResult;  ///< the operation hands a value back in it
};

/// An operation as the tables of the bridge know it.
struct OperationDescription {
    std::string Name;
    std::vector<ArgumentDescription> Arguments;
};

/// An instance of a public class, driven by the names of its members.
///
/// An unknown member or operation fails with -32601, and so does a member that goes the other way only; a
/// wrong value or argument with -32602; failures of the module come as `Error`.
class Object {
public:
    virtual ~Object() = default;
    virtual void Set(const std::string& member, const Json& value, const Databases& databases) = 0;
    virtual Json Get(const std::string& member, const std::optional<Json>& index) const = 0;
    /// `arguments` is an object by names or a list in order.
    virtual Json Call(const std::string& operation, const Json& arguments, const Databases& databases) = 0;

    virtual std::vector<MemberDescription> Members() const = 0;
    virtual std::vector<OperationDescription> Operations() const = 0;
};

/// A new instance of "AL_PS", "AL_Katalog" or "AL_PS_Grafik"; none for any other name.
std::unique_ptr<Object> MakeObject(const std::string& className);

}  // namespace FX_Algen::cli::rpc
