#pragma once

#include <vector>

#include "FX_Algen/Assessment.h"
#include "wrrl/Nachschlag.h"

namespace FX_Algen::wrrl {

/// Asks the reference tables and keeps the questions that find no row, each once, in the order of asking: for
/// those who tell what an authority's tables lack.
class Referenzsuche {
public:
    explicit Referenzsuche(store::Database& database) : database_(database) {}

    /// The value of the first row, `marke` without one.
    store::Value Wert(const Nachschlag& frage, const store::Value& marke);

    std::vector<ReferenceLookup> Fehlende() && { return std::move(fehlende_); }

private:
    void Merken(const Nachschlag& frage, const store::Value& marke);

    store::Database& database_;
    std::vector<ReferenceLookup> fehlende_;
};

}  // namespace FX_Algen::wrrl
