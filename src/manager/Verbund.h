#pragma once

#include <string>
#include <string_view>

namespace FX_Algen::manager {

/// Tables of a FROM clause, joined one by one. A join of tables that takes part in a further one is set into
/// brackets, as the store wants it.
class Verbund {
public:
    explicit Verbund(std::string_view tabelle) : text_(tabelle) {}

    Verbund Mit(const Verbund& andere, std::string_view bedingung) const {
        return Verbund(*this, " INNER JOIN ", andere, bedingung);
    }
    Verbund Mit(std::string_view tabelle, std::string_view bedingung) const {
        return Mit(Verbund(tabelle), bedingung);
    }
    /// The rows of this one stay where the table has none for them.
    Verbund MitOderOhne(std::string_view tabelle, std::string_view bedingung) const {
        return Verbund(*this, " LEFT JOIN ", Verbund(tabelle), bedingung);
    }
    /// Joined without saying how, which the store rejects.
    Verbund OhneArt(std::string_view tabelle, std::string_view bedingung) const {
        return Verbund(*this, " JOIN ", Verbund(tabelle), bedingung);
    }

    /// The clause, from "FROM " to a blank at its end.
    std::string From() const { return "FROM " + text_ + " "; }

private:
    Verbund(const Verbund& links, std::string_view art, const Verbund& rechts, std::string_view bedingung)
        : text_(links.Teil()), mehrere_(true) {
        text_.append(art).append(rechts.Teil()).append(" ON ").append(bedingung);
    }
    std::string Teil() const { return mehrere_ ? "(" + text_ + ")" : text_; }

    std::string text_;
    bool mehrere_ = false;
};

}  // namespace FX_Algen::manager
