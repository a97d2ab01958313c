#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "FX_Algen/AssessmentTrace.h"

/// The arithmetic of the frequency list over plain rows: no store, no boxes.
namespace FX_Algen::artenliste {

/// A finding of the sub-habitat; values that were not entered are none.
struct Fund {
    std::int32_t ID_PS = 0;
    std::int32_t ID_Art = 0;
    bool CF = false;
    std::optional<bool> MAalsMI = false;
    std::optional<double> DG_MA;       ///< cover as macroalga, percent
    std::optional<double> Schalen_KA;  ///< counted valves
};

/// A mixed stand of the sub-habitat, in the order of the keys.
struct Bestand {
    std::int32_t ID_TR_MI = 0;
    std::optional<double> DG_MI;  ///< cover in the variant in use, percent
};

/// A taxon with a share above 0 in a mixed stand.
struct Bestandsart {
    std::int32_t ID_TR_MI = 0;
    std::int32_t ID_Art = 0;
    bool CF = false;
    double DG_MI = 0;  ///< share, percent of the stand
};

/// A taxon of the scope, as the rows are made from it.
struct Taxon {
    std::int32_t ID_Art = 0;
    bool CF = false;
    bool IstKA = false;
};

/// A row of the list without its cells.
struct Listenzeile {
    std::int32_t ID_Art = 0;
    bool CF = false;
    bool IstKA = false;
    std::optional<bool> MAalsMI = false;  ///< of the last finding that touched the row
};

/// All that the column of one sub-habitat is computed from.
struct Spaltendaten {
    double Summe_KA = 0;  ///< valves of the sub-habitat, or those that stayed from the one before
    float DG_Gesamt = 0;  ///< total cover, percent
    std::vector<Bestand> Bestaende;
    std::vector<Bestandsart> Bestandsarten;
    std::vector<Fund> Funde;  ///< in the order of delivery
};

/// What one finding does to the cell of its row.
struct Schritt {
    std::optional<double> Zugewiesen;  ///< took the place of the cell
    bool Mischbestaende = false;       ///< the stands were added
    std::vector<StandShare> Anteile;   ///< of the stands that hold the taxon
    double DG_MIGesamt = 0;            ///< their sum
    double Zelle = 0;                  ///< the cell afterwards
    bool Gescheitert = false;          ///< the arithmetic met a Null; the cell stays as it was
};

/// Relative abundance in percent. Of a diatom: valves / all valves * 100, where the sum of valves is above 0.
/// Of another alga: cover / total cover * 100, where both are above 0, in place of the cell; then, with a
/// total cover above 0, the taxon's shares of the mixed stands on top: for each stand its cover / total cover
/// * 100, times the share in the stand / 100. `zelle` is the cell before.
Schritt Fundschritt(const Spaltendaten& daten, const Fund& fund, bool IstKA, double zelle);

/// The list: rows in the order of their taxa, a column for each sub-habitat, cells of new rows 0.
class Liste {
public:
    Liste(const std::vector<Taxon>& taxa, std::size_t spalten);

    const std::vector<Listenzeile>& Zeilen() const noexcept { return zeilen_; }
    std::size_t Spalten() const noexcept { return spalten_; }
    /// Position of the row of a taxon with or without `CF`.
    std::optional<std::size_t> Suchen(std::int32_t ID_Art, bool CF) const;
    Listenzeile& Zeile(std::size_t zeile) { return zeilen_[zeile]; }
    double Zelle(std::size_t zeile, std::size_t spalte) const { return zellen_[zeile * spalten_ + spalte]; }
    double& Zelle(std::size_t zeile, std::size_t spalte) { return zellen_[zeile * spalten_ + spalte]; }

private:
    std::size_t spalten_;
    std::vector<Listenzeile> zeilen_;
    std::vector<double> zellen_;
    std::vector<std::size_t> folge_;  ///< positions of the rows by taxon and `CF`
};

/// Looks on while a column is filled.
class Beobachter {
public:
    virtual ~Beobachter() = default;
    virtual void Gesucht(const Fund& fund) = 0;        ///< its row is about to be looked for
    virtual void NichtGelistet(const Fund& fund) = 0;  ///< it has none, nothing of it counts
    virtual void Gerechnet(const Fund& fund, const Listenzeile& zeile, const Schritt& schritt) = 0;
};

/// Fills a column, finding by finding. False where a Null stopped it: the findings before it count.
bool SpalteFuellen(Liste& liste, std::size_t spalte, const Spaltendaten& daten, Beobachter& beobachter);

}  // namespace FX_Algen::artenliste
