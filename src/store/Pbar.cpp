#include "store/Pbar.h"

#include "FX_Algen/Value.h"
#include "store/ThreadValues.h"

namespace FX_Algen::Allgemein {

void Pbar_Anzeigen(std::int32_t hWnd, float left, float top, float width, float height,
                   std::string_view text) {
    if (hWnd <= 0) return;
    store::Port().ProgressShow(hWnd, left, top, width, height);
    try {
        Pbar_Zeichnen(0, text);
    } catch (...) {
        // The caller was not told of a form to take away.
        try {
            Pbar_Ausblenden(hWnd);
        } catch (...) {
            // The first failure tells what is wrong.
        }
        throw;
    }
}

void Pbar_Zeichnen(std::int16_t prozent, std::string_view text) { store::Port().ProgressDraw(prozent, text); }

void Pbar_Ausblenden(std::int32_t hWnd) {
    if (hWnd > 0) store::Port().ProgressHide(hWnd);
}

std::string Pbar_Text(std::int16_t prozent, std::string_view text) {
    // The format "###" has no digit for 0.
    const auto zahl = prozent == 0 ? std::string() : store::NumberText(std::int32_t{prozent});
    return zahl + "%" + std::string(text);
}

float Pbar_TextLinks(float breite) noexcept {
    constexpr float ganze = 100;
    return breite <= ganze ? (ganze - breite) / 2 : 0;
}

}  // namespace FX_Algen::Allgemein
