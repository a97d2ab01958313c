#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "wrrl/ArtenlisteSpalte.h"

namespace FX_Algen::artenliste {

/// The table of the frequency list in the database at a path.
class Listentabelle {
public:
    explicit Listentabelle(std::string pfad) : pfad_(std::move(pfad)) {}

    /// Drops the table and makes it with its four columns and a column `A<ID_TR>` for each key. A table that
    /// is there exactly so is emptied: each change of the schema makes the engine prepare all statements
    /// anew.
    ///
    /// False where the store takes fewer columns (those that it takes are there then), or, with a box, where
    /// the table cannot be dropped or made.
    bool NeuErstellen(const std::vector<std::int32_t>& schluessel) const;
    /// Whether the path leads to this very database, under whatever name.
    bool LiegtIn(const store::DatabasePtr& database) const;
    /// Writes the rows of the list, whole.
    static void Schreiben(const store::DatabasePtr& database, const Liste& liste,
                          const std::vector<std::int32_t>& schluessel);

private:
    std::string pfad_;
};

}  // namespace FX_Algen::artenliste
