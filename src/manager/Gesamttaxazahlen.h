#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "FX_Algen/Store.h"

/// Numbers of taxa over a scope. A taxon counts once however often it was found, with and without `CF`, in
/// the findings of sampling sites; mixed stands do not count. 0 where there is no finding.
///
/// A failure goes to the caller: 3343 without a database, 6 above 32767 taxa, those of the store where the
/// statement cannot be run.
namespace FX_Algen {

/// Over a comma-separated list of `ID_TR`; an empty list fails with 3075.
std::int16_t GesamttaxazahlTLR(const store::DatabasePtr& database, std::string_view strSQL_TLR);

/// Over a scope: "Projekt" with an `ID_PRJ`, "UStelle" with an `ID_UUS`, "Rechenmanager" with an
/// `ID_RechMan`, written so. With any other text there is no statement, and opening it fails with 3075.
/// `TaxaAuswahl` is appended to the condition of the first two as it stands (" AND ..."); it may name the
/// tables from `Abschnitt`, or from `VerUStelle`, down to `awaArtPrStelle`, without `awaTeilraum`. A stored
/// selection counts the sub-habitats that have covers.
std::int16_t Gesamttaxazahl(const store::DatabasePtr& database, std::string_view AktUebersicht,
                            std::int32_t ProjektID, std::string_view TaxaAuswahl);

/// The same over the findings of the seston, down to `sesArtPrStelle`; a stored selection counts each of its
/// sub-habitats.
std::int16_t GesamttaxazahlSeston(const store::DatabasePtr& database, std::string_view AktUebersicht,
                                  std::int32_t ProjektID, std::string_view TaxaAuswahl);

}  // namespace FX_Algen
