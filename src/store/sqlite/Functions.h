#pragma once

#include <sqlite3.h>

namespace FX_Algen::store::sqlite {

/// Makes the functions and collations of the dialect known to a connection.
void RegisterFunctions(sqlite3* db);

}  // namespace FX_Algen::store::sqlite
