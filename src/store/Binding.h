#pragma once

#include "store/Engine.h"
#include "store/dialect/Translate.h"

namespace FX_Algen::store {

/// Binds the literals of a statement text to the parameters of its translation, converted as the
/// translation asks for. Errors: 6, 13 and 3075, as of the conversions and of patterns.
void BindLiterals(EngineStatement& statement, const dialect::Translation& translation,
                  const dialect::Shape& shape);

}  // namespace FX_Algen::store
