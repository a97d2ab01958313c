#include "store/RowWriter.h"

#include <algorithm>

#include "store/OpenConnection.h"

namespace FX_Algen::store {

namespace {

using detail::RecordsetState;

std::size_t CurrentRow(const RecordsetState& state) { return static_cast<std::size_t>(state.Position); }

bool Repeats(const RecordsetState& state, const std::vector<std::size_t>& fields, std::size_t field) {
    return std::any_of(fields.begin(), fields.end(), [&](std::size_t other) {
        return state.Shape->Origins[other]->Column == state.Shape->Origins[field]->Column;
    });
}

/// Fields that were set, of one source; of several that show one column the first.
std::vector<std::size_t> EditedFields(const RecordsetState& state, std::size_t source) {
    std::vector<std::size_t> fields;
    for (std::size_t i = 0; i < state.Width(); ++i)
        if (state.IsEdited[i] && state.Shape->Origins[i]->Source == source && !Repeats(state, fields, i))
            fields.push_back(i);
    return fields;
}

/// Fields of a source that are part of its table's key, where the row holds a value of them. The engine may
/// give the place of a deleted row to another one; the key tells them apart.
std::vector<std::size_t> KeyFields(const RecordsetState& state, std::size_t source) {
    std::vector<std::size_t> fields;
    for (std::size_t i = 0; i < state.Width(); ++i) {
        const auto& origin = state.Shape->Origins[i];
        if (origin && origin->IsKey && origin->Source == source && !state.At(CurrentRow(state), i).IsNull())
            fields.push_back(i);
    }
    return fields;
}

std::string Condition(const RecordsetState& state, const std::vector<std::size_t>& keys) {
    std::string sql = " WHERE rowid=?";
    for (const auto field : keys)
        sql.append(" AND ").append(state.Shape->Origins[field]->Column).append("=?");
    return sql;
}

std::int64_t IdOfCurrentRow(RecordsetState& state, std::size_t source) {
    const RowId id = state.IdAt(CurrentRow(state), source);
    if (!id)
        throw Error(ErrorNumber::NoCurrentRecord,
                    "The join found no row of '" + state.Shape->Sources[source].Table + "' here.");
    return *id;
}

/// Binds the condition behind `index` parameters, runs the change and fails where it met no row.
void RunOnCurrentRow(RecordsetState& state, EngineStatement& statement, std::size_t index, std::size_t source,
                     const std::vector<std::size_t>& keys) {
    statement.BindInteger(index++, IdOfCurrentRow(state, source));
    for (const auto field : keys) statement.Bind(index++, state.At(CurrentRow(state), field));
    statement.Step();
    if (state.Store->TheEngine().Changes() == 0)
        throw Error(ErrorNumber::NoCurrentRecord,
                    "The row is no longer in '" + state.Shape->Sources[source].Table + "'.");
}

void UpdateSource(RecordsetState& state, std::size_t source, const std::vector<std::size_t>& fields) {
    const auto& shape = *state.Shape;
    const auto keys = KeyFields(state, source);
    std::string sql = "UPDATE " + Quoted(shape.Sources[source].Table) + " SET ";
    for (const auto field : fields) {
        if (field != fields.front()) sql += ", ";
        sql.append(shape.Origins[field]->Column).append("=?");
    }
    sql += Condition(state, keys);

    const RowChange change(*state.Store, shape.Sources[source].Table);
    auto& statement = state.Store->OwnStatement(sql);
    const StatementUse use(statement);
    std::size_t index = 0;
    for (const auto field : fields) statement.Bind(index++, state.Edited[field]);
    RunOnCurrentRow(state, statement, index, source, keys);
}

/// Where a lone integer key was set, it is the identity of the row from now on.
void FollowKey(RecordsetState& state, std::size_t source, const std::vector<std::size_t>& fields) {
    for (const auto field : fields)
        if (state.Shape->Origins[field]->IsIdentity)
            state.IdAt(CurrentRow(state), source) = state.Edited[field].I4();
}

/// The values written, in this row and in those that a join repeats the table's row in.
void ShowWritten(RecordsetState& state, std::size_t source) {
    const RowId id = state.IdAt(CurrentRow(state), source);
    for (std::size_t row = 0; row < state.Rows.Count; ++row) {
        if (state.IdAt(row, source) != id) continue;
        for (std::size_t field = 0; field < state.Width(); ++field)
            if (state.IsEdited[field] && state.Shape->Origins[field]->Source == source)
                state.At(row, field) = state.Edited[field];
    }
}

/// What the table holds of a new row, defaults and counter included.
void AppendNewRow(RecordsetState& state, std::int64_t id) {
    const auto& shape = *state.Shape;
    std::string sql = "SELECT ";
    for (std::size_t i = 0; i < state.Width(); ++i) {
        if (i > 0) sql += ", ";
        sql += shape.Origins[i] ? shape.Origins[i]->Column : "NULL";
    }
    sql += " FROM " + Quoted(shape.Sources.front().Table) + " WHERE rowid=?";
    auto& statement = state.Store->OwnStatement(sql);
    const StatementUse use(statement);
    statement.BindInteger(0, id);
    if (!statement.Step()) return;  // a trigger may have taken it away again
    statement.AppendRow(shape.Kinds, state.Rows.Values);
    state.Rows.RowIds.emplace_back(id);
    ++state.Rows.Count;
    if (!state.Gone.empty()) state.Gone.push_back(false);
}

/// The engine numbers a lone integer key by itself where it is left out, as if it were a counter.
void NeedKey(const RecordsetState& state, const std::vector<std::size_t>& fields) {
    const auto& name = state.Shape->Sources.front().Table;
    const auto* table = state.Store->Tables().FindTable(name);
    const auto* key = table == nullptr ? nullptr : dialect::LoneKey(*table);
    const bool given = std::any_of(fields.begin(), fields.end(), [&](std::size_t field) {
        return state.Shape->Origins[field]->IsKey && !state.Edited[field].IsNull();
    });
    if (key != nullptr && !given)
        throw Error(ErrorNumber::InvalidUseOfNull,
                    "Invalid use of Null: " + name + "." + key->Name + " needs a value.");
}

Value CounterOf(const RecordsetState& state, std::int64_t id) {
    const auto* table = state.Store->Tables().FindTable(state.Shape->Sources.front().Table);
    if (table == nullptr) return {};
    const bool has_counter = std::any_of(table->Columns.begin(), table->Columns.end(),
                                         [](const dialect::ColumnInfo& column) { return column.IsCounter; });
    return has_counter ? Value(static_cast<double>(id)).As(Kind::I4) : Value();
}

}  // namespace

void WriteEditedRow(RecordsetState& state) {
    std::vector<std::pair<std::size_t, std::vector<std::size_t>>> changes;
    for (std::size_t source = 0; source < state.Shape->Sources.size(); ++source)
        if (auto fields = EditedFields(state, source); !fields.empty())
            changes.emplace_back(source, std::move(fields));
    if (changes.empty()) return;

    if (changes.size() == 1) {
        UpdateSource(state, changes.front().first, changes.front().second);
    } else {
        Savepoint together(state.Store);
        for (const auto& [source, fields] : changes) UpdateSource(state, source, fields);
        together.Keep();
    }
    for (const auto& [source, fields] : changes) {
        ShowWritten(state, source);
        FollowKey(state, source, fields);
    }
}

void WriteNewRow(RecordsetState& state) {
    const auto& shape = *state.Shape;
    const auto& table = shape.Sources.front().Table;
    const auto fields = EditedFields(state, 0);
    NeedKey(state, fields);
    std::string names;
    std::string places;
    for (const auto field : fields) {
        names.append(names.empty() ? "" : ", ").append(shape.Origins[field]->Column);
        places.append(places.empty() ? "?" : ", ?");
    }
    const auto sql = "INSERT INTO " + Quoted(table) +
                     (fields.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")");

    const bool was_at_end = state.Position == static_cast<std::ptrdiff_t>(state.Rows.Count);
    {
        const RowChange change(*state.Store, table);
        auto& statement = state.Store->OwnStatement(sql);
        const StatementUse use(statement);
        std::size_t index = 0;
        for (const auto field : fields) statement.Bind(index++, state.Edited[field]);
        statement.Step();
    }
    const auto id = state.Store->TheEngine().LastRowId();
    state.Counter = CounterOf(state, id);
    AppendNewRow(state, id);
    if (was_at_end) state.Position = static_cast<std::ptrdiff_t>(state.Rows.Count);
}

void DeleteRow(RecordsetState& state) {
    const auto& table = state.Shape->Sources.front().Table;
    const auto keys = KeyFields(state, 0);
    const RowChange change(*state.Store, table);
    auto& statement = state.Store->OwnStatement("DELETE FROM " + Quoted(table) + Condition(state, keys));
    const StatementUse use(statement);
    RunOnCurrentRow(state, statement, 0, 0, keys);
    if (state.Gone.empty()) state.Gone.resize(state.Rows.Count, false);
    state.Gone[CurrentRow(state)] = true;
    ++state.GoneCount;
}

}  // namespace FX_Algen::store
