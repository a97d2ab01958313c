#pragma once

#include <sqlite3.h>

#include <string_view>

#include "FX_Algen/Error.h"

namespace FX_Algen::store::sqlite {

/// The engine's last failure on `db` in the numbers and words of the store. `sql` is the statement that
/// failed, for `Error::Translated`.
Error FailureOf(sqlite3* db, std::string_view sql);

/// The same where there is a result code and a text only.
Error FailureOf(int code, std::string_view message, std::string_view sql);

}  // namespace FX_Algen::store::sqlite
