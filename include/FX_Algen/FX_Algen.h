#pragma once

/// The whole public interface of the library.

#include "FX_Algen/AL_Katalog.h"
#include "FX_Algen/AL_PS.h"
#include "FX_Algen/AL_PS_Grafik.h"
#include "FX_Algen/Assessment.h"
#include "FX_Algen/AssessmentTrace.h"
#include "FX_Algen/Chart.h"
#include "FX_Algen/ChartData.h"
#include "FX_Algen/Coverage.h"
#include "FX_Algen/Create.h"
#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Explain.h"
#include "FX_Algen/ExplainSeston.h"
#include "FX_Algen/Load.h"
#include "FX_Algen/Messages.h"
#include "FX_Algen/Runden.h"
#include "FX_Algen/Store.h"
#include "FX_Algen/Texts.h"
#include "FX_Algen/Value.h"
