#include "wrrl/Referenzsuche.h"

#include <algorithm>

namespace FX_Algen::wrrl {

namespace {

bool Gleich(const LookupKey& a, const LookupKey& b) { return a.Column == b.Column && a.Value == b.Value; }

}  // namespace

store::Value Referenzsuche::Wert(const Nachschlag& frage, const store::Value& marke) {
    const auto zeilen = database_.OpenRecordset(frage.Anweisung);
    if (!zeilen->Eof()) return (*zeilen)[std::size_t{0}];
    Merken(frage, marke);
    return marke;
}

void Referenzsuche::Merken(const Nachschlag& frage, const store::Value& marke) {
    const bool bekannt = std::any_of(fehlende_.begin(), fehlende_.end(), [&](const ReferenceLookup& andere) {
        return andere.Table == frage.Tabelle &&
               std::equal(andere.Keys.begin(), andere.Keys.end(), frage.Schluessel.begin(),
                          frage.Schluessel.end(), Gleich);
    });
    if (!bekannt) fehlende_.push_back({frage.Tabelle, frage.Schluessel, false, marke});
}

}  // namespace FX_Algen::wrrl
