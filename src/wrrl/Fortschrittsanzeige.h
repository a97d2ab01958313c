#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "FX_Algen/Value.h"
#include "store/Pbar.h"
#include "wrrl/Artenliste.h"

namespace FX_Algen {

/// The progress form, from its showing to its end, however that comes.
class Fortschrittsanzeige {
public:
    Fortschrittsanzeige() = default;
    ~Fortschrittsanzeige() {
        try {
            Allgemein::Pbar_Ausblenden(hWnd_);
        } catch (...) {
            // The work does not rest on the display, and nothing may leave here while another failure does.
        }
    }
    Fortschrittsanzeige(const Fortschrittsanzeige&) = delete;
    Fortschrittsanzeige& operator=(const Fortschrittsanzeige&) = delete;

    /// Shows the form with 0 percent. Nothing where the host gave no window.
    void Zeigen(const Fortschritt& platz) {
        if (platz.hWnd <= 0) return;
        text_ = platz.Text;
        Allgemein::Pbar_Anzeigen(platz.hWnd, platz.Left, platz.Top, platz.Width, platz.Height, text_);
        hWnd_ = platz.hWnd;
    }
    /// Draws a percentage, as a whole number.
    void Prozent(double prozent) const {
        if (hWnd_ > 0) Allgemein::Pbar_Zeichnen(store::Value(prozent).I2(), text_);
    }
    void Erledigt(std::size_t anzahl, std::size_t von) const {
        Prozent(static_cast<double>(anzahl) / static_cast<double>(von) * 100);
    }

private:
    std::int32_t hWnd_ = 0;  ///< above 0 while it is shown
    std::string text_;
};

}  // namespace FX_Algen
