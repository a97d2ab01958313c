#pragma once

#include <vector>

#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// One member of a FROM written in a row: a table, or a nested join that must keep its brackets.
struct JoinLink {
    const FromNode* Operand = nullptr;
    bool Outer = false;  ///< LEFT JOIN to the members before it
    std::vector<const Expr*> Conditions;
};

/// A FROM as a row of members. The engine orders plain joins best when they stand side by side, and it
/// knows no row identity inside brackets; so brackets are kept only where they carry meaning.
struct JoinChain {
    std::vector<JoinLink> Links;
    std::vector<const Expr*> Filters;  ///< join conditions that belong into WHERE
};

JoinChain Chain(const FromNode& from);

}  // namespace FX_Algen::store::dialect
