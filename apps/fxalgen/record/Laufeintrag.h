#pragma once

#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// What the record of a run (`fx_Lauf`, `fx_LaufSeston`) holds of a sub-habitat beside its key.
struct Laufeintrag {
    store::Value Eingaben;      ///< digest of what was read; Null where the run failed
    store::Value Ergebnis;      ///< digest of what it left; Null where it left nothing
    store::Value Fehlernummer;  ///< number of the failure; Null where there was none
    store::Value Fehlertext;    ///< its description
};

/// Writes an entry into the row that is being added or edited, and ends that. A recordset, not a composed
/// statement: a failure's text may hold any character.
inline void Eintragen(store::Recordset& row, const Laufeintrag& eintrag) {
    row.Collect("Eingaben", eintrag.Eingaben);
    row.Collect("Ergebnis", eintrag.Ergebnis);
    row.Collect("Fehlernummer", eintrag.Fehlernummer);
    row.Collect("Fehlertext", eintrag.Fehlertext);
    row.Update();
}

}  // namespace FX_Algen::cli
