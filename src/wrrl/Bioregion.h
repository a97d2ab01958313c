#pragma once

#include <string>
#include <string_view>

#include "FX_Algen/Store.h"

namespace FX_Algen {

/// Readable form of a list of reference bioregions: for each element of the comma-separated list, trimmed of
/// blanks, "<Bezeichnung> (<element>)" where `AL_Bioregion` has its `Kurzzeichen`, else the element itself;
/// joined by ", ". A last digit of an element, the altitude step, does not belong to the `Kurzzeichen`. "K1,
/// X" is "Kalkalpen (K1), X" where K are the Kalkalpen and X is unknown. Empty for an empty text.
///
/// Of several rows with the same `Kurzzeichen` the one of the lowest key holds; a Null `Bezeichnung` is an
/// empty one. Fails with 3075 on a single apostrophe in the list, with 3343 without a database.
std::string GetBioregion_Kurzzeichen(const store::DatabasePtr& database, std::string_view RefBioregionen);

}  // namespace FX_Algen
