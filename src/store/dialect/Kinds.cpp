#include "store/dialect/Kinds.h"

namespace FX_Algen::store::dialect {

bool IsFloat(Kind kind) { return kind == Kind::R4 || kind == Kind::R8; }

bool IsNumber(Kind kind) {
    return kind == Kind::I2 || kind == Kind::I4 || kind == Kind::Bool || IsFloat(kind);
}

bool Comparable(Kind a, Kind b) {
    if (a == Kind::Null || b == Kind::Null || a == b) return true;
    return IsNumber(a) && IsNumber(b);
}

Kind ArithmeticKind(Kind a, Kind b) {
    if (a == Kind::Null || b == Kind::Null) return Kind::Null;
    return IsFloat(a) || IsFloat(b) ? Kind::R8 : Kind::I4;
}

Kind CommonKind(Kind a, Kind b) {
    if (a == b) return a;
    if (a == Kind::Null || b == Kind::Null || !IsNumber(a) || !IsNumber(b)) return Kind::Null;
    if (a == Kind::Bool) return b;
    if (b == Kind::Bool) return a;
    // A 32-bit integer does not fit a 32-bit float without loss.
    if (IsFloat(a) || IsFloat(b)) return Kind::R8;
    return Kind::I4;
}

bool FitsAsItIs(Kind from, Kind to) {
    if (from == to) return from != Kind::Null;
    switch (to) {
        case Kind::I2:
            return from == Kind::Bool;
        case Kind::I4:
            return from == Kind::Bool || from == Kind::I2;
        case Kind::R8:
            return IsNumber(from);
        default:
            return false;
    }
}

}  // namespace FX_Algen::store::dialect
