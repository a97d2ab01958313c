#include "FX_Algen/Messages.h"

#include <iterator>
#include <utility>

#include "store/TextOrder.h"

namespace FX_Algen::store {

namespace {

bool Offers(Buttons buttons, Answer answer) {
    switch (buttons) {
        case Buttons::Ok:
            return answer == Answer::Ok;
        case Buttons::OkCancel:
            return answer == Answer::Ok || answer == Answer::Cancel;
        case Buttons::YesNo:
            return answer == Answer::Yes || answer == Answer::No;
        case Buttons::YesNoCancel:
            return answer != Answer::Ok;
    }
    return false;
}

/// The answer that changes nothing.
Answer Safest(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::YesNo:
            return Answer::No;
        case Buttons::OkCancel:
        case Buttons::YesNoCancel:
            break;
    }
    return Answer::Cancel;
}

}  // namespace

std::string_view AnswerText(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return "OK";
        case Answer::Cancel:
            return "Cancel";
        case Answer::Yes:
            return "Yes";
        case Answer::No:
            return "No";
    }
    return {};
}

Answer RecordingMessages::Box(std::string_view title, std::string_view text, Buttons buttons, Symbol symbol) {
    auto answer = Safest(buttons);
    if (buttons != Buttons::Ok) {
        // An answer that the box does not offer is used up all the same: the list runs in step with the
        // questions.
        if (const auto given = TakeAnswer())
            for (const auto possible : {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No})
                if (CompareCaseBlind(AnswerText(possible), *given) == 0 && Offers(buttons, possible))
                    answer = possible;
    }
    Record({std::string(title), std::string(text), buttons, symbol, answer,
            buttons == Buttons::Ok ? "message" : "question", std::string(AnswerText(answer))});
    return answer;
}

std::optional<std::string> RecordingMessages::TakeAnswer() {
    if (answers_.empty()) return std::nullopt;
    auto answer = std::move(answers_.front());
    answers_.erase(answers_.begin());
    return answer;
}

void RecordingMessages::Record(ShownBox shown) {
    if (shown_.size() == Limit) shown_.pop_front();
    shown_.push_back(std::move(shown));
}

void RecordingMessages::SetAnswers(const std::vector<Answer>& answers) {
    answers_.clear();
    for (const auto answer : answers) answers_.emplace_back(AnswerText(answer));
}

std::vector<ShownBox> RecordingMessages::TakeShown() {
    std::vector<ShownBox> out(std::make_move_iterator(shown_.begin()), std::make_move_iterator(shown_.end()));
    shown_.clear();
    return out;
}

}  // namespace FX_Algen::store
