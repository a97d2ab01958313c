#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "fxalgen/automate/Automate.h"
#include "fxalgen/automate/AutomateObjects.h"

namespace FX_Algen::cli {

/// Lines of requests and their answers in one run of the bridge.
class Conversation {
public:
    /// Adds a request and returns the position of its answer.
    std::size_t Ask(const std::string& method, const rpc::Json& params = rpc::Json::object()) {
        const rpc::Json request{{"jsonrpc", "2.0"}, {"id", count_}, {"method", method}, {"params", params}};
        lines_ += request.dump() + "\n";
        return count_++;
    }

    /// Runs what was asked; answers by position.
    std::vector<rpc::Json> Run() {
        std::istringstream in(lines_);
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(Automate(in, out, err), 0);
        EXPECT_EQ(err.str(), "");
        std::vector<rpc::Json> answers;
        std::istringstream written(out.str());
        for (std::string line; std::getline(written, line);) answers.push_back(rpc::Json::parse(line));
        EXPECT_EQ(answers.size(), count_);
        return answers;
    }

private:
    std::string lines_;
    std::size_t count_ = 0;
};

inline std::int32_t CodeOf(const rpc::Json& answer) {
    return answer.contains("error") ? answer["error"]["code"].get<std::int32_t>() : 0;
}

inline std::string MessageOf(const rpc::Json& answer) {
    return answer.contains("error") ? answer["error"]["message"].get<std::string>() : "";
}

}  // namespace FX_Algen::cli
