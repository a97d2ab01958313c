#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Error.h"
#include "FX_Algen/Messages.h"
#include "FX_Algen/Store.h"
#include "support/Testdatei.h"

namespace FX_Algen {

/// Ratings of a taxon; the defaults are those of an unrated one, and `Algenart` none.
struct Werte {
    double SI = 0;
    double Sap_GBer = 0;
    double Trophiewert = 0;
    double Trophiegewicht = 0;
    double Trophiewert_N = 0;
    double Trophiegewicht_N = 0;
    std::string Algenart = "benthisch";
    std::int32_t Lebensform = 1;
};

struct Deckungen {
    double DG_Gesamt = 0;
    double DG_MA = 0;
    double DG_Gesamt_WRRL = 0;
    double DG_MA_WRRL = 0;
};

/// What was noted for a taxon at a sampling site.
struct Fundwerte {
    double DG_MA = 0;
    std::int32_t Schalen_KA = 0;
    double SD_MA = 0;
    bool CF = false;
};

/// A small project database in a temporary file, filled row by row.
class Testdatenbank : public Testdatei {
public:
    Testdatenbank() : Testdatei("calc") {}

    /// Sub-habitat "Teilraum <id>" with its covers.
    void Teilraum(std::int32_t id, const Deckungen& deckungen);
    /// Taxon "Gattung<id> art<id>" with ratings, in a family of the given major group.
    void Art(std::int32_t id, const Werte& werte, std::int32_t gruppe = 130);
    /// Taxon without a row of ratings.
    void ArtOhneWerte(std::int32_t id, std::int32_t gruppe = 130);
    void Stelle(std::int32_t ps, std::int32_t tr);
    void Fund(std::int32_t ps, std::int32_t art, const Fundwerte& werte);
    void Bestand(std::int32_t mi, std::int32_t tr, double deckung, double schicht = 0,
                 double deckung_WRRL = 0);
    void Bestandsart(std::int32_t mi, std::int32_t art, double anteil, bool cf = false);
    /// Sets a field of the first row that meets the condition to Null.
    void SetzeNull(const std::string& tabelle, const std::string& feld, const std::string& bedingung);

    /// A column of the result row; fails the test where there is no row.
    store::Value Ergebnis(std::int32_t tr, const std::string& spalte, bool KAOnly = false) const;
    bool HatErgebnis(std::int32_t tr) const;
    /// The seven class counters of the result row.
    std::vector<std::int32_t> Klassen(std::int32_t tr) const;
    /// Every row of a table, with its values as text.
    std::vector<std::string> Abzug(const std::string& tabelle) const;
};

/// Records the boxes of the calling thread while it lives.
class Meldungsfang {
public:
    Meldungsfang();
    ~Meldungsfang();
    Meldungsfang(const Meldungsfang&) = delete;
    Meldungsfang& operator=(const Meldungsfang&) = delete;
    std::vector<store::ShownBox> Boxen() { return fang_->TakeShown(); }
    /// Texts alone; every title must be the module's name.
    std::vector<std::string> Texte();

private:
    std::shared_ptr<store::RecordingMessages> fang_;
    std::shared_ptr<store::Messages> vorher_;
};

/// The failure of a call; none where it does not fail.
template <class Aufruf>
std::optional<Error> Fehlschlag(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace FX_Algen
