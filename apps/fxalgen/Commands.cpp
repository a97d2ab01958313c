#include "fxalgen/Commands.h"

namespace FX_Algen::cli {

std::vector<std::unique_ptr<Command>> MakeCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(MakeCreateCommand());
    commands.push_back(MakeLoadCommand());
    commands.push_back(MakeDumpCommand());
    commands.push_back(MakeCalculateCommand());
    commands.push_back(MakeAssessCommand());
    commands.push_back(MakeResultsCommand());
    commands.push_back(MakeExplainCommand());
    commands.push_back(MakeChartCommand());
    commands.push_back(MakeAutomateCommand());
    return commands;
}

}  // namespace FX_Algen::cli
