#include "fxalgen/automate/AutomateSession.h"

#include <map>

#include "FX_Algen/Display.h"
#include "FX_Algen/Forms.h"
#include "fxalgen/automate/AutomateForms.h"
#include "fxalgen/automate/AutomateObjects.h"

namespace FX_Algen::cli::rpc {

namespace {

/// The display of the session; the former one is in place again when it ends.
class SessionDisplay {
public:
    SessionDisplay() : former_(SetDisplay(display_)) {}
    ~SessionDisplay() { SetDisplay(former_); }
    SessionDisplay(const SessionDisplay&) = delete;
    SessionDisplay& operator=(const SessionDisplay&) = delete;

    store::RecordingMessages& Messages() { return display_->Messages(); }

private:
    std::shared_ptr<controls::RecordingDisplay> display_ = std::make_shared<controls::RecordingDisplay>();
    std::shared_ptr<store::Messages> former_;
};

Json ButtonNames(store::Buttons buttons) {
    switch (buttons) {
        case store::Buttons::Ok:
            return {"OK"};
        case store::Buttons::OkCancel:
            return {"OK", "Cancel"};
        case store::Buttons::YesNo:
            return {"Yes", "No"};
        case store::Buttons::YesNoCancel:
            return {"Yes", "No", "Cancel"};
    }
    return Json::array();
}

const char* SymbolName(store::Symbol symbol) {
    switch (symbol) {
        case store::Symbol::None:
            return "None";
        case store::Symbol::Information:
            return "Information";
        case store::Symbol::Question:
            return "Question";
        case store::Symbol::Exclamation:
            return "Exclamation";
        case store::Symbol::Critical:
            return "Critical";
    }
    return "";
}

Json BoxJson(const store::ShownBox& box) {
    return {{"kind", box.Kind},
            {"title", box.Title},
            {"text", box.Text},
            {"buttons", ButtonNames(box.ButtonsShown)},
            {"symbol", SymbolName(box.SymbolShown)},
            {"answer", box.GivenText}};
}

}  // namespace

/// Databases and objects of one run, and the methods on them.
class Session::State {
public:
    Json Run(const std::string& method, const Json& params) {
        for (const auto& entry : Methods())
            if (entry.Name == method) return (this->*entry.Handler)(Named(entry, params));
        throw Failure(Code::MethodNotFound, "There is no method '" + method + "'.");
    }

private:
    struct Parameter {
        std::string Name;
        bool Required = true;
    };
    struct Method {
        std::string Name;
        std::vector<Parameter> Parameters;
        Json (State::*Handler)(const Json& params);
    };

    static const std::vector<Method>& Methods() {
        static const std::vector<Method> methods{
            {"database.open", {{"path"}}, &State::DatabaseOpen},
            {"database.close", {{"database"}}, &State::DatabaseClose},
            {"database.execute", {{"database"}, {"sql"}}, &State::DatabaseExecute},
            {"database.query", {{"database"}, {"sql"}}, &State::DatabaseQuery},
            {"object.create", {{"class"}}, &State::ObjectCreate},
            {"object.set", {{"object"}, {"members"}}, &State::ObjectSet},
            {"object.get", {{"object"}, {"member"}, {"index", false}}, &State::ObjectGet},
            {"object.call", {{"object"}, {"operation"}, {"arguments", false}}, &State::ObjectCall},
            {"object.release", {{"object"}}, &State::ObjectRelease},
            {"dialog.answers", {{"answers"}}, &State::DialogAnswers},
            {"dialog.shown", {}, &State::DialogShown},
            {"form.list", {}, &State::FormList},
            {"form.state", {{"form"}, {"rows", false}}, &State::FormState},
            {"form.act",
             {{"form"},
              {"control", false},
              {"action"},
              {"text", false},
              {"value", false},
              {"entry", false},
              {"row", false},
              {"col", false},
              {"index", false},
              {"position", false},
              {"key", false},
              {"shift", false},
              {"ctrl", false},
              {"alt", false}},
             &State::FormAct},
        };
        return methods;
    }

    /// Parameters by name, whether they came so or as a list in order. One that may be left out and is null
    /// was left out: many a host writes it so, and a list cannot pass over it otherwise.
    static Json Named(const Method& method, const Json& given) {
        Json out = Json::object();
        if (given.is_array()) {
            if (given.size() > method.Parameters.size())
                throw Failure(Code::InvalidParams, method.Name + " takes " +
                                                       std::to_string(method.Parameters.size()) +
                                                       " parameters at most.");
            for (std::size_t i = 0; i < given.size(); ++i) out[method.Parameters[i].Name] = given[i];
        } else {
            out = given;
        }
        for (const auto& [name, value] : out.items()) {
            bool known = false;
            for (const auto& parameter : method.Parameters) known = known || parameter.Name == name;
            if (!known) throw Failure(Code::InvalidParams, method.Name + " has no parameter '" + name + "'.");
        }
        for (const auto& parameter : method.Parameters) {
            if (!parameter.Required && out.contains(parameter.Name) && out[parameter.Name].is_null())
                out.erase(parameter.Name);
            if (parameter.Required && !out.contains(parameter.Name))
                throw Failure(Code::InvalidParams,
                              method.Name + ": the parameter '" + parameter.Name + "' is missing.");
        }
        return out;
    }

