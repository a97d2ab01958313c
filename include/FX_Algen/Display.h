#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Messages.h"

namespace FX_Algen {

namespace controls {

class Form;

/// The only way from the module to a person: boxes and progress (from `store::Messages`), files, programs of
/// the system, windows.
///
/// What is not overridden here does without a person: no file is chosen, nothing is opened, and a form that
/// is shown gets a number and no window.
class Display : public store::Messages {
public:
    /// Asks for a file to read. `filter` is "text|pattern;pattern|text|pattern". None where the person
    /// cancels.
    virtual std::optional<std::string> OpenFile(std::string_view title, std::string_view filter);
    /// Asks for a path to write. None where the person cancels.
    virtual std::optional<std::string> SaveFile(std::string_view title, std::string_view filter);
    /// Hands a file to the program that the system has for its type.
    virtual void OpenWithSystem(std::string_view path);

    /// Shows a form without blocking, as a child of the window with the number `parent` (0 = none), and
    /// answers the number of its own window, above 0. A form that is shown already is brought to the front
    /// and keeps its number.
    virtual std::int32_t ShowForm(Form& form, std::int32_t parent);
    /// Takes the window of a form away. The form is about to end: nothing of it may be kept.
    virtual void CloseForm(Form& form);

private:
    std::int32_t lastWindow_ = 0;
};

/// The display that serves where no host installed one, and for scripts: it shows nothing, records what would
/// have been shown, and answers from a list given beforehand (`store::RecordingMessages`). A question for a
/// file takes the next answer as the path; without one, and with one of the words that answer a box ("Yes",
/// "No", "OK", "Cancel"), it is cancelled.
class RecordingDisplay : public Display {
public:
    RecordingDisplay();
    /// Records into `messages`, which may be read by others too.
    explicit RecordingDisplay(std::shared_ptr<store::RecordingMessages> messages);

    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol) override;
    void Busy(bool on) override;
    void ProgressShow(std::int32_t hostWindow, float left, float top, float width, float height) override;
    void ProgressDraw(std::int16_t percent, std::string_view text) override;
    void ProgressHide(std::int32_t hostWindow) override;
    std::optional<std::string> OpenFile(std::string_view title, std::string_view filter) override;
    std::optional<std::string> SaveFile(std::string_view title, std::string_view filter) override;
    void OpenWithSystem(std::string_view path) override;

    /// What was shown, and the answers to come.
    store::RecordingMessages& Messages() noexcept { return *messages_; }

private:
    std::optional<std::string> AskForFile(std::string_view title, std::string_view filter);

    std::shared_ptr<store::RecordingMessages> messages_;
};

}  // namespace controls

/// Installs the port through which the module reaches a person, for the calling thread, and returns the
/// former one. Without a call, or with none given, a recording one serves: it shows nothing, keeps what would
/// have been shown, and gives the safest answers. A port that is no `controls::Display` gets boxes, busy
/// pointer and progress; forms then work without windows, and questions for files are cancelled
/// (`store::RecordingMessages` keeps and answers these too).
///
/// A host that runs without a person leaves it at that, or installs a `RecordingDisplay` of its own to
/// read the boxes and to give answers beforehand.
std::shared_ptr<store::Messages> SetDisplay(std::shared_ptr<store::Messages> port);

}  // namespace FX_Algen
