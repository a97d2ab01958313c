#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"

namespace FX_Algen::demo_test {

using Row = std::vector<std::string>;

/// A new project database with the demo data, in a folder of its own that goes away with it.
class DemoDatabase {
public:
    DemoDatabase();
    ~DemoDatabase();
    DemoDatabase(const DemoDatabase&) = delete;
    DemoDatabase& operator=(const DemoDatabase&) = delete;

    /// Path of the database file.
    std::string Path() const;

    /// Rows of a statement in the engine's own language, as text; Null is "NULL".
    std::vector<Row> Rows(std::string_view sql);
    /// First column of the rows.
    std::vector<std::string> Column(std::string_view sql);
    /// The single number that the statement gives.
    std::int64_t Number(std::string_view sql);

private:
    struct Folder;
    std::unique_ptr<Folder> folder_;
    std::unique_ptr<store::Engine> engine_;
};

/// The joins from a taxon up through all 19 tables of the taxonomy and to its major group.
std::string Chain();

}  // namespace FX_Algen::demo_test
