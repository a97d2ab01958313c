#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Display.h"
#include "controls/Input.h"
#include "controls/OpenForms.h"

namespace FX_Algen::controls {

/// A form that is shown, the input to it, and a display that records.
class Formtest : public testing::Test {
protected:
    Formtest() : former_(SetDisplay(display)) { form->Show(); }
    ~Formtest() override {
        for (const auto forms = OpenForms().All(); const auto& open : forms) open->Close(Ending::Discard);
        SetDisplay(former_);
    }

    void Log(std::string line) { log_.push_back(std::move(line)); }
    /// What was logged since the last call.
    std::vector<std::string> Logged() { return std::exchange(log_, {}); }
    /// The boxes since the last call as "title|text".
    std::vector<std::string> Shown() {
        std::vector<std::string> out;
        for (const auto& box : display->Messages().TakeShown()) out.push_back(box.Title + "|" + box.Text);
        return out;
    }

    std::shared_ptr<RecordingDisplay> display = std::make_shared<RecordingDisplay>();

private:
    std::shared_ptr<store::Messages> former_;
    std::vector<std::string> log_;

protected:
    std::shared_ptr<Form> form = OpenForms().Load<Form>("frmÜbung");
    Input input{*form};
};

}  // namespace FX_Algen::controls
