#pragma once

#include <memory>
#include <vector>

#include "fxalgen/Command.h"

namespace FX_Algen::cli {

std::unique_ptr<Command> MakeCreateCommand();
std::unique_ptr<Command> MakeLoadCommand();
std::unique_ptr<Command> MakeDumpCommand();
std::unique_ptr<Command> MakeCalculateCommand();
std::unique_ptr<Command> MakeAssessCommand();
std::unique_ptr<Command> MakeResultsCommand();
std::unique_ptr<Command> MakeExplainCommand();
std::unique_ptr<Command> MakeChartCommand();
std::unique_ptr<Command> MakeAutomateCommand();

/// The commands in the order of the help, made anew for each call.
std::vector<std::unique_ptr<Command>> MakeCommands();

}  // namespace FX_Algen::cli
