#pragma once

/// Functions and collations that translated statements call. The engine's folder registers each of them
/// on every connection; the behaviour stands here so that writer and engine cannot drift apart.
namespace FX_Algen::store::dialect::names {

/// Collation of comparisons, GROUP BY and DISTINCT: equal without regard to case, umlauts included.
inline constexpr const char* CaseBlind = "FX_CI";
/// Collation of ORDER BY: German dictionary order (ä with a, ß with ss), case blind.
inline constexpr const char* German = "FX_DE";

/// fx_like(value, pattern): * any run, ? one character, # one digit, [abc] [a-z] [!abc] classes, case
/// blind; Null with Null; an open bracket is error 3075.
inline constexpr const char* Like = "fx_like";
/// fx_div(a, b): 64-bit division, Null with Null; b = 0 is error 11.
inline constexpr const char* Divide = "fx_div";
/// fx_format(value, pattern, kind): dates with d dd m mm yy yyyy h hh n nn s ss (m after h is minutes),
/// numbers with 0 and # places; Null gives "". `kind` as in fx_text: a 32-bit float shows its own digits.
inline constexpr const char* Format = "fx_format";
/// fx_text(value, kind): text of a value as it reads in a statement (CStr, &); booleans "-1" and "0",
/// dates dd.mm.yyyy, Null stays Null. `kind` is the number of store::Kind, 0 = not known.
inline constexpr const char* Text = "fx_text";
/// fx_to(value, kind): the value as a column of that kind takes it; errors 6 and 13, Null stays Null. `kind`
/// is the number of store::Kind, or `TimeColumn`.
inline constexpr const char* To = "fx_to";
/// Stands for the kind of a column of type TIME, whose values have no day; Kind::Date is one of type DATE.
inline constexpr int TimeColumn = 8;
/// fx_finite(value, 0): the value; 6 where a product or sum grew beyond 64 bits. Stands where a calculation
/// goes on, since the engine would make a Null of two of these.
inline constexpr const char* Finite = "fx_finite";
/// fx_cstr(value, kind): as fx_text, but Null is error 94.
inline constexpr const char* CStr = "fx_cstr";

/// Failures inside these functions reach the connection as texts "FX<number>:<description>".
inline constexpr const char* ErrorPrefix = "FX";

}  // namespace FX_Algen::store::dialect::names
