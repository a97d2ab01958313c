#pragma once

#include <string_view>

#include "FX_Algen/Store.h"

namespace FX_Algen::manager {

/// The database of a handle; 3343 with the name of the operation where there is none.
store::Database& Vorhanden(const store::DatabasePtr& database, std::string_view operation);

}  // namespace FX_Algen::manager
