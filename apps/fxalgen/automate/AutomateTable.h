#pragma once

#include <array>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "fxalgen/automate/AutomateObjects.h"

/// Tables of members and operations of a class, filled with pointers to its members: types of values and
/// arguments follow from the C++ declarations, so that a table cannot disagree with them.
namespace FX_Algen::cli::rpc {

template <class T>
class ClassTable {
public:
    struct Member {
        std::string Name;
        Direction Way;
        std::function<void(T&, const Json&, const Databases&, const std::string&)> Set;
        std::function<Json(const T&, std::int16_t)> Get;
    };
    struct Operation {
        OperationDescription Description;
        std::function<Json(T&, const std::vector<Json>&, const Databases&, const std::string&)> Call;
    };

    explicit ClassTable(std::string name) : name_(std::move(name)) {}

    template <class A>
    ClassTable& Set(std::string name, void (T::*member)(A)) {
        members_.push_back(
            {std::move(name),
             Direction::Set,
             [member](T& object, const Json& value, const Databases& databases, const std::string& where) {
                 (object.*member)(FromJson<std::remove_cvref_t<A>>(value, databases, where));
             },
             {}});
        return *this;
    }

    template <class R>
    ClassTable& Get(std::string name, R (T::*member)() const) {
        members_.push_back({std::move(name), Direction::Get, {}, [member](const T& object, std::int16_t) {
                                return ToJson((object.*member)());
                            }});
        return *this;
    }

    template <class R>
    ClassTable& Get(std::string name, R (T::*member)(std::int16_t) const) {
        members_.push_back(
            {std::move(name), Direction::IndexedGet, {}, [member](const T& object, std::int16_t index) {
                 return ToJson((object.*member)(index));
             }});
        return *this;
    }

    /// An argument that is a reference to a value that is not const hands a result back.
    template <class R, class... A>
    ClassTable& Call(std::string name, R (T::*operation)(A...),
                     std::array<const char*, sizeof...(A)> names = {}) {
        OperationDescription description{std::move(name), {}};
        if constexpr (sizeof...(A) > 0) {
            constexpr std::array results{IsResult<A>...};
            for (std::size_t i = 0; i < names.size(); ++i)
                description.Arguments.push_back({names[i], results[i]});
        }
        const auto arguments = description.Arguments;
        operations_.push_back({std::move(description),
                               [operation, arguments](T& object, const std::vector<Json>& values,
                                                      const Databases& databases, const std::string& where) {
                                   return Run(object, operation, arguments, values, databases, where,
                                              std::index_sequence_for<A...>{});
                               }});
        return *this;
    }

    const std::string& Name() const noexcept { return name_; }
    const std::vector<Member>& Members() const noexcept { return members_; }
    const std::vector<Operation>& Operations() const noexcept { return operations_; }

private:
    template <class A>
    static constexpr bool IsResult =
        std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>>;

    template <class R, class... A, std::size_t... I>
    static Json Run(T& object, R (T::*operation)(A...), const std::vector<ArgumentDescription>& arguments,
                    [[maybe_unused]] const std::vector<Json>& values,
                    [[maybe_unused]] const Databases& databases, [[maybe_unused]] const std::string& where,
                    std::index_sequence<I...>) {
        [[maybe_unused]] std::tuple<std::remove_cvref_t<A>...> given{
            FromJson<std::remove_cvref_t<A>>(values[I], databases, where + ", " + arguments[I].Name)...};
        Json result;
        if constexpr (std::is_void_v<R>)
            (object.*operation)(std::get<I>(given)...);
        else
            result = ToJson((object.*operation)(std::get<I>(given)...));
        if constexpr ((IsResult<A> || ...)) {
            Json out{{"result", std::move(result)}};
            ((IsResult<A> ? void(out[arguments[I].Name] = ToJson(std::get<I>(given))) : void()), ...);
            return out;
        }
        return result;
    }

    std::string name_;
    std::vector<Member> members_;
    std::vector<Operation> operations_;
};

/// An instance of `T` with the table of its class.
template <class T>
class TableObject : public Object {
public:
    explicit TableObject(const ClassTable<T>& table) : table_(table) {}

    void Set(const std::string& member, const Json& value, const Databases& databases) override {
        const auto& found = Find(member);
        if (found.Way != Direction::Set)
            throw Failure(Code::MethodNotFound, Where(member) + " can be read only.");
        found.Set(instance_, value, databases, Where(member));
    }

    Json Get(const std::string& member, const std::optional<Json>& index) const override {
        const auto& found = Find(member);
        if (found.Way == Direction::Set)
            throw Failure(Code::MethodNotFound, Where(member) + " can be set only.");
        if ((found.Way == Direction::IndexedGet) != index.has_value())
            throw Failure(Code::InvalidParams,
                          Where(member) + (index ? " takes no index." : " needs an index."));
        return found.Get(instance_, index ? FromJson<std::int16_t>(*index, {}, Where(member) + ", index")
                                          : std::int16_t{0});
    }

    Json Call(const std::string& operation, const Json& arguments, const Databases& databases) override {
        for (const auto& entry : table_.Operations()) {
            if (entry.Description.Name != operation) continue;
            const auto where = Where(operation);
            return entry.Call(instance_, Ordered(entry.Description.Arguments, arguments, where), databases,
                              where);
        }
        throw Failure(Code::MethodNotFound, table_.Name() + " has no operation '" + operation + "'.");
    }

    std::vector<MemberDescription> Members() const override {
        std::vector<MemberDescription> out;
        for (const auto& member : table_.Members()) out.push_back({member.Name, member.Way});
        return out;
    }

    std::vector<OperationDescription> Operations() const override {
        std::vector<OperationDescription> out;
        for (const auto& operation : table_.Operations()) out.push_back(operation.Description);
        return out;
    }

private:
    std::string Where(const std::string& name) const { return table_.Name() + "." + name; }

    const typename ClassTable<T>::Member& Find(const std::string& name) const {
        for (const auto& member : table_.Members())
            if (member.Name == name) return member;
        throw Failure(Code::MethodNotFound, table_.Name() + " has no member '" + name + "'.");
    }

    /// Arguments in the order of the declaration. One that hands a result back may be left out.
    static std::vector<Json> Ordered(const std::vector<ArgumentDescription>& declared, const Json& given,
                                     const std::string& where) {
        std::vector<Json> out;
        if (given.is_array() && given.size() > declared.size())
            throw Failure(Code::InvalidParams,
                          where + " takes " + std::to_string(declared.size()) + " arguments at most.");
        if (given.is_object()) RefuseUnknown(declared, given, where);
        for (const auto& argument : declared) {
            const auto position = out.size();
            if (given.is_array() && position < given.size())
                out.push_back(given[position]);
            else if (given.is_object() && given.contains(argument.Name))
                out.push_back(given[argument.Name]);
            else if (argument.IsResult)
                out.push_back(0);
            else
                throw Failure(Code::InvalidParams,
                              where + ": the argument '" + argument.Name + "' is missing.");
        }
        return out;
    }

    static void RefuseUnknown(const std::vector<ArgumentDescription>& declared, const Json& given,
                              const std::string& where) {
        for (const auto& [name, value] : given.items()) {
            bool known = false;
            for (const auto& argument : declared) known = known || argument.Name == name;
            if (!known) throw Failure(Code::InvalidParams, where + " has no argument '" + name + "'.");
        }
    }

    const ClassTable<T>& table_;
    T instance_;
};

}  // namespace FX_Algen::cli::rpc
