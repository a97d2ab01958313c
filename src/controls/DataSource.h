#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "FX_Algen/Store.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"

namespace FX_Algen::controls {

/// A column of a grid that shows a field of a data source.
struct BoundColumn {
    std::string Field;  ///< name in the recordset
    int Col = 0;
    bool ReadOnly = false;  ///< computed fields, keys
};

/// A recordset behind the form, with a current row and fields bound to it.
///
/// What differs between a bound field and the row is kept until the row is left: then the changed fields, and
/// only those, are written with Edit, Collect and Update. A row is left when the focus goes to a control that
/// is not bound to the source, when the source moves or is refreshed, when the form saves (`Form::SaveRows`),
/// and before it ends. Where the store refuses, the failure is thrown, the row stays changed and the texts
/// stay as typed. A field that no column stands behind, or that is bound read-only, is shown and never
/// written: its text comes back when the row is left.
///
/// A number shows with the decimal mark of the form's language and the fewest digits that read back the same;
/// Null is an empty text and an empty text of a number, date or boolean field is Null. Text that reads as the
/// value shown ("12,50" for "12,5") is no change. Text that the column cannot take fails with 13, a number
/// beyond its range with 6, and the description names the field and the text. What is typed into a field
/// where there is no row to take it is a change all the same, and writing it fails with 3021.
class DataSource : public Control {
public:
    DataSource(Form& owner, std::string name) : Control(owner, Kind::Data, std::move(name)) {}

    /// Binds fields; a source may be bound before it is opened. 3265 where it is open without such a field.
    void Bind(TextBox& control, std::string field);
    void Bind(CheckBox& control, std::string field);
    /// The grid shows one row for each row of the source below its fixed rows, and its cursor is the current
    /// row. Ending an edit in it changes the source's row, going to another row of the grid leaves it.
    /// Columns of boolean fields get check cells.
    void Bind(Grid& grid, std::vector<BoundColumn> columns);

    /// Opens the statement and shows its first row. What was changed before is left first. A failure leaves
    /// the source as it was; 3265 where a bound field is not among those of the statement.
    void Open(store::DatabasePtr database, std::string statement);
    /// Runs the statement anew; the row with the same position is current then, the last one where there are
    /// fewer. What was changed is left first. 3021 where the source is not open.
    void Refresh();
    /// Lets go of the rows without writing; fields and grids keep what they show.
    void Close() noexcept;
    bool IsOpen() const noexcept { return recordset_ != nullptr; }
    /// The rows, for reading; the source goes back to its own current row before it writes. 3021 where it is
    /// not open.
    store::Recordset& Rows() const;
    const std::string& Statement() const noexcept { return statement_; }

    /// Whether a bound field differs from the row as it was read or written.
    bool Changed() const noexcept;
    /// Writes what was changed. Nothing to do where nothing was, and between `Edit` and `Update`.
    void LeaveRow();
    /// Puts the values of the row back into the fields and ends the edit state.
    void CancelUpdate();
    /// The edit state that forms with an edit button use: after `Edit`, leaving the row keeps what was
    /// changed, so that it can still be cancelled; `Update` writes it and ends the state. Moving, opening
    /// and refreshing write it, too. 3021 without a row, and where the rows cannot be changed.
    void Edit();
    void Update();
    bool IsEditing() const noexcept { return editing_; }

    /// Whether the control is bound to this source.
    bool Has(const Control& control) const noexcept;
    /// Told by `Input` after a person changed a bound control.
    void NoteChange(const Control& control) noexcept;

    std::function<void()> OnReposition;  ///< after another row became current, or the same one was read anew
    std::function<void()> OnWritten;     ///< after a row was written

private:
    struct BoundField {
        std::string Name;
        std::size_t Index = 0;                 ///< in the recordset
        store::Kind Type = store::Kind::Null;  ///< of the column, or of what is computed
        bool Written = false;                  ///< a column stands behind it
    };
    struct BoundText {
        TextBox* Control;
        BoundField Field;
        std::string Shown;   ///< the row's value as text
        bool Typed = false;  ///< by a person, since it was shown
    };
    struct BoundCheck {
        CheckBox* Control;
        BoundField Field;
        bool Shown = false;
        bool Typed = false;
    };
    struct BoundCell {
        BoundField Field;
        int Col = 0;
        bool ReadOnly = false;
        bool Edited = false;  ///< the cell of the current row differs from the row
    };
    struct BoundGrid {
        Grid* Control;
        std::vector<BoundCell> Cells;
    };
    struct Change {
        const BoundField* Field;
        std::string Text;
        store::Value Value;
    };
    class Showing;

    template <class Visit>
    void EachField(Visit visit);
    void Resolve(const store::Recordset& rows);
    void ReadAnew(int position);
    store::Recordset& CurrentRow(std::string_view operation) const;

    bool Differs(const BoundText& bound) const;
    bool Differs(const BoundCheck& bound) const;
    std::vector<Change> Changes() const;
    void Write();
    void WriteIfChanged();
    void FinishEdits();
    void ForgetChanges() noexcept;

    void ShowFields();
    void ShowCells(BoundGrid& bound, int row, const store::Recordset& rows);
    void ShowGrids();
    void ShowWritten();
    void SelectCurrent(Grid& grid);
    int Count() const noexcept;

    void MoveTo(int position);
    void CellEdited(Grid& grid, int row, int col);
    bool MayLeaveRow();
    void RowEntered(Grid& grid, int row);
    BoundGrid& Of(const Grid& grid);

    store::DatabasePtr database_;
    store::RecordsetPtr recordset_;
    std::string statement_;
    std::vector<BoundText> texts_;
    std::vector<BoundCheck> checks_;
    std::vector<BoundGrid> grids_;
    int position_ = -1;  ///< of the current row; -1 = none
    bool editing_ = false;
    bool showing_ = false;
};

}  // namespace FX_Algen::controls
