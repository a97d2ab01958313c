#include "FX_Algen/Display.h"

#include <utility>

#include "controls/Form.h"

namespace FX_Algen::controls {

// -- without a person

std::optional<std::string> Display::OpenFile(std::string_view /*title*/, std::string_view /*filter*/) {
    return std::nullopt;
}

std::optional<std::string> Display::SaveFile(std::string_view /*title*/, std::string_view /*filter*/) {
    return std::nullopt;
}

void Display::OpenWithSystem(std::string_view /*path*/) {}

std::int32_t Display::ShowForm(Form& form, std::int32_t /*parent*/) {
    return form.Window() != 0 ? form.Window() : ++lastWindow_;
}

void Display::CloseForm(Form& /*form*/) {}

// -- recording

RecordingDisplay::RecordingDisplay() : RecordingDisplay(std::make_shared<store::RecordingMessages>()) {}

RecordingDisplay::RecordingDisplay(std::shared_ptr<store::RecordingMessages> messages)
    : messages_(std::move(messages)) {}

store::Answer RecordingDisplay::Box(std::string_view title, std::string_view text, store::Buttons buttons,
                                    store::Symbol symbol) {
    return messages_->Box(title, text, buttons, symbol);
}

void RecordingDisplay::Busy(bool on) { messages_->Busy(on); }

void RecordingDisplay::ProgressShow(std::int32_t hostWindow, float left, float top, float width,
                                    float height) {
    messages_->ProgressShow(hostWindow, left, top, width, height);
}

void RecordingDisplay::ProgressDraw(std::int16_t percent, std::string_view text) {
    messages_->ProgressDraw(percent, text);
}

void RecordingDisplay::ProgressHide(std::int32_t hostWindow) { messages_->ProgressHide(hostWindow); }

std::optional<std::string> RecordingDisplay::OpenFile(std::string_view title, std::string_view filter) {
    return AskForFile(title, filter);
}

std::optional<std::string> RecordingDisplay::SaveFile(std::string_view title, std::string_view filter) {
    return AskForFile(title, filter);
}

std::optional<std::string> RecordingDisplay::AskForFile(std::string_view title, std::string_view filter) {
    auto path = messages_->TakeAnswer();
    // A list that lost step with the questions must not make a file named "Yes".
    for (const auto word : {store::Answer::Ok, store::Answer::Cancel, store::Answer::Yes, store::Answer::No})
        if (path == store::AnswerText(word)) path.reset();
    const auto answer = path ? store::Answer::Ok : store::Answer::Cancel;
    messages_->Record({std::string(title), std::string(filter), store::Buttons::OkCancel, store::Symbol::None,
                       answer, "file", path.value_or(std::string(store::AnswerText(answer)))});
    return path;
}

void RecordingDisplay::OpenWithSystem(std::string_view path) {
    messages_->Record({{},
                       std::string(path),
                       store::Buttons::Ok,
                       store::Symbol::None,
                       store::Answer::Ok,
                       "open",
                       std::string(store::AnswerText(store::Answer::Ok))});
}

}  // namespace FX_Algen::controls
