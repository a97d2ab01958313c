#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What a progress form writes, and where: for displays that draw one when `ProgressDraw` is called.
namespace FX_Algen::Allgemein {

/// The percentage, "%" and the text, without blanks between them. 0 percent is "%" alone.
std::string Pbar_Text(std::int16_t prozent, std::string_view text);

/// Where a text of this width begins in a form that is 100 units wide: centred where it fits, else at 0.
float Pbar_TextLinks(float breite) noexcept;

}  // namespace FX_Algen::Allgemein
