#include "controls/DataSource.h"

#include <algorithm>

#include "FX_Algen/Error.h"
#include "controls/FieldText.h"
#include "controls/Form.h"
#include "controls/Lists.h"

namespace FX_Algen::controls {

/// While one lives, what fields and grids tell is the source's own doing.
class DataSource::Showing {
public:
    explicit Showing(DataSource& source) : source_(source), before_(source.showing_) {
        source.showing_ = true;
    }
    ~Showing() { source_.showing_ = before_; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

private:
    DataSource& source_;
    bool before_;
};

namespace {

bool IsTrue(const store::Value& value) { return !value.IsNull() && value.Bool(); }

void GoTo(store::Recordset& rows, int position) {
    rows.MoveFirst();
    for (int i = 0; i < position; ++i) rows.MoveNext();
}

}  // namespace

// ---- binding -----------------------------------------------------------------------------------

template <class Visit>
void DataSource::EachField(Visit visit) {
    for (auto& bound : texts_) visit(bound.Field);
    for (auto& bound : checks_) visit(bound.Field);
    for (auto& bound : grids_)
        for (auto& cell : bound.Cells) visit(cell.Field);
}

/// Looks the bound fields up in a result; none of them changes where one is missing.
void DataSource::Resolve(const store::Recordset& rows) {
    EachField([&](const BoundField& field) { rows.FieldIndex(field.Name); });
    EachField([&](BoundField& field) {
        field.Index = rows.FieldIndex(field.Name);
        const auto& result = rows.Fields()[field.Index];
        field.Type = result.Type;
        field.Written = result.Column.has_value();
    });
}

void DataSource::Bind(TextBox& control, std::string field) {
    if (recordset_) recordset_->FieldIndex(field);
    texts_.push_back({&control, {std::move(field), 0, store::Kind::Null, false}, {}, false});
    if (!recordset_) return;
    Resolve(*recordset_);
    ShowFields();
}

void DataSource::Bind(CheckBox& control, std::string field) {
    if (recordset_) recordset_->FieldIndex(field);
    checks_.push_back({&control, {std::move(field), 0, store::Kind::Null, false}, false, false});
    if (!recordset_) return;
    Resolve(*recordset_);
    ShowFields();
}

void DataSource::Bind(Grid& grid, std::vector<BoundColumn> columns) {
    BoundGrid bound{&grid, {}};
    for (auto& column : columns) {
        if (recordset_) recordset_->FieldIndex(column.Field);
        bound.Cells.push_back(
            {{std::move(column.Field), 0, store::Kind::Null, false}, column.Col, column.ReadOnly, false});
    }
    std::erase_if(grids_, [&](const BoundGrid& other) { return other.Control == &grid; });
    grids_.push_back(std::move(bound));
    Grid::SourceHooks hooks;
    hooks.AfterEdit = [this, &grid](int row, int col) { CellEdited(grid, row, col); };
    hooks.BeforeRowLeave = [this](int) { return MayLeaveRow(); };
    hooks.RowEntered = [this, &grid](int row) { RowEntered(grid, row); };
    grid.Hooks(std::move(hooks));
    if (!recordset_) return;
    Resolve(*recordset_);
    ShowGrids();
}

bool DataSource::Has(const Control& control) const noexcept {
    const auto is = [&](const auto& bound) { return bound.Control == &control; };
    return std::any_of(texts_.begin(), texts_.end(), is) || std::any_of(checks_.begin(), checks_.end(), is) ||
           std::any_of(grids_.begin(), grids_.end(), is);
}

// ---- rows --------------------------------------------------------------------------------------

store::Recordset& DataSource::Rows() const {
    if (!recordset_)
        throw Error(ErrorNumber::NoCurrentRecord, "The data source '" + Name() + "' is not open.");
    return *recordset_;
}

int DataSource::Count() const noexcept { return recordset_ ? recordset_->RecordCount() : 0; }

store::Recordset& DataSource::CurrentRow(std::string_view operation) const {
    auto& rows = Rows();
    if (position_ < 0 || position_ >= Count())
        throw Error(ErrorNumber::NoCurrentRecord,
                    std::string(operation) + ": the data source '" + Name() +
                        "' has no current row. In: " + statement_,
                    statement_);
    GoTo(rows, position_);
    return rows;
}

void DataSource::Open(store::DatabasePtr database, std::string statement) {
    FinishEdits();
    WriteIfChanged();
    if (!database)
        throw Error(ErrorNumber::NotADatabase, "The data source '" + Name() + "' got no database.");
    auto opened = database->OpenRecordset(statement);
    Resolve(*opened);
    recordset_ = std::move(opened);
    database_ = std::move(database);
    statement_ = std::move(statement);
    ReadAnew(0);
}

void DataSource::Refresh() {
    FinishEdits();
    WriteIfChanged();
    auto& rows = Rows();
    rows.Requery();
    Resolve(rows);
    ReadAnew(std::max(position_, 0));
}

/// Shows rows that were read anew.
void DataSource::ReadAnew(int position) {
    position_ = std::min(position, Count() - 1);
    editing_ = false;
    ShowGrids();
    ShowFields();
    if (position_ >= 0 && OnReposition) OnReposition();
}

void DataSource::Close() noexcept {
    recordset_.reset();
    database_.reset();
    statement_.clear();
    position_ = -1;
    editing_ = false;
    ForgetChanges();
}

void DataSource::MoveTo(int position) {
    WriteIfChanged();
    position_ = std::min(position, Count() - 1);
    editing_ = false;
    // Who heard of the writing may have read the rows anew, and that puts the cursor into the former row.
    for (auto& bound : grids_) SelectCurrent(*bound.Control);
    ShowFields();
    if (position_ >= 0 && OnReposition) OnReposition();
}

// ---- changes -----------------------------------------------------------------------------------

bool DataSource::Differs(const BoundText& bound) const {
    const auto& text = bound.Control->Text();
    if (position_ < 0) return bound.Typed && !text.empty();
    return bound.Field.Written && !MeansShown(text, bound.Shown, bound.Field.Type, Owner().Sprache());
}

bool DataSource::Differs(const BoundCheck& bound) const {
    if (position_ < 0) return bound.Typed && bound.Control->Value();
    return bound.Field.Written && bound.Control->Value() != bound.Shown;
}

bool DataSource::Changed() const noexcept {
    const auto differs = [this](const auto& bound) { return Differs(bound); };
    return std::any_of(texts_.begin(), texts_.end(), differs) ||
           std::any_of(checks_.begin(), checks_.end(), differs) ||
           std::any_of(grids_.begin(), grids_.end(), [](const BoundGrid& bound) {
               return std::any_of(bound.Cells.begin(), bound.Cells.end(),
                                  [](const BoundCell& cell) { return cell.Edited; });
           });
}

std::vector<DataSource::Change> DataSource::Changes() const {
    std::vector<Change> changes;
    const auto add = [&](const BoundField& field, const std::string& text) {
        changes.push_back({&field, text, FieldValue(text, field.Type, field.Name)});
    };
    const auto set = [&](const BoundField& field, bool on) {
        changes.push_back({&field, on ? "-1" : "0", store::Value(on)});
    };
    for (const auto& bound : texts_)
        if (Differs(bound)) add(bound.Field, bound.Control->Text());
    for (const auto& bound : checks_)
        if (Differs(bound)) set(bound.Field, bound.Control->Value());
    for (const auto& bound : grids_) {
        const int row = bound.Control->FixedRows() + position_;
        for (const auto& cell : bound.Cells) {
            if (!cell.Edited) continue;
            if (bound.Control->ColKind(cell.Col) == CellKind::Check)
                set(cell.Field, bound.Control->Checked(row, cell.Col));
            else
                add(cell.Field, bound.Control->Text(row, cell.Col));
        }
    }
    return changes;
}

void DataSource::Write() {
    auto& rows = CurrentRow("Update");
    const auto changes = Changes();
    rows.Edit();
    try {
        for (const auto& change : changes) {
            try {
                rows.Collect(change.Field->Name, change.Value);
            } catch (const Error& error) {
                if (error.Number() != ErrorNumber::TypeMismatch && error.Number() != ErrorNumber::Overflow)
                    throw;
                throw Error(error.Number(),
                            "The field '" + change.Field->Name + "' cannot take '" + change.Text + "'. " +
                                error.Description(),
                            error.Statement(), error.Translated());
            }
        }
        rows.Update();
    } catch (...) {
        rows.CancelUpdate();
        throw;
    }
    ShowWritten();
    if (OnWritten) OnWritten();
}

void DataSource::WriteIfChanged() {
    if (Changed()) Write();
}

/// What stands in an open cell belongs to the row. A text that the form refuses was told of there, and the
/// cell has its old one.
void DataSource::FinishEdits() {
    for (auto& bound : grids_) bound.Control->FinishEdit();
}

void DataSource::ForgetChanges() noexcept {
    for (auto& bound : texts_) bound.Typed = false;
    for (auto& bound : checks_) bound.Typed = false;
    for (auto& bound : grids_)
        for (auto& cell : bound.Cells) cell.Edited = false;
}

void DataSource::LeaveRow() {
    if (editing_) return;
    FinishEdits();
    if (Changed())
        Write();
    else if (position_ >= 0)
        ShowFields();  // texts that mean what the row holds, and those that are never written
}

void DataSource::Edit() {
    auto& rows = CurrentRow("Edit");
    rows.Edit();  // says whether the row can be changed
    rows.CancelUpdate();
    editing_ = true;
}

void DataSource::Update() {
    FinishEdits();
    WriteIfChanged();
    editing_ = false;
    if (position_ >= 0) ShowFields();
}

void DataSource::CancelUpdate() {
    editing_ = false;
    ForgetChanges();
    ShowGrids();
    ShowFields();
}

void DataSource::NoteChange(const Control& control) noexcept {
    if (showing_) return;
    for (auto& bound : texts_)
        if (bound.Control == &control) bound.Typed = true;
    for (auto& bound : checks_)
        if (bound.Control == &control) bound.Typed = true;
}

// ---- showing -----------------------------------------------------------------------------------

void DataSource::ShowFields() {
    const Showing showing(*this);
    const store::Recordset* rows = position_ >= 0 ? &CurrentRow("Show") : nullptr;
    // All are read before the first is shown: what a form does on a change may move the rows.
    for (auto& bound : texts_) {
        bound.Shown = rows ? FieldText((*rows)[bound.Field.Index], Owner().Sprache()) : std::string();
        bound.Typed = false;
    }
    for (auto& bound : checks_) {
        bound.Shown = rows != nullptr && IsTrue((*rows)[bound.Field.Index]);
        bound.Typed = false;
    }
    for (const auto& bound : texts_)
        if (bound.Control->Text() != bound.Shown) bound.Control->Text(bound.Shown);
    for (const auto& bound : checks_)
        if (bound.Control->Value() != bound.Shown) bound.Control->Value(bound.Shown);
}

void DataSource::ShowCells(BoundGrid& bound, int row, const store::Recordset& rows) {
    auto& grid = *bound.Control;
    for (const auto& cell : bound.Cells) {
        const auto& value = rows[cell.Field.Index];
        if (grid.ColKind(cell.Col) == CellKind::Check)
            grid.Checked(row, cell.Col, IsTrue(value));
        else
            grid.Text(row, cell.Col, FieldText(value, Owner().Sprache()));
    }
}

void DataSource::ShowGrids() {
    const Showing showing(*this);
    for (auto& bound : grids_) {
        auto& grid = *bound.Control;
        {
            const Grid::Filling filling(grid);
            if (grid.IsEditing()) grid.CancelEdit();
            for (auto& cell : bound.Cells) {
                cell.Edited = false;
                if (cell.Field.Type == store::Kind::Bool) grid.ColKind(cell.Col, CellKind::Check);
            }
            const int rows = grid.FixedRows() + Count();
            if (grid.Rows() < rows) grid.Rows(rows);
            if (Count() > 0) recordset_->MoveFirst();
            for (int row = grid.FixedRows(); row < rows; ++row, recordset_->MoveNext())
                ShowCells(bound, row, *recordset_);
            if (position_ >= 0) GoTo(*recordset_, position_);
            // Last, since the form hears of it where the cursor's row goes.
            grid.Rows(rows);
        }
        SelectCurrent(grid);
    }
}

/// The current row as it is after the write. A join may show the same row of a table in several of its rows.
void DataSource::ShowWritten() {
    const auto& fields = recordset_->Fields();
    const bool join = std::any_of(fields.begin(), fields.end(), [&](const store::ResultField& field) {
        return field.Table && fields.front().Table != field.Table;
    });
    if (join) {
        ShowGrids();
    } else {
        const Showing showing(*this);
        for (auto& bound : grids_) {
            ShowCells(bound, bound.Control->FixedRows() + position_, *recordset_);
            for (auto& cell : bound.Cells) cell.Edited = false;
        }
    }
    ShowFields();
}

void DataSource::SelectCurrent(Grid& grid) {
    const int row = position_ < 0 ? -1 : grid.FixedRows() + position_;
    if (grid.Row() == row || grid.Cols() <= grid.FixedCols()) return;
    int col = grid.Col();
    if (col < 0) {
        col = grid.FixedCols();
        while (col + 1 < grid.Cols() && grid.ColHidden(col)) ++col;
    }
    const Showing showing(*this);
    grid.Select(row, row < 0 ? -1 : col);
}

// ---- what a grid tells -------------------------------------------------------------------------

DataSource::BoundGrid& DataSource::Of(const Grid& grid) {
    return *std::find_if(grids_.begin(), grids_.end(),
                         [&](const BoundGrid& bound) { return bound.Control == &grid; });
}

void DataSource::CellEdited(Grid& grid, int row, int col) {
    const int position = row - grid.FixedRows();
    if (showing_ || position < 0 || position >= Count()) return;
    auto& bound = Of(grid);
    const auto found = std::find_if(bound.Cells.begin(), bound.Cells.end(),
                                    [&](const BoundCell& cell) { return cell.Col == col; });
    if (found == bound.Cells.end()) return;

    const auto put_back = [&] {
        const Showing showing(*this);
        GoTo(*recordset_, position);
        ShowCells(bound, row, *recordset_);
    };
    if (position != position_) {
        try {
            MoveTo(position);
        } catch (const Error&) {
            put_back();
            throw;
        }
    }
    if (found->ReadOnly || !found->Field.Written) {
        put_back();
        return;
    }
    const auto& value = CurrentRow("Edit")[found->Field.Index];
    found->Edited = grid.ColKind(col) == CellKind::Check
                        ? grid.Checked(row, col) != IsTrue(value)
                        : !MeansShown(grid.Text(row, col), FieldText(value, Owner().Sprache()),
                                      found->Field.Type, Owner().Sprache());
}

bool DataSource::MayLeaveRow() {
    try {
        LeaveRow();
        return true;
    } catch (const Error& error) {
        Owner().Failure(error);
        return false;
    }
}

void DataSource::RowEntered(Grid& grid, int row) {
    const int position = row - grid.FixedRows();
    if (showing_ || position < 0 || position >= Count() || position == position_) return;
    try {
        MoveTo(position);
    } catch (const Error&) {
        SelectCurrent(grid);
        throw;
    }
}

}  // namespace FX_Algen::controls
