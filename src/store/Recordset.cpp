#include "FX_Algen/Store.h"
#include "store/ColumnValue.h"
#include "store/LikePattern.h"
#include "store/OpenConnection.h"
#include "store/RowWriter.h"

namespace FX_Algen::store {

using detail::RecordsetState;
using Mode = RecordsetState::Mode;

namespace {

std::ptrdiff_t End(const RecordsetState& state) { return static_cast<std::ptrdiff_t>(state.Rows.Count); }

std::size_t Alive(const RecordsetState& state) { return state.Rows.Count - state.GoneCount; }

bool IsOnRow(const RecordsetState& state) {
    return state.Position >= 0 && state.Position < End(state) &&
           !state.IsGone(static_cast<std::size_t>(state.Position));
}

[[noreturn]] void FailWithoutRow(const RecordsetState& state, std::string_view operation,
                                 std::string_view cause) {
    throw Error(ErrorNumber::NoCurrentRecord,
                std::string(operation) + ": " + std::string(cause) + " In: " + state.Source, state.Source,
                state.Shape->Translated);
}

void NeedOpen(const RecordsetState& state, std::string_view operation) {
    if (!state.Store) FailWithoutRow(state, operation, "The recordset is closed.");
}

void NeedRow(const RecordsetState& state, std::string_view operation) {
    NeedOpen(state, operation);
    if (!IsOnRow(state)) FailWithoutRow(state, operation, "There is no current record.");
}

void NeedRows(const RecordsetState& state, std::string_view operation) {
    NeedOpen(state, operation);
    if (Alive(state) == 0) FailWithoutRow(state, operation, "The result is empty.");
}

void NeedUpdatable(const RecordsetState& state, std::string_view operation, bool single) {
    if (state.Shape->Sources.empty())
        FailWithoutRow(state, operation,
                       "The rows of this result are no rows of a table and cannot be changed.");
    if (single && state.Shape->IsJoin)
        FailWithoutRow(state, operation, "The rows of a join are rows of several tables.");
}

[[noreturn]] void FailUnknownField(const RecordsetState& state, std::string_view operation,
                                   std::string_view name, std::string_view cause) {
    throw Error(ErrorNumber::UnknownField,
                std::string(operation) + ": " + std::string(cause) + " '" + std::string(name) +
                    "' In: " + state.Source,
                state.Source, state.Shape->Translated);
}

/// The nearest row that is still there, from `from` in steps of `step`; an end where there is none.
std::ptrdiff_t Nearest(const RecordsetState& state, std::ptrdiff_t from, std::ptrdiff_t step) {
    while (from >= 0 && from < End(state) && state.IsGone(static_cast<std::size_t>(from))) from += step;
    return from;
}

void StopEdit(RecordsetState& state) noexcept { state.EditMode = Mode::Browse; }

void MoveTo(RecordsetState& state, std::ptrdiff_t from, std::ptrdiff_t step) {
    StopEdit(state);
    state.Position = Nearest(state, from, step);
}

void StartEdit(RecordsetState& state, Mode mode) {
    state.Edited.assign(state.Width(), Value());
    state.IsEdited.assign(state.Width(), false);
    state.EditMode = mode;
}

const Value& FieldOf(const RecordsetState& state, std::size_t index) {
    if (state.EditMode == Mode::AddNew || (state.EditMode == Mode::Edit && state.IsEdited[index]))
        return state.Edited[index];
    if (!state.Store || !IsOnRow(state)) NeedRow(state, "Fields");
    return state.At(static_cast<std::size_t>(state.Position), index);
}

/// Sets a column in each field that shows it.
void SetField(RecordsetState& state, const ResultShape::Origin& origin, const Value& value) {
    for (std::size_t i = 0; i < state.Width(); ++i) {
        const auto& other = state.Shape->Origins[i];
        if (!other || other->Source != origin.Source || other->Column != origin.Column) continue;
        state.Edited[i] = value;
        state.IsEdited[i] = true;
    }
}

Error FailureOfWrite(std::string_view operation, const Error& cause, const RecordsetState& state) {
    return FailureIn(operation, cause, state.Source);
}

}  // namespace

Recordset::Recordset(std::unique_ptr<RecordsetState> state) : state_(std::move(state)) {}
Recordset::~Recordset() = default;

// ---- the current row ---------------------------------------------------------------------------

bool Recordset::Eof() const noexcept { return Alive(*state_) == 0 || state_->Position >= End(*state_); }

bool Recordset::Bof() const noexcept { return Alive(*state_) == 0 || state_->Position < 0; }

void Recordset::MoveFirst() {
    NeedRows(*state_, "MoveFirst");
    MoveTo(*state_, 0, 1);
}

void Recordset::MoveLast() {
    NeedRows(*state_, "MoveLast");
    MoveTo(*state_, End(*state_) - 1, -1);
}

void Recordset::MoveNext() {
    NeedOpen(*state_, "MoveNext");
    // A deleted row is a place to go on from, also where it was the only one.
    if (state_->Position >= End(*state_))
        FailWithoutRow(*state_, "MoveNext", "There is no record behind the last one.");
    MoveTo(*state_, state_->Position + 1, 1);
}

void Recordset::MovePrevious() {
    NeedOpen(*state_, "MovePrevious");
    if (state_->Rows.Count == 0 || state_->Position < 0)
        FailWithoutRow(*state_, "MovePrevious", "There is no record before the first one.");
    MoveTo(*state_, state_->Position - 1, -1);
}

std::int32_t Recordset::RecordCount() const noexcept { return static_cast<std::int32_t>(Alive(*state_)); }

const std::vector<ResultField>& Recordset::Fields() const noexcept { return state_->Shape->Fields; }

std::size_t Recordset::FieldIndex(std::string_view name) const {
    // A loop asks for the fields of each row in the same order.
    auto& next = state_->NextField;
    const auto& fields = state_->Shape->Fields;
    std::size_t field = next;
    if (field >= fields.size() || fields[field].Name != name) {
        const auto index = state_->Shape->Find(name);
        if (!index) FailUnknownField(*state_, "Fields", name, "The result has no field");
        field = *index;
    }
    next = field + 1 < fields.size() ? field + 1 : 0;
    return field;
}

const Value& Recordset::operator[](std::string_view name) const { return FieldOf(*state_, FieldIndex(name)); }

const Value& Recordset::operator[](std::size_t index) const {
    if (index >= state_->Width())
        FailUnknownField(*state_, "Fields", std::to_string(index), "The result has no field of the number");
    return FieldOf(*state_, index);
}

// ---- changes -----------------------------------------------------------------------------------

void Recordset::Edit() {
    NeedRow(*state_, "Edit");
    NeedUpdatable(*state_, "Edit", false);
    StartEdit(*state_, Mode::Edit);
}

void Recordset::AddNew() {
    NeedOpen(*state_, "AddNew");
    NeedUpdatable(*state_, "AddNew", true);
    StartEdit(*state_, Mode::AddNew);
}

void Recordset::Collect(std::string_view name, const Value& value) {
    auto& state = *state_;
    NeedOpen(state, "Collect");
    if (state.EditMode == Mode::Browse) FailWithoutRow(state, "Collect", "No row is in edit.");
    const auto field = FieldIndex(name);
    const auto& origin = state.Shape->Origins[field];
    if (!origin) FailUnknownField(state, "Collect", name, "No table has the field");
    try {
        SetField(state, *origin, ForColumn(value, origin->Type, origin->IsTime));
    } catch (const Error& error) {
        throw FailureOfWrite("Collect of '" + std::string(name) + "'", error, state);
    }
}

void Recordset::Update() {
    auto& state = *state_;
    NeedOpen(state, "Update");
    if (state.EditMode == Mode::Browse) FailWithoutRow(state, "Update", "No row is in edit.");
    state.Counter = Value();
    try {
        if (state.EditMode == Mode::Edit)
            WriteEditedRow(state);
        else
            WriteNewRow(state);
    } catch (const Error& error) {
        throw FailureOfWrite("Update", error, state);
    }
    StopEdit(state);
}

void Recordset::CancelUpdate() noexcept { StopEdit(*state_); }

void Recordset::Delete() {
    NeedRow(*state_, "Delete");
    NeedUpdatable(*state_, "Delete", true);
    StopEdit(*state_);
    try {
        DeleteRow(*state_);
    } catch (const Error& error) {
        throw FailureOfWrite("Delete", error, *state_);
    }
}

bool Recordset::Updatable() const noexcept { return state_->Store && !state_->Shape->Sources.empty(); }

Value Recordset::LastCounter() const { return state_->Counter; }

// ---- search and reading anew -------------------------------------------------------------------

void Recordset::FindFirst(std::string_view criterion) {
    auto& state = *state_;
    NeedOpen(state, "FindFirst");
    StopEdit(state);
    state.NoMatch = true;
    std::string translated;
    try {
        const auto parsed = dialect::TranslateCriterion(criterion, state.Shape->Columns);
        translated = parsed.Sql;
        for (const auto pattern : parsed.Patterns) LikePattern(parsed.Literals[pattern].Text());
        auto& statement = state.Store->OwnStatement(parsed.Sql);
        for (std::ptrdiff_t row = Nearest(state, 0, 1); row < End(state); row = Nearest(state, row + 1, 1)) {
            const StatementUse use(statement);
            std::size_t index = 0;
            for (const auto column : parsed.ColumnsUsed)
                statement.Bind(index++, state.At(static_cast<std::size_t>(row), column));
            for (const auto& literal : parsed.Literals) statement.Bind(index++, literal);
            if (!statement.Step()) continue;
            state.Position = row;
            state.NoMatch = false;
            return;
        }
    } catch (const Error& error) {
        throw FailureIn("FindFirst", error, criterion, translated);
    }
}

bool Recordset::NoMatch() const noexcept { return state_->NoMatch; }

void Recordset::Requery() {
    auto& state = *state_;
    NeedOpen(state, "Requery");
    StopEdit(state);
    // A failure leaves the rows as they were.
    ResultRows rows;
    auto shape = state.Shape;
    state.Store->Read("Requery", state.Source, shape, rows);
    state.Shape = std::move(shape);
    state.Rows = std::move(rows);
    state.Gone.clear();
    state.GoneCount = 0;
    state.Position = 0;
    state.NoMatch = false;
    state.NextField = 0;
}

void Recordset::Close() noexcept {
    StopEdit(*state_);
    state_->Rows = {};
    state_->Gone.clear();
    state_->GoneCount = 0;
    state_->Position = 0;
    state_->Store.reset();
}

}  // namespace FX_Algen::store
