#pragma once

#include "FX_Algen/Forms.h"
#include "fxalgen/automate/AutomateRpc.h"

/// The methods on open forms. What they take and answer stands in `docs/hosts.md`.
namespace FX_Algen::cli::rpc {

/// The open forms.
Json FormList();
/// What a form shows; `params` as named in the request: `form`, and `rows` where only some are wanted.
Json FormStateOf(const Json& params);
/// Does to a form what a person would do.
Json FormAct(const Json& params);

/// The state of a form as it is answered.
Json ToJson(const FormState& state);

}  // namespace FX_Algen::cli::rpc
