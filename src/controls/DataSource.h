#pragma once

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
/// What a person changes in a bound field is kept until the row is left: then the changed fields, and only
/// those, are written with Edit, Collect and Update. A row is left when the focus goes to a control that is
/// not bound to the source, when the source moves or is refreshed, when the form saves (`Form::SaveRows`),
/// and before it ends. Where the store refuses, the failure is thrown, the row stays changed and the texts
/// stay as typed.
///
/// A number shows with the decimal mark of the form's language and the fewest digits that read back the same;
/// Null is an empty text and an empty text of a number, date or boolean field is Null. Text that the column
/// cannot take fails with 13 and a description that names the field and the text.
class DataSource : public Control {
public:
    DataSource(Form& owner, std::string name) : Control(owner, Kind::Data, std::move(name)) {}

    /// Binds fields; a source may be bound before it is opened.
    void Bind(TextBox& control, std::string field);
    void Bind(CheckBox& control, std::string field);
    /// The grid shows one row for each row of the source below its fixed rows, and its cursor is the current
    /// row. Ending an edit in it changes the source's row, going to another row of the grid leaves it.
    void Bind(Grid& grid, std::vector<BoundColumn> columns);

    /// Opens the statement and shows its first row. What was changed before is left first.
    void Open(store::DatabasePtr database, std::string statement);
    /// Runs the statement anew; the row with the same position is current then. What was changed is left
    /// first.
    void Refresh();
    void Close() noexcept;
    bool IsOpen() const noexcept { return recordset_ != nullptr; }
    store::Recordset& Rows() const;  ///< 3021 where it is not open
    const std::string& Statement() const noexcept { return statement_; }

    /// Whether a bound field was changed since the row was read or written.
    bool Changed() const noexcept { return changed_; }
    /// Writes what was changed. Nothing to do where nothing was.
    void LeaveRow();
    /// Puts the values of the row back into the fields.
    void CancelUpdate();
    /// The edit state that forms with an edit button use: `Edit` takes changes, `Update` writes them.
    void Edit();
    void Update();

    /// Whether the control is bound to this source.
    bool Has(const Control& control) const noexcept;
    /// Told by `Input` after a person changed a bound control.
    void NoteChange(const Control& control);

    std::function<void()> OnReposition;  ///< after another row became current, or the same one was read anew
    std::function<void()> OnWritten;     ///< after a row was written

private:
    struct BoundText {
        TextBox* Control;
        std::string Field;
        bool Changed = false;
    };
    struct BoundCheck {
        CheckBox* Control;
        std::string Field;
        bool Changed = false;
    };
    struct BoundGrid {
        Grid* Control;
        std::vector<BoundColumn> Columns;
    };
    void ShowRow();
    void ShowGrid();
    void MoveTo(int position);

    store::DatabasePtr database_;
    store::RecordsetPtr recordset_;
    std::string statement_;
    std::vector<BoundText> texts_;
    std::vector<BoundCheck> checks_;
    std::vector<BoundGrid> grids_;
    std::vector<std::pair<int, int>> changedCells_;  ///< row and column of the bound grid, not written yet
    int position_ = -1;
    bool changed_ = false;
    bool showing_ = false;
};

}  // namespace FX_Algen::controls
