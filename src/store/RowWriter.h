#pragma once

#include "store/OpenResult.h"

/// Writes the rows of recordsets back to their tables.
namespace FX_Algen::store {

/// Writes the fields that were set of the current row: one UPDATE for each table that they belong to, all or
/// none. The rows read show the new values then. 3021 where the row is gone from its table.
void WriteEditedRow(detail::RecordsetState& state);

/// Inserts a row of the fields that were set, so that the others take their defaults, and appends it to the
/// rows read.
void WriteNewRow(detail::RecordsetState& state);

/// Deletes the current row from its table.
void DeleteRow(detail::RecordsetState& state);

}  // namespace FX_Algen::store
