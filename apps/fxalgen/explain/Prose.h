#pragma once

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <string>

#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

/// Writes sentences of an explanation in one language, folded where they grow too wide for a page.
class Prose {
public:
    static constexpr std::size_t LineWidth = 116;

    Prose(std::ostream& out, std::int16_t SprachID) : out_(out), SprachID_(SprachID) {}

    /// A text of the string table; each "|" in it is replaced by the next of `values`.
    std::string Word(std::int16_t offset, std::initializer_list<std::string> values = {}) const;
    /// All digits that a number holds; a text as it is.
    std::string Exact(const store::Value& value) const;
    /// Rounded to `places`, all of them shown.
    std::string Number(double value, std::int16_t places = 4) const;
    /// Rounded to `places`, without zeros at its end: 96 and 66,6667.
    std::string Short(double value, std::int16_t places = 4) const;

    void Title(const std::string& text) const;
    /// A line, or several: folded at blanks, the further ones indented more.
    void Line(std::size_t indent, const std::string& text) const;
    void Blank() const;

    std::ostream& Out() const { return out_; }
    std::int16_t SprachID() const { return SprachID_; }

private:
    std::ostream& out_;
    std::int16_t SprachID_;
};

}  // namespace FX_Algen::cli
