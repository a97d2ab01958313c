#include "manager/Datenbank.h"

#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::manager {

store::Database& Vorhanden(const store::DatabasePtr& database, std::string_view operation) {
    if (!database) {
        throw Error(ErrorNumber::NotADatabase, std::string(operation) + ": there is no database");
    }
    return *database;
}

}  // namespace FX_Algen::manager
