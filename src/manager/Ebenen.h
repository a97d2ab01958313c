#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "FX_Algen/Store.h"
#include "manager/Verbund.h"

/// Levels of the project tree that a stored selection can list, and the joins that follow from a level.
namespace FX_Algen::manager {

/// From the top of the tree downward.
enum class Ebene : std::uint8_t { Projekt, Abschnitt, UnvUStelle, VerUStelle, Teilraum };

/// Name of the table of a level, and its key as "Table.Field".
std::string_view Tabelle(Ebene ebene);
std::string_view Schluessel(Ebene ebene);

/// The level of a selection. None where the selection has no row, or `RechManEbene` is Null or names none of
/// the five. The text is compared as the store compares texts, without regard to case.
std::optional<Ebene> EbeneDer(store::Database& database, std::int32_t ID_RechMan);

/// Tables of the tree from `von` down to `Teilraum`.
Verbund Pfad(Ebene von);

/// The same with the members of the selections at level `ebene`, from `von`, which is that level or above it.
/// `ebene` lies above `Teilraum`.
Verbund PfadMitListe(Ebene von, Ebene ebene);

/// The members joined to tables that hold `Teilraum`: the form of a selection of sub-habitats.
Verbund ListeMit(const Verbund& teilraeume);

}  // namespace FX_Algen::manager
