#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Store.h"
#include "calc/Lesen.h"

/// Lookups in the reference tables of the assessment. A missing row is no failure: the marker value of the
/// lookup stands for it.
namespace FX_Algen::wrrl {

/// The reference tables of a module: reference class of the site, value expected of the class, bounds.
struct Bezugstabellen {
    std::string_view Klassenspalte;  ///< column of the reference class in all three
    std::string_view Klassentabelle;
    std::string_view Erwartungstabelle;
    std::string_view Grenzentabelle;
    bool KlasseIstText = true;
};

inline constexpr Bezugstabellen TrophieTabellen{"TGZK", "awaWRRL_TGZK", "awaWRRL_ETI", "awaWRRL_TIOEZK"};
inline constexpr Bezugstabellen SaprobieTabellen{"Gueteklasse", "awaWRRL_SGZK", "awaWRRL_ESI",
                                                 "awaWRRL_SIOEZK", false};
inline constexpr Bezugstabellen ReferenzTabellen{"Bioregionstyp", "awaWRRL_RBioregionstyp", "awaWRRL_ERI",
                                                 "awaWRRL_RIOEZK"};

/// Markers of a reference class that was not found: "-" for a text, -1 for a number.
store::Value KeineReferenzklasse(const Bezugstabellen& tabellen);
inline constexpr float KeinErwarteterWert = -1;
inline constexpr std::int16_t KeineKlasse = -1;

/// A question to a reference table.
struct Nachschlag {
    std::string Tabelle;
    std::string Spalte;     ///< the column asked for
    std::string Bedingung;  ///< as it stands behind WHERE
    std::string Anweisung;
    std::vector<LookupKey> Schluessel;
};

Nachschlag NachReferenzklasse(const Bezugstabellen& tabellen, std::int32_t BioregionID,
                              std::int16_t Hoehenstufe);
Nachschlag NachErwartetemWert(const Bezugstabellen& tabellen, std::string_view gruppe,
                              const store::Value& klasse);
/// Both bounds are inclusive. The ratio stands in the statement as the short text of its 32-bit value.
Nachschlag NachKlasse(const Bezugstabellen& tabellen, std::string_view gruppe, const store::Value& klasse,
                      float EQR);

/// Whether the table has such a row.
bool Vorhanden(store::Database& database, const Nachschlag& frage);

/// Value of the first row, `marke` without a row. Fails with 94 where it is Null.
store::Value Nachschlagen(const calc::Ort& ort, const Nachschlag& frage, const store::Value& marke,
                          ReferenceLookup* spur);

/// Class of a ratio: of the rows that it fits the one with the lowest class, -1 without one. Fails with 94
/// where the class of such a row is Null.
std::int16_t KlasseNachschlagen(const calc::Ort& ort, const Nachschlag& frage, float EQR, ClassLookup* spur);

/// All bounds of group and reference class, by class.
std::vector<ClassBounds> AlleGrenzen(store::Database& database, const Bezugstabellen& tabellen,
                                     std::string_view gruppe, const store::Value& klasse);

}  // namespace FX_Algen::wrrl
