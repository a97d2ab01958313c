#pragma once

#include <string>

#include "FX_Algen/Store.h"
#include "calc/Spur.h"

namespace FX_Algen::calc {

/// Record count of a query whose first field is the taxon; `spur`, where given, receives the taxa.
double Satzzahl(store::Database& database, const std::string& abfrage, Taxazaehlung* spur);

}  // namespace FX_Algen::calc
