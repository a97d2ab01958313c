#pragma once

#include "FX_Algen/Value.h"

/// How kinds of values go together in expressions. Kind::Null stands for a kind that cannot be told.
namespace FX_Algen::store::dialect {

bool IsNumber(Kind kind);  ///< integers, floats and booleans
bool IsFloat(Kind kind);

/// Whether values of the two kinds may be compared: numbers, texts and dates each with their like.
bool Comparable(Kind a, Kind b);

/// Kind of a sum, difference or product.
Kind ArithmeticKind(Kind a, Kind b);

/// Kind of an expression that gives a value of the one or of the other kind.
Kind CommonKind(Kind a, Kind b);

/// Whether each value of `from` stands in a column of `to` as it is.
bool FitsAsItIs(Kind from, Kind to);

}  // namespace FX_Algen::store::dialect
