#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace FX_Algen::store {

/// Buttons and symbols of a box, as hosts know them.
enum class Buttons : std::uint8_t { Ok, OkCancel, YesNo, YesNoCancel };
enum class Symbol : std::uint8_t { None, Information, Question, Exclamation, Critical };
enum class Answer : std::uint8_t { Ok, Cancel, Yes, No };

/// The word for an answer: "OK", "Cancel", "Yes" or "No".
std::string_view AnswerText(Answer answer);

/// What routines without windows need of a person: boxes, the busy pointer, the progress form.
class Messages {
public:
    virtual ~Messages() = default;

    /// Shows a box and waits for the answer.
    virtual Answer Box(std::string_view title, std::string_view text, Buttons buttons = Buttons::Ok,
                       Symbol symbol = Symbol::None) = 0;
    /// Busy pointer on or off.
    virtual void Busy(bool on) = 0;
    /// The progress form: shown at a place inside the host's form, drawn, taken away.
    virtual void ProgressShow(std::int32_t hostWindow, float left, float top, float width, float height) = 0;
    virtual void ProgressDraw(std::int16_t percent, std::string_view text) = 0;
    virtual void ProgressHide(std::int32_t hostWindow) = 0;
};

/// One box as it was shown, or another thing that was asked of a person.
struct ShownBox {
    std::string Title;
    std::string Text;
    Buttons ButtonsShown = Buttons::Ok;
    Symbol SymbolShown = Symbol::None;
    Answer Given = Answer::Ok;
    /// "message" (a box with OK alone), "question", "file" (a path is asked for), "open" (a file was handed
    /// to the system's program).
    std::string Kind = "message";
    /// The answer as a word, or the path that was given for a file.
    std::string GivenText = "OK";
};

/// The port that serves where no host installed one: it records what was shown, the last `Limit` boxes,
/// and answers questions from a list given beforehand, else by their safest answer (No, Cancel, OK).
class RecordingMessages : public Messages {
public:
    static constexpr std::size_t Limit = 10000;

    Answer Box(std::string_view title, std::string_view text, Buttons buttons, Symbol symbol) override;
    void Busy(bool on) override { busy_ = on; }
    void ProgressShow(std::int32_t, float, float, float, float) override {}
    void ProgressDraw(std::int16_t, std::string_view) override {}
    void ProgressHide(std::int32_t) override {}

    /// Answers for the coming questions, in order, in place of those left over; boxes with OK alone take
    /// none of them. An answer that a question does not offer is used up and the safest one given.
    void SetAnswers(const std::vector<Answer>& answers);
    /// The same as words, "Yes", "No", "OK", "Cancel", of any case, or any other text for what asks for a
    /// text.
    void SetAnswerTexts(std::vector<std::string> answers) { answers_ = std::move(answers); }
    /// The next answer as a text, which is used up; none where none is left.
    std::optional<std::string> TakeAnswer();
    /// Adds what another part of a display was asked, in its order among the boxes.
    void Record(ShownBox shown);
    /// What was shown since the last call.
    std::vector<ShownBox> TakeShown();
    bool IsBusy() const noexcept { return busy_; }

private:
    std::vector<std::string> answers_;
    std::deque<ShownBox> shown_;
    bool busy_ = false;
};

}  // namespace FX_Algen::store
