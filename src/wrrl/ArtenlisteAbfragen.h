#pragma once

#include <cstdint>
#include <string>

#include "wrrl/Artenliste.h"

/// Statement texts of the frequency list, composed from fixed pieces and decimal identifiers.
namespace FX_Algen::artenliste::abfragen {

/// Sub-habitats of the scope with their covers; one row for each of their sampling sites. Empty for a scope
/// that is none of the three.
std::string Teilraeume(const Listenauftrag& auftrag);

/// Taxa of the whole scope, with and without `CF`: `ID_ART`, `CF`, `RF_Kieselalge`, in the order of these.
/// `TeilraumID` does not narrow them. Ratings are joined for an assessment alone, which asks for them; else a
/// taxon without ratings would be lost.
std::string Taxa(const Listenauftrag& auftrag);

/// Findings of a sub-habitat, by sampling site, taxon and `CF`.
std::string Funde(std::int32_t ID_TR);

/// Taxa with a share above 0 in the mixed stands of a sub-habitat: `ID_TR_MI`, `ID_ART`, `CF`, `DG_MI`.
std::string Bestandsarten(std::int32_t ID_TR);

/// The list row of a taxon, as the debug box shows it.
std::string Listenzeile(std::int32_t ID_Art, bool CF);

/// Place of a taxon for the trace: major group and `RF_Kieselalge`; no row where its chain does not get
/// there.
std::string Grossgruppe(std::int32_t ID_Art);
/// Life form of a taxon; no row without ratings.
std::string Lebensform(std::int32_t ID_Art);

}  // namespace FX_Algen::artenliste::abfragen
