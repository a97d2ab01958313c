#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Engine.h"
#include "store/dialect/Catalogue.h"

namespace FX_Algen::store {

/// The tables and views of one database file, read from its schema when they are first asked for.
class SchemaCatalogue final : public dialect::Catalogue {
public:
    /// `schema` is the name that the file has on the connection: "main", or that of an attached one.
    SchemaCatalogue(Engine& engine, std::string schema) : engine_(engine), schema_(std::move(schema)) {}

    const dialect::TableInfo* FindTable(std::string_view name) const override;

    /// Names of the tables, without views, in the order in which they were created.
    std::vector<std::string> TableNames() const;

    /// The engine's number of the schema as it is in the file now.
    std::int64_t Version() const;
    /// Whether another hand changed the schema since it was read.
    bool IsStale() const;
    /// Forgets what was read where that is so; tells whether it was.
    bool Refresh();
    void Forget();
    /// The version that was read; none while nothing was.
    const std::optional<std::int64_t>& Known() const noexcept { return version_; }
    /// To be called after this connection created, altered or dropped one table. Reads that table anew and
    /// keeps the others; false, with nothing done, where more than that one change happened since the schema
    /// was read, the schema has the table under a name in other letters, or a view names it.
    bool TableChanged(std::string_view table);

private:
    struct Entry {
        std::string Name;
        bool IsView = false;
        bool HasCounter = false;
        std::int64_t Position = 0;
        std::string FoldedSql;  ///< of a view
        std::optional<dialect::TableInfo> Info;
    };

    void ReadNames() const;
    void AddEntries(EngineStatement& rows) const;
    dialect::TableInfo ReadTable(const Entry& entry) const;
    dialect::TableInfo ReadView(const Entry& entry) const;

    Engine& engine_;
    std::string schema_;
    // What was read is a cache: reading it changes nothing that a caller sees.
    mutable std::map<std::string, Entry, std::less<>> entries_;  ///< by folded name
    mutable std::optional<std::int64_t> version_;                ///< of the schema that `entries_` tells of
    mutable std::unique_ptr<EngineStatement> version_statement_;
};

/// Kind of the values of a column by the type name that the schema declares, such as "SMALLINT"; Null
/// where there is none or it is not one of the store's.
Kind KindOfType(std::string_view declared);

/// A name as the engine reads it whatever its characters: in double quotes.
std::string Quoted(std::string_view name);

}  // namespace FX_Algen::store
