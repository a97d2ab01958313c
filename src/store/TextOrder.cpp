#include "store/TextOrder.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <optional>

namespace FX_Algen::store {

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const noexcept { ucol_close(collator); }
};
using CollatorPtr = std::unique_ptr<UCollator, CloseCollator>;

int CompareByCollator(const UCollator* collator, std::string_view a, std::string_view b) noexcept {
    UErrorCode status = U_ZERO_ERROR;
    return static_cast<int>(ucol_strcollUTF8(collator, a.data(), static_cast<std::int32_t>(a.size()),
                                             b.data(), static_cast<std::int32_t>(b.size()), &status));
}

/// The collator, and the rank of each printable ASCII character in it: such characters differ in their
/// first weight or (letters, in case) not at all, so texts made of them need no collator.
struct German {
    CollatorPtr Collator;
    std::array<std::uint8_t, 256> Rank{};  ///< 0 = ask the collator

    German() {
        UErrorCode status = U_ZERO_ERROR;
        Collator.reset(ucol_open("de", &status));
        if (U_FAILURE(status) || !Collator) return;  // Rank stays 0, bytes are compared
        ucol_setStrength(Collator.get(), UCOL_SECONDARY);
        ucol_setAttribute(Collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
        std::array<char, '~' - ' ' + 1> printable{};
        std::iota(printable.begin(), printable.end(), ' ');
        const auto compare = [this](char a, char b) {
            return CompareByCollator(Collator.get(), std::string_view(&a, 1), std::string_view(&b, 1));
        };
        std::sort(printable.begin(), printable.end(), [&](char a, char b) { return compare(a, b) < 0; });
        std::uint8_t rank = 1;
        for (std::size_t i = 0; i < printable.size(); ++i) {
            if (i > 0 && compare(printable[i - 1], printable[i]) != 0) ++rank;
            Rank[static_cast<unsigned char>(printable[i])] = rank;
        }
    }
};

const German& TheGerman() {
    static const German german;
    return german;
}

/// The order where ranks alone decide it.
std::optional<int> CompareByRank(const German& german, std::string_view a, std::string_view b) noexcept {
    const auto rank = [&german](std::string_view text, std::size_t i) {
        return german.Rank[static_cast<unsigned char>(text[i])];
    };
    // A mark that combines with the character before it could follow.
    const auto stands_alone = [&rank](std::string_view text, std::size_t i) {
        return i + 1 >= text.size() || rank(text, i + 1) != 0;
    };
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int left = rank(a, i);
        const int right = rank(b, i);
        if (left == 0 || right == 0) return std::nullopt;
        if (left == right) continue;
        if (!stands_alone(a, i) || !stands_alone(b, i)) return std::nullopt;
        return left - right;
    }
    if (a.size() == b.size()) return 0;
    if (rank(a.size() > b.size() ? a : b, common) == 0) return std::nullopt;
    return a.size() < b.size() ? -1 : 1;
}

int CompareByGerman(const German& german, std::string_view a, std::string_view b) noexcept {
    return german.Collator ? CompareByCollator(german.Collator.get(), a, b) : a.compare(b);
}

/// The next character of `text` in its folded case.
UChar32 NextFolded(std::string_view text, std::int32_t& at) noexcept {
    UChar32 character = 0;
    const auto size = static_cast<std::int32_t>(text.size());
    U8_NEXT_OR_FFFD(text.data(), at, size, character);
    return u_foldCase(character, U_FOLD_CASE_DEFAULT);
}

int CompareFolded(std::string_view a, std::string_view b) noexcept {
    std::int32_t i = 0;
    std::int32_t j = 0;
    const auto a_size = static_cast<std::int32_t>(a.size());
    const auto b_size = static_cast<std::int32_t>(b.size());
    while (i < a_size && j < b_size) {
        const UChar32 left = NextFolded(a, i);
        const UChar32 right = NextFolded(b, j);
        if (left != right) return left < right ? -1 : 1;
    }
    return (i < a_size ? 1 : 0) - (j < b_size ? 1 : 0);
}

}  // namespace

int CompareCaseBlind(std::string_view a, std::string_view b) noexcept {
    const German& german = TheGerman();
    if (const auto order = CompareByRank(german, a, b)) return *order;
    const int folded = CompareFolded(a, b);
    if (folded == 0) return 0;
    const int order = CompareByGerman(german, a, b);
    return order != 0 ? order : folded;
}

int CompareGerman(std::string_view a, std::string_view b) noexcept {
    const German& german = TheGerman();
    if (const auto order = CompareByRank(german, a, b)) return *order;
    return CompareByGerman(german, a, b);
}

}  // namespace FX_Algen::store
