#pragma once

#include <string>
#include <string_view>

#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "calc/Lesen.h"

/// Steps that the modules of the assessment share.
namespace FX_Algen::wrrl {

/// What one call of a module works on.
struct Aufruf : calc::Ort {
    bool DebugModus = false;
    bool KAOnly = false;
};

/// Shows a debug box where these are asked for.
void Kasten(const Aufruf& aufruf, std::string_view label, std::string_view text);

/// The row of the run in `awaErgWRRL`, with its statement shown under `label`. Fails with 3021 where there is
/// none.
store::RecordsetPtr Ergebniszeile(const Aufruf& aufruf, std::string_view label);

/// An integer column of that row. Fails with 94 where it is Null.
std::int16_t Klassenspalte(const Aufruf& aufruf, const store::Recordset& zeile, const std::string& spalte);

/// Fails with 11; `ursache` tells in words what was 0.
[[noreturn]] void DivisionDurchNull(const calc::Ort& ort, const std::string& ursache);

/// Statements that serve the trace alone: what fails in them is left out of the trace, never of the run.
template <class Arbeit>
void NurFuerSpur(Arbeit arbeit) {
    try {
        arbeit();
    } catch (const Error&) {
        return;
    }
}

}  // namespace FX_Algen::wrrl
