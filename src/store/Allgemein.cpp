#include "store/Allgemein.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "FX_Algen/Error.h"
#include "FX_Algen/Texts.h"

namespace FX_Algen::Allgemein {

namespace {

/// One character as it counts in a comparison, and the bytes it takes.
struct Character {
    UChar32 folded;
    std::size_t bytes;
};

Character FoldedAt(std::string_view text, std::size_t at) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    auto next = static_cast<std::int32_t>(at);
    UChar32 c = 0;
    U8_NEXT(bytes, next, length, c);
    // A byte that is no character stands for itself, outside the range of characters.
    if (c < 0) return {0x110000 + bytes[at], 1};
    return {u_foldCase(c, U_FOLD_CASE_DEFAULT), static_cast<std::size_t>(next) - at};
}

/// Bytes of `text` from `at` that equal `part` without regard to case; none where they differ.
std::optional<std::size_t> MatchAt(std::string_view text, std::size_t at, std::string_view part) {
    const auto start = at;
    for (std::size_t p = 0; p < part.size();) {
        if (at >= text.size()) return std::nullopt;
        const auto a = FoldedAt(text, at);
        const auto b = FoldedAt(part, p);
        if (a.folded != b.folded) return std::nullopt;
        at += a.bytes;
        p += b.bytes;
    }
    return at - start;
}

/// A place where a separator stands.
struct Place {
    std::size_t at;
    std::size_t bytes;
};

std::optional<Place> FindPart(std::string_view text, std::size_t from, std::string_view part, Vergleich how) {
    if (part.empty()) return std::nullopt;
    if (how == Vergleich::Binaer) {
        const auto at = text.find(part, from);
        if (at == std::string_view::npos) return std::nullopt;
        return Place{at, part.size()};
    }
    for (auto at = from; at < text.size(); at += FoldedAt(text, at).bytes)
        if (const auto bytes = MatchAt(text, at, part)) return Place{at, *bytes};
    return std::nullopt;
}

}  // namespace

std::int16_t SprachID_Anheben(std::int16_t SprachID) noexcept { return std::max(SprachID, Language::German); }

std::string Str_Ersetzen(std::string_view text, std::string_view alt, std::string_view neu, bool nurErstes) {
    std::string out;
    std::size_t from = 0;
    while (const auto place = FindPart(text, from, alt, Vergleich::Binaer)) {
        out.append(text.substr(from, place->at - from)).append(neu);
        from = place->at + place->bytes;
        if (nurErstes) break;
    }
    return out.append(text.substr(from));
}

std::string Datum_US(const store::Value& datum) {
    const auto iso = datum.AsDate().Iso;
    if (iso.size() < 10) return "12/30/1899";
    const std::string_view day(iso);
    std::string out(day.substr(5, 2));
    return out.append("/").append(day.substr(8, 2)).append("/").append(day.substr(0, 4));
}

std::string Punkt_Setzen(const store::Value& wert) {
    // The semicolon is what hosts rely on; statements get their numbers with a point already.
    return Str_Ersetzen(wert.Text(), ";", ".", true);
}

std::int16_t Liste_Teilen(std::string_view text, std::string_view trenner, Vergleich vergleich,
                          std::vector<std::string>& liste) {
    liste.clear();
    std::size_t from = 0;
    while (const auto place = FindPart(text, from, trenner, vergleich)) {
        liste.emplace_back(text.substr(from, place->at - from));
        from = place->at + place->bytes;
    }
    liste.emplace_back(text.substr(from));
    if (liste.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
        throw Error(ErrorNumber::Overflow,
                    "Overflow: a list of " + std::to_string(liste.size()) + " pieces exceeds 32767.");
    return static_cast<std::int16_t>(liste.size());
}

double Runden(double wert, std::int16_t stellen) {
    const double factor = std::pow(10.0, stellen);
    const double x = wert * factor;
    double i = std::floor(x);
    if (i != x) {
        // nearbyint rounds half to even in the default rounding mode, which nothing here changes.
        const double r = std::nearbyint(x * 10000) / 10000;
        if (r - i >= 0.5) i += 1;
    }
    return i / factor;
}

std::string_view Bool_Text(bool wert) noexcept { return wert ? "-1" : "0"; }

std::string Datum_Konstante(const store::Value& datum) { return "#" + Datum_US(datum) + "#"; }

}  // namespace FX_Algen::Allgemein