    std::string Text(const Json& params, const char* name) const {
        return FromJson<std::string>(params[name], databases_, name);
    }

    const store::DatabasePtr& DatabaseOf(const Json& params) const {
        return rpc::DatabaseOf(databases_, params["database"], "database");
    }

    std::int32_t ObjectNumber(const Json& params) const {
        const auto number = FromJson<std::int32_t>(params["object"], databases_, "object");
        if (!objects_.contains(number))
            throw Failure(Code::InvalidParams, "object: there is no object " + std::to_string(number) + ".");
        return number;
    }

    Json DatabaseOpen(const Json& params) {
        databases_.emplace(++lastDatabase_, store::Workspace().OpenDatabase(Text(params, "path")));
        return {{"database", lastDatabase_}};
    }

    Json DatabaseClose(const Json& params) {
        const auto database = DatabaseOf(params);
        // Nothing that a person typed may go with the database.
        if (const auto left = CloseForms(database); !left.empty())
            throw Failure(Code::StaysOpen, "The database stays open: " + StaysOpen(left));
        databases_.erase(params["database"].get<std::int32_t>());
        database->Close();
        return nullptr;
    }

    Json DatabaseExecute(const Json& params) {
        DatabaseOf(params)->Execute(Text(params, "sql"));
        return nullptr;
    }

    Json DatabaseQuery(const Json& params) {
        return ToJson(DatabaseOf(params)->OpenRecordset(Text(params, "sql")));
    }

    Json ObjectCreate(const Json& params) {
        const auto name = Text(params, "class");
        auto object = MakeObject(name);
        if (!object) throw Failure(Code::MethodNotFound, "There is no class '" + name + "'.");
        objects_.emplace(++lastObject_, std::move(object));
        return {{"object", lastObject_}};
    }

    Json ObjectSet(const Json& params) {
        auto& object = *objects_.at(ObjectNumber(params));
        if (!params["members"].is_object())
            throw Failure(Code::InvalidParams, "members: an object of names and values is needed.");
        for (const auto& [name, value] : params["members"].items()) object.Set(name, value, databases_);
        return nullptr;
    }

    Json ObjectGet(const Json& params) {
        const auto& object = *objects_.at(ObjectNumber(params));
        std::optional<Json> index;
        if (params.contains("index")) index = params["index"];
        return object.Get(Text(params, "member"), index);
    }

    Json ObjectCall(const Json& params) {
        auto& object = *objects_.at(ObjectNumber(params));
        const Json arguments = params.contains("arguments") ? params["arguments"] : Json::array();
        if (!arguments.is_structured())
            throw Failure(Code::InvalidParams, "arguments: an object by names or a list is needed.");
        return object.Call(Text(params, "operation"), arguments, databases_);
    }

    Json ObjectRelease(const Json& params) {
        objects_.erase(ObjectNumber(params));
        return nullptr;
    }

    Json DialogAnswers(const Json& params) {
        const auto& answers = params["answers"];
        if (!answers.is_array()) throw Failure(Code::InvalidParams, "answers: a list of texts is needed.");
        std::vector<std::string> words;
        for (const auto& answer : answers)
            words.push_back(FromJson<std::string>(answer, databases_, "answers"));
        display_.Messages().SetAnswerTexts(std::move(words));
        return nullptr;
    }

    Json DialogShown(const Json&) {
        Json out = Json::array();
        for (const auto& box : display_.Messages().TakeShown()) out.push_back(BoxJson(box));
        return out;
    }

    Json FormList(const Json&) { return rpc::FormList(); }
    Json FormState(const Json& params) { return rpc::FormStateOf(params); }
    Json FormAct(const Json& params) { return rpc::FormAct(params); }

    SessionDisplay display_;
    Databases databases_;
    std::map<std::int32_t, std::unique_ptr<Object>> objects_;
    std::int32_t lastDatabase_ = 0;
    std::int32_t lastObject_ = 0;
};

Session::Session() : state_(std::make_unique<State>()) {}

Session::~Session() {
    // Forms belong to the thread and would stay open for whoever runs next on it.
    DiscardForms();
}

std::optional<std::string> Session::Answer(std::string_view line) {
    return AnswerLine(
        line, [this](const std::string& method, const Json& params) { return state_->Run(method, params); });
}

std::string StaysOpen(const std::vector<std::string>& forms) {
    std::string names;
    for (const auto& form : forms) names += (names.empty() ? "" : ", ") + form;
    return "what was typed last in " + names + " could not be saved.";
}

}  // namespace FX_Algen::cli::rpc
