#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "FX_Algen/Assessment.h"

/// Lookups in the reference tables that find no row, for those who tell what an authority's tables lack.
namespace FX_Algen::wrrl {

inline constexpr std::string_view TextMarke = "-";
inline constexpr std::int16_t ZahlMarke = -1;
inline constexpr std::string_view KlassenMarke = "n.v.";

/// One column of a key.
struct Schluessel {
    std::string_view Spalte;
    store::Value Wert;
};
using Schluesselliste = std::initializer_list<Schluessel>;

/// Looks rows up and keeps the lookups that find none, each once, in the order of asking.
class Referenzsuche {
public:
    explicit Referenzsuche(store::Database& database) : database_(database) {}

    /// Value of the first row's column; none, and noted as missing with its marker, where there is no row.
    std::optional<store::Value> Wert(std::string_view tabelle, std::string_view spalte,
                                     Schluesselliste schluessel, const store::Value& marke);
    /// Asks for the class of a ratio among the bounds that `schluessel` selects.
    void Klasse(std::string_view tabelle, Schluesselliste schluessel, float eqr);

    std::vector<ReferenceLookup> Fehlende() && { return std::move(fehlende_); }

private:
    std::optional<store::Value> Fragen(ReferenceLookup frage, std::string_view spalte,
                                       const std::string& bedingung);

    store::Database& database_;
    std::vector<ReferenceLookup> fehlende_;
};

/// What tells the modules apart in their tables and columns.
struct Modul {
    std::string_view Klassentabelle;  ///< reference class by site
    std::string_view Klassenspalte;   ///< there and in the two tables below
    std::string_view Wertetabelle;
    std::string_view Grenzentabelle;
    std::string_view Ergebnisspalte;  ///< reference class in `awaErgWRRL`
    std::string_view Kuerzel;         ///< of the other result columns
    bool IstText;                     ///< the reference class is a text

    store::Value Klassenmarke() const { return IstText ? store::Value(TextMarke) : store::Value(ZahlMarke); }
};

inline constexpr std::array<Modul, 3> Module{{
    {"awaWRRL_TGZK", "TGZK", "awaWRRL_ETI", "awaWRRL_TIOEZK", "TGZK", "TI", true},
    {"awaWRRL_SGZK", "Gueteklasse", "awaWRRL_ESI", "awaWRRL_SIOEZK", "SGZK", "SI", false},
    {"awaWRRL_RBioregionstyp", "Bioregionstyp", "awaWRRL_ERI", "awaWRRL_RIOEZK", "Bioregionstyp", "RI", true},
}};

/// Reference class of the site; none where the table has no row for it.
std::optional<store::Value> Referenzklasse(Referenzsuche& suche, const Modul& modul,
                                           const AssessmentSite& site);
/// Asks for the value expected of a group and reference class.
void ErwarteterWert(Referenzsuche& suche, const Modul& modul, const store::Value& gruppe,
                    const store::Value& klasse);

}  // namespace FX_Algen::wrrl
