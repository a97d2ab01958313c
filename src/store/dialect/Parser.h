#pragma once

#include <string_view>

#include "store/dialect/Translate.h"
#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// The tree of one statement; `shape` holds its literals. 3075 for what the language does not have, 3078
/// for a text that is one name and nothing else.
StatementTree ParseStatement(std::string_view statement, const Shape& shape);

/// The tree of a condition that stands alone.
ExprPtr ParseCriterion(std::string_view criterion, const Shape& shape);

}  // namespace FX_Algen::store::dialect
