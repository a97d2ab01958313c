#include <CLI/CLI.hpp>

#include "FX_Algen/Load.h"
#include "fxalgen/Commands.h"
#include "fxalgen/tables/LoadReport.h"

namespace FX_Algen::cli {

namespace {

class DumpCommand : public Command {
public:
    std::string_view Name() const override { return "dump"; }
    std::string_view Description() const override {
        return "Write one <Table>.csv a table into a folder; loading them gives the same database.";
    }
    std::string_view Example() const override {
        return "  fxalgen dump project.db backup\n"
               "  fxalgen dump project.db taxa --table awaArt awaModulStandard";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("DATABASE", database_, "Database to read")->required();
        app.add_option("DIR", folder_, "Folder to write into; it is made where it does not exist")
            ->required();
        app.add_option("--table", tables_, "Only these tables");
    }

    Exit Execute(Streams& streams) override {
        TellRows(store::Dump(database_, folder_, tables_), streams);
        return Exit::Done;
    }

private:
    std::string database_;
    std::string folder_;
    std::vector<std::string> tables_;
};

}  // namespace

std::unique_ptr<Command> MakeDumpCommand() { return std::make_unique<DumpCommand>(); }

}  // namespace FX_Algen::cli
