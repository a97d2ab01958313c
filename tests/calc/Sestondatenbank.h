#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "calc/Testdatenbank.h"

namespace FX_Algen {

/// Values of a taxon of the seston; the defaults are those of an unrated one.
struct Sestonwerte {
    double W_SI = 0;
    std::array<double, 4> W{};  ///< `W_O`, `W_B`, `W_A`, `W_P`
};

/// A small project database with seston, filled row by row.
class Sestondatenbank : public Testdatenbank {
public:
    /// Sub-habitat "Teilraum <id>", marked as sampled for seston.
    void Sestonteilraum(std::int32_t id);
    /// Taxon "Gattung<id> grün<id>".
    void Sestonart(std::int32_t id, const Sestonwerte& werte);
    /// Sampling site "Brücke <ps>".
    void Sestonstelle(std::int32_t ps, std::int32_t tr);
    void Sestonfund(std::int32_t ps, std::int32_t art, std::int32_t abundanz, bool cf = false);

    /// A column of the result row; fails the test where there is no row.
    store::Value Sestonergebnis(std::int32_t tr, const std::string& spalte) const;
    /// Whether the row holds its key and nothing else.
    bool NurSchluessel(std::int32_t tr) const;
    /// The working table, a row each as "ID_TR|Si|a|n".
    std::vector<std::string> Arbeitszeilen() const;
};

/// All columns of `sesErgProjekt` behind the key, in their order.
const std::vector<std::string>& Sestonspalten();

}  // namespace FX_Algen
