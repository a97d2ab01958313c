#include "calc/Nachrechnung.h"

#include "store/ThreadValues.h"

namespace FX_Algen::calc {

Zaehlerschutz::Zaehlerschutz() : gemerkt_(store::Thread().GueteklasseAnzahl) {}
Zaehlerschutz::~Zaehlerschutz() { store::Thread().GueteklasseAnzahl = gemerkt_; }

Ergebnis LiesErgebnis(store::Database& database, const std::string& abfrage,
                      const std::vector<std::string>& spalten) {
    Ergebnis ergebnis;
    const auto zeile = database.OpenRecordset(abfrage);
    if (!zeile->Eof()) {
        for (const auto& spalte : spalten) ergebnis.emplace(spalte, (*zeile)[spalte]);
    }
    zeile->Close();
    return ergebnis;
}

store::Value Wert(const Ergebnis& ergebnis, std::string_view spalte) {
    const auto fund = ergebnis.find(spalte);
    return fund == ergebnis.end() ? store::Value() : fund->second;
}

bool HatZeile(store::Database& database, const std::string& abfrage) {
    const auto zeilen = database.OpenRecordset(abfrage);
    const bool gefunden = !zeilen->Eof();
    zeilen->Close();
    return gefunden;
}

Vergleich Vergleiche(const std::vector<std::string>& spalten, const Ergebnis& neu, const Ergebnis& alt) {
    Vergleich vergleich;
    bool veraltet = neu.empty() != alt.empty();
    for (const auto& spalte : spalten) {
        auto ergebnis = Wert(neu, spalte);
        auto gespeichert = Wert(alt, spalte);
        const bool anders = !alt.empty() && ergebnis != gespeichert;
        veraltet = veraltet || anders;
        vergleich.Columns.push_back({spalte, std::move(ergebnis), std::move(gespeichert), anders});
    }
    if (!alt.empty()) vergleich.State = veraltet ? StoredResult::OutOfDate : StoredResult::Current;
    return vergleich;
}

}  // namespace FX_Algen::calc
