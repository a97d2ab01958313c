#pragma once

#include <cstdint>
#include <string_view>

#include "FX_Algen/Progress.h"

/// The progress form that the display shows in the host's window during long work.
namespace FX_Algen::Allgemein {

/// Shows it at a place in the host's window and draws 0 percent; nothing where `hWnd` is 0 or less.
void Pbar_Anzeigen(std::int32_t hWnd, float left, float top, float width, float height,
                   std::string_view text = {});
/// Draws a percentage with a text.
void Pbar_Zeichnen(std::int16_t prozent, std::string_view text = {});
/// Takes it away; nothing where `hWnd` is 0 or less.
void Pbar_Ausblenden(std::int32_t hWnd);

}  // namespace FX_Algen::Allgemein
