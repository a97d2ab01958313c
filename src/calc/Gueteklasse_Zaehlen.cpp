#include "calc/Berechnung.h"
#include "calc/Gueteklasse.h"
#include "store/ThreadValues.h"

namespace FX_Algen {

void Gueteklasse_Zaehlen(double SI) { calc::Gueteklasse_Zaehlen(SI, store::Thread().GueteklasseAnzahl); }

}  // namespace FX_Algen
