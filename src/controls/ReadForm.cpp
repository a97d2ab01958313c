#include <algorithm>

#include "FX_Algen/Error.h"
#include "FX_Algen/Forms.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"
#include "controls/Lists.h"
#include "controls/OpenForms.h"

namespace FX_Algen {

namespace {

using RowRange = std::optional<std::pair<int, int>>;

OpenForm ReadOpenForm(const controls::Form& form) {
    OpenForm out;
    out.Name = form.Name();
    out.Caption = form.Caption();
    out.Visible = form.Visible();
    if (const auto* parent = form.Parent()) out.Parent = parent->Name();
    out.Window = form.Window();
    return out;
}

CellState ReadCell(const controls::Grid& grid, int row, int col) {
    CellState out;
    // The heads of a column of check marks are texts.
    if (row >= grid.FixedRows() && grid.ColKind(col) == controls::CellKind::Check)
        out.Checked = grid.Checked(row, col);
    else
        out.Text = grid.Shown(row, col);
    if (const auto& colour = grid.CellColor(row, col)) out.Colour = colour->Rgb;
    return out;
}

GridState ReadGrid(const controls::Grid& grid, const RowRange& rows) {
    GridState out;
    out.Rows = grid.Rows();
    out.Cols = grid.Cols();
    out.FixedRows = grid.FixedRows();
    out.FixedCols = grid.FixedCols();
    out.Row = grid.Row();
    out.Col = grid.Col();
    out.TopRow = grid.TopRow();
    out.Editable = grid.Editable() != controls::Editing::None;
    if (grid.IsEditing()) out.EditText = grid.EditText();
    out.FirstRow = rows ? rows->first : 0;
    const int end = rows ? std::min(rows->second, grid.Rows() - 1) + 1 : grid.Rows();
    for (int row = out.FirstRow; row < end; ++row) {
        auto& cells = out.Cells.emplace_back();
        for (int col = 0; col < grid.Cols(); ++col) cells.push_back(ReadCell(grid, row, col));
    }
    for (int row = 0; row < grid.Rows(); ++row) {
        if (grid.RowHidden(row)) out.HiddenRows.push_back(row);
        if (grid.RowRule(row)) out.RuledRows.push_back(row);
    }
    for (int col = 0; col < grid.Cols(); ++col)
        if (grid.ColHidden(col)) out.HiddenCols.push_back(col);
    return out;
}

ListState ReadList(const controls::ListView& list) {
    ListState out;
    for (const auto& row : list.Rows()) {
        auto& entry = out.Entries.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i) entry += (i > 0 ? "\t" : "") + row[i];
    }
    out.Index = list.Index();
    return out;
}

std::vector<PartState> ReadParts(const controls::TabControl& tabs) {
    std::vector<PartState> out;
    for (const auto& tab : tabs.Tabs()) out.push_back({tab.Caption, tab.ToolTipText, tab.Enabled});
    return out;
}

std::vector<PartState> ReadParts(const controls::Toolbar& toolbar) {
    std::vector<PartState> out;
    for (const auto& button : toolbar.Buttons())
        out.push_back({button.Key, button.ToolTipText, button.Enabled && !button.Separator});
    return out;
}

std::vector<PartState> ReadParts(const controls::ListView& list) {
    std::vector<PartState> out;
    for (const auto& head : list.ColumnHeaders()) out.push_back({head.Text, {}, true});
    return out;
}

/// What only controls of its kind have.
void ReadKind(const controls::Control& control, const RowRange& rows, ControlState& out) {
    if (const auto* text = dynamic_cast<const controls::TextBox*>(&control)) {
        out.Text = text->Text();
        out.Locked = text->Locked();
    }
    if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control))
        out.List = {combo->List().All(), combo->ListIndex()};
    if (const auto* box = dynamic_cast<const controls::CheckBox*>(&control)) {
        out.Value = box->Value();
        out.Locked = box->Locked();
    }
    if (const auto* list = dynamic_cast<const controls::ListBox*>(&control))
        out.List = {list->List().All(), list->ListIndex()};
    if (const auto* view = dynamic_cast<const controls::ListView*>(&control)) {
        out.List = ReadList(*view);
        out.Parts = ReadParts(*view);
    }
    if (const auto* grid = dynamic_cast<const controls::Grid*>(&control)) out.Grid = ReadGrid(*grid, rows);
    if (const auto* menu = dynamic_cast<const controls::Menu*>(&control)) out.Value = menu->Checked();
    if (const auto* toolbar = dynamic_cast<const controls::Toolbar*>(&control))
        out.Parts = ReadParts(*toolbar);
    if (const auto* tabs = dynamic_cast<const controls::TabControl*>(&control)) {
        out.Parts = ReadParts(*tabs);
        out.Tab = tabs->Current();
    }
    if (const auto* bar = dynamic_cast<const controls::ScrollBar*>(&control)) out.Scroll = bar->Value();
}

ControlState ReadControl(const controls::Control& control, const RowRange& rows) {
    ControlState out;
    out.Name = control.Name();
    out.Kind = controls::KindName(control.Kind());
    out.Caption = control.Caption();
    out.ToolTipText = control.ToolTipText();
    out.Enabled = control.IsEnabled();
    out.Visible = control.IsShown();
    ReadKind(control, rows, out);
    return out;
}

}  // namespace

std::vector<OpenForm> OpenForms() {
    std::vector<OpenForm> out;
    for (const auto& form : controls::OpenForms().All()) out.push_back(ReadOpenForm(*form));
    return out;
}

FormState ReadForm(const std::string& form, std::optional<std::pair<int, int>> rows) {
    const auto found = controls::OpenForms().Needed(form);
    if (rows && (rows->first < 0 || rows->second < rows->first))
        throw Error(ErrorNumber::TypeMismatch, "The rows " + std::to_string(rows->first) + " to " +
                                                   std::to_string(rows->second) + " are no range.");
    FormState out;
    out.Form = ReadOpenForm(*found);
    if (const auto* focus = found->Focus()) out.Focus = focus->Name();
    for (const auto& control : found->Controls()) out.Controls.push_back(ReadControl(*control, rows));
    return out;
}

std::vector<std::string> CloseForms(const store::DatabasePtr& database) {
    // Closing a form takes others out of the list: its children.
    const auto open = controls::OpenForms().All();
    std::vector<std::string> left;
    for (const auto& form : open)
        if (form->IsOpen() && (!database || form->WorksOn() == database) && !form->Close())
            left.push_back(form->Name());
    return left;
}

namespace {

/// The children first: their parent would have them save.
void Discard(controls::Form& form) {
    for (const auto& child : controls::OpenForms().ChildrenOf(form)) Discard(*child);
    form.Close(controls::Ending::Discard);
}

}  // namespace

void DiscardForms() {
    const auto open = controls::OpenForms().All();
    for (const auto& form : open) Discard(*form);
}

}  // namespace FX_Algen
