#pragma once

#include <memory>

#include "FX_Algen/Messages.h"

namespace FX_Algen {

/// Installs the port through which the module reaches a person, for the calling thread, and returns the
/// former one. Without a call, or with none given, a `store::RecordingMessages` serves: it shows nothing,
/// keeps what would have been shown, and gives the safest answers.
///
/// A host that runs without a person leaves it at that, or installs a `RecordingMessages` of its own to
/// read the boxes and to give answers beforehand.
std::shared_ptr<store::Messages> SetDisplay(std::shared_ptr<store::Messages> port);

}  // namespace FX_Algen
