#pragma once

#include <sqlite3.h>

#include <memory>

#include "store/Engine.h"

namespace FX_Algen::store::sqlite {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, Finalize>;

class SqliteStatement final : public EngineStatement {
public:
    SqliteStatement(sqlite3* db, std::string_view sql);

    void Bind(std::size_t index, const Value& value) override;
    void BindNull(std::size_t index) override;
    void BindInteger(std::size_t index, std::int64_t value) override;
    void BindReal(std::size_t index, double value) override;
    void BindText(std::size_t index, std::string_view text) override;
    bool Step() override;
    void Reset() noexcept override;

    std::size_t ColumnCount() const override;
    bool IsNull(std::size_t column) const override;
    std::int64_t Integer(std::size_t column) const override;
    double Real(std::size_t column) const override;
    std::string_view Text(std::size_t column) const override;
    Value Column(std::size_t column, Kind kind) const override;
    void AppendRow(std::span<const Kind> kinds, std::vector<Value>& out) const override;
    void AppendRowIds(std::size_t first, std::size_t count,
                      std::vector<std::optional<std::int64_t>>& out) const override;
    std::string ColumnName(std::size_t column) const override;
    std::string DeclaredType(std::size_t column) const override;
    bool PreparedAnew() override;

private:
    void Check(int code) const;
    std::string_view Sql() const;

    sqlite3* db_;
    StatementHandle statement_;
    int prepared_anew_ = 0;
};

}  // namespace FX_Algen::store::sqlite
