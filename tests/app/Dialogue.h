#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fxalgen/automate/AutomateRpc.h"
#include "fxalgen/automate/AutomateSession.h"

namespace FX_Algen::cli {

/// A talk with the bridge in which each request may depend on the answers before it.
class Dialogue {
public:
    virtual ~Dialogue() = default;

    /// The whole answer to a request.
    rpc::Json Ask(const std::string& method, const rpc::Json& params = rpc::Json::object()) {
        const rpc::Json request{{"jsonrpc", "2.0"}, {"id", ++count_}, {"method", method}, {"params", params}};
        return rpc::Json::parse(Line(request.dump()));
    }

    /// What a request that must not fail results in.
    rpc::Json Result(const std::string& method, const rpc::Json& params = rpc::Json::object()) {
        const auto answer = Ask(method, params);
        EXPECT_FALSE(answer.contains("error")) << method << " " << params << ": " << answer;
        return answer.contains("result") ? answer["result"] : rpc::Json();
    }

    /// Does something to a control and answers whether it was taken.
    bool Act(const std::string& form, const std::string& control, const std::string& action,
             rpc::Json more = rpc::Json::object()) {
        more["form"] = form;
        if (!control.empty()) more["control"] = control;
        more["action"] = action;
        const auto result = Result("form.act", more);
        reason_ = result.is_object() ? result.value("reason", "") : "";
        return result.is_object() && result.value("taken", false);
    }
    /// Why the last action was not taken.
    const std::string& Reason() const { return reason_; }

    /// A control as `form.state` tells it.
    rpc::Json Control(const std::string& form, const std::string& name) {
        const auto state = Result("form.state", {{"form", form}});
        if (state.is_object())
            for (const auto& control : state["controls"])
                if (control["name"] == name) return control;
        ADD_FAILURE() << form << " has no " << name;
        return rpc::Json::object();
    }

protected:
    /// The answer to a line, both without line end.
    virtual std::string Line(const std::string& request) = 0;

private:
    int count_ = 0;
    std::string reason_;
};

/// The same in this process.
class OwnDialogue : public Dialogue {
protected:
    std::string Line(const std::string& request) override { return session_.Answer(request).value_or(""); }

private:
    rpc::Session session_;
};

}  // namespace FX_Algen::cli
