#pragma once

#include <cstdint>
#include <string>

#include "FX_Algen/Store.h"

/// Pieces of statement text for a stored selection of parts of the project tree (tables `RechenProjekt` and
/// `RechenProjektListe`). The level of the selection decides which table of the tree its members belong to,
/// and with it the text; it is read anew at each call and compared without regard to case. A level that is
/// Null or none of the five, and a selection without row, yield an empty text; `RechMan_Where` and
/// `RechMan_Having` do not look at the level. A failure of the store goes to the caller, 3343 where there is
/// no database.
///
/// A caller puts together: its select list, a FROM fragment, "WHERE " and `RechMan_Where`, conditions of its
/// own, `RechMan_OrderBy`. Each FROM fragment ends with a blank.
namespace FX_Algen::RechenProjekt {

/// The condition of the selection: `RechManSQL` as it stands and the restriction to the selection's members,
/// in one pair of brackets. An OR in the stored text needs brackets of its own there, else it takes in the
/// members of other selections. Empty where `RechManSQL` is Null: the caller's "WHERE " then has nothing
/// behind it, and the store rejects the statement.
std::string RechMan_Where(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// The condition as a HAVING clause that also asks for a total cover above 0; empty where it is Null.
std::string RechMan_Having(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// ORDER BY clause: the place of the member in the selection, then names and positions of the parts below it.
std::string RechMan_OrderBy(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// GROUP BY clause for the taxa of mixed stands, by member and sub-habitat; for a selection of sub-habitats
/// over all of them together.
std::string RechMan_GroupByMI(const store::DatabasePtr& database, std::int32_t ID_RechMan);

/// FROM over the taxa, by `Modus`: 1 findings with taxonomy and ratings; 2 taxa of mixed stands, without
/// taxonomy, whose path begins at `Abschnitt` at each level below "Projekt"; 3 as 1 without ratings; 4 as 1,
/// the covers joined before the sampling sites. Any other: empty.
std::string RechMan_FromTaxa(const store::DatabasePtr& database, std::int32_t ID_RechMan, std::int16_t Modus);
/// FROM over covers and sampling sites.
std::string RechMan_FromTeilraum(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over covers, sampling sites and findings.
std::string RechMan_FromFunde(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over the seston's sampling sites and findings. The text of the level "VerU-Stelle" names a table that
/// is not in it, and fails in the store with 3061.
std::string RechMan_FromFundeSeston(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over the results and sampling sites. The text of the level "Abschnitt" lacks an INNER, and fails in
/// the store with 3075.
std::string RechMan_FromErg(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// The same over the seston's results, with the sampling sites of the algae.
std::string RechMan_FromErgSeston(const store::DatabasePtr& database, std::int32_t ID_RechMan);
/// FROM over covers and, where there are any, assessments.
std::string RechMan_FromErgWRRL(const store::DatabasePtr& database, std::int32_t ID_RechMan);

}  // namespace FX_Algen::RechenProjekt
