#pragma once

#include <cstdint>
#include <string>

#include "FX_Algen/Store.h"

/// Pieces of statement text for a stored selection of parts of the project tree. Each routine reads the
/// selection's level, or its row, and returns the fixed text of that level; a level that is none of the five,
/// and a selection without row, yield an empty text. A failure of the store goes to the caller.
///
/// A caller puts together: its select list, a FROM fragment, "WHERE " and `RechMan_Where`, conditions of its
/// own, `RechMan_OrderBy`.
namespace FX_Algen::RechenProjekt {

/// The condition of the selection. Empty where `RechManSQL` is Null: the caller's "WHERE " then has nothing
/// behind it, and the store rejects the statement.
std::string RechMan_Where(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// The condition as a HAVING clause that also asks for a total cover above 0; empty where it is Null.
std::string RechMan_Having(const store::DatabasePtr& database, std::int32_t ID_RechMan);
std::string RechMan_OrderBy(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// GROUP BY clause for the taxa of mixed stands.
std::string RechMan_GroupByMI(const store::DatabasePtr& database, std::int32_t ID_RechMan);

/// FROM over the taxa, by `Modus`: 1 findings with taxonomy and ratings; 2 taxa of mixed stands, without
/// taxonomy; 3 as 1 without ratings; 4 as 1, the covers joined before the sampling sites. Any other: empty.
std::string RechMan_FromTaxa(const store::DatabasePtr& database, std::int32_t ID_RechMan, std::int16_t Modus);
/// FROM over covers and sampling sites.
std::string RechMan_FromTeilraum(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over covers, sampling sites and findings.
std::string RechMan_FromFunde(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over the seston's sampling sites and findings. The level "VerU-Stelle" names a table that is not
/// there, and fails in the store.
std::string RechMan_FromFundeSeston(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over the results and sampling sites. The level "Abschnitt" lacks an INNER, and fails in the store.
std::string RechMan_FromErg(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// The same over the seston's results.
std::string RechMan_FromErgSeston(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over covers and, where there are any, assessments.
std::string RechMan_FromErgWRRL(const store::DatabasePtr& database, std::int32_t ID_RechMan);

}  // namespace FX_Algen::RechenProjekt
