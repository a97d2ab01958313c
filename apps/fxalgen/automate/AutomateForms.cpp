#include "fxalgen/automate/AutomateForms.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cstdint>

#include "FX_Algen/Error.h"
#include "fxalgen/automate/AutomateValues.h"

namespace FX_Algen::cli::rpc {

namespace {

Json OrNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(nullptr); }

Json FormJson(const OpenForm& form) {
    return {{"form", form.Name},
            {"caption", form.Caption},
            {"visible", form.Visible},
            {"parent", OrNull(form.Parent)}};
}

Json CellsJson(const GridState& grid) {
    Json rows = Json::array();
    for (const auto& row : grid.Cells) {
        Json cells = Json::array();
        for (const auto& cell : row) cells.push_back(cell.Checked ? Json(*cell.Checked) : Json(cell.Text));
        rows.push_back(std::move(cells));
    }
    return rows;
}

/// Row, column and colour of the cells that have a colour of their own.
Json ColoursJson(const GridState& grid) {
    Json out = Json::array();
    for (std::size_t row = 0; row < grid.Cells.size(); ++row)
        for (std::size_t col = 0; col < grid.Cells[row].size(); ++col)
            if (const auto& colour = grid.Cells[row][col].Colour)
                out.push_back({grid.FirstRow + static_cast<int>(row), static_cast<int>(col),
                               fmt::format("#{:06X}", *colour)});
    return out;
}

void AddGrid(const GridState& grid, Json& out) {
    out["rows"] = grid.Rows;
    out["cols"] = grid.Cols;
    out["fixedRows"] = grid.FixedRows;
    out["fixedCols"] = grid.FixedCols;
    out["cells"] = CellsJson(grid);
    out["firstRow"] = grid.FirstRow;
    out["row"] = grid.Row;
    out["col"] = grid.Col;
    out["topRow"] = grid.TopRow;
    out["editable"] = grid.Editable;
    if (grid.EditText) out["editText"] = *grid.EditText;
    out["hiddenRows"] = grid.HiddenRows;
    out["hiddenCols"] = grid.HiddenCols;
    out["colours"] = ColoursJson(grid);
    out["rules"] = grid.RuledRows;
}

Json PartsJson(const std::vector<PartState>& parts) {
    Json out = Json::array();
    for (const auto& part : parts)
        out.push_back({{"caption", part.Caption}, {"tooltip", part.ToolTipText}, {"enabled", part.Enabled}});
    return out;
}

Json ControlJson(const ControlState& control) {
    Json out{{"name", control.Name},
             {"kind", control.Kind},
             {"caption", control.Caption},
             {"tooltip", control.ToolTipText}};
    if (control.Text) out["text"] = *control.Text;
    if (control.Value) out["value"] = *control.Value;
    out["enabled"] = control.Enabled;
    out["locked"] = control.Locked;
    out["visible"] = control.Visible;
    if (control.Grid) AddGrid(*control.Grid, out);
    if (control.List) {
        out["entries"] = control.List->Entries;
        out["index"] = control.List->Index;
    }
    if (control.Tab) {
        out["tabs"] = PartsJson(control.Parts);
        out["tab"] = *control.Tab;
    } else if (control.List && !control.Parts.empty()) {
        out["heads"] = PartsJson(control.Parts);
    } else if (!control.Parts.empty()) {
        out["buttons"] = PartsJson(control.Parts);
    }
    if (control.Scroll) out["value"] = out["scroll"] = *control.Scroll;
    return out;
}

template <class T>
T Read(const Json& params, const char* name) {
    return FromJson<T>(params[name], {}, name);
}

template <class T>
std::optional<T> Given(const Json& params, const char* name) {
    return params.contains(name) ? std::optional(Read<T>(params, name)) : std::nullopt;
}

/// A number as a person types it: never with an exponent, which no field reads.
std::string Typed(const Json& number) {
    if (number.is_number_integer()) return number.dump();
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number.get<double>(), std::chars_format::fixed);
    return {text.data(), end.ptr};
}

/// A text, or a number as a person types it.
std::optional<std::string> TextOf(const Json& params, const char* name) {
    if (params.contains(name) && params[name].is_number()) return Typed(params[name]);
    return Given<std::string>(params, name);
}

/// What the forms call a value of the wrong kind is a wrong parameter of the request.
template <class Do>
auto AsParameters(Do what) {
    try {
        return what();
    } catch (const Error& error) {
        if (error.Number() != ErrorNumber::TypeMismatch) throw;
        throw Failure(Code::InvalidParams, error.Description());
    }
}

std::optional<std::pair<int, int>> RowsOf(const Json& params) {
    if (!params.contains("rows")) return std::nullopt;
    const auto& rows = params["rows"];
    if (!rows.is_array() || rows.size() != 2)
        throw Failure(Code::InvalidParams, "rows: a list of the first and the last row is needed.");
    return std::pair<int, int>(FromJson<std::int32_t>(rows[0], {}, "rows"),
                               FromJson<std::int32_t>(rows[1], {}, "rows"));
}

void RefuseBoth(const Json& params, const char* one, const char* other) {
    if (params.contains(one) && params.contains(other))
        throw Failure(Code::InvalidParams,
                      std::string("form.act: '") + one + "' and '" + other + "' exclude each other.");
}

void TakeValue(const Json& value, FormAction& action) {
    if (value.is_boolean())
        action.Value = value.get<bool>();
    else if (value.is_string())
        action.Text = value.get<std::string>();
    else if (value.is_number())
        action.Text = Typed(value);
    else
        throw Failure(Code::InvalidParams, "value: a text, a number, true or false is needed.");
}

void TakeEntry(const Json& entry, FormAction& action) {
    if (entry.is_string())
        action.Entry = entry.get<std::string>();
    else
        action.Index = FromJson<std::int32_t>(entry, {}, "entry");
}

FormAction ActionOf(const Json& params) {
    RefuseBoth(params, "text", "value");
    RefuseBoth(params, "text", "key");
    RefuseBoth(params, "value", "key");
    RefuseBoth(params, "entry", "index");
    FormAction action;
    action.Control = Given<std::string>(params, "control").value_or("");
    action.Action = Read<std::string>(params, "action");
    action.Text = TextOf(params, "text");
    if (params.contains("key")) action.Text = TextOf(params, "key");
    if (params.contains("value")) TakeValue(params["value"], action);
    action.Row = Given<std::int32_t>(params, "row");
    action.Col = Given<std::int32_t>(params, "col");
    action.Index = Given<std::int32_t>(params, "index");
    if (params.contains("entry")) TakeEntry(params["entry"], action);
    action.Position = Given<std::int32_t>(params, "position");
    // What `form.state` tells as the value of a scroll bar is its position.
    if (action.Action == "scroll" && !action.Position) action.Position = Given<std::int32_t>(params, "value");
    action.Shift = Given<bool>(params, "shift").value_or(false);
    action.Ctrl = Given<bool>(params, "ctrl").value_or(false);
    action.Alt = Given<bool>(params, "alt").value_or(false);
    return action;
}

}  // namespace

Json ToJson(const FormState& state) {
    auto out = FormJson(state.Form);
    out["focus"] = OrNull(state.Focus);
    out["controls"] = Json::array();
    for (const auto& control : state.Controls) out["controls"].push_back(ControlJson(control));
    return out;
}

Json FormList() {
    Json out = Json::array();
    for (const auto& form : OpenForms()) out.push_back(FormJson(form));
    return out;
}

Json FormStateOf(const Json& params) {
    return AsParameters([&] { return ToJson(ReadForm(Read<std::string>(params, "form"), RowsOf(params))); });
}

Json FormAct(const Json& params) {
    return AsParameters([&]() -> Json {
        const auto result = ActOnForm(Read<std::string>(params, "form"), ActionOf(params));
        return result.Taken ? Json{{"taken", true}} : Json{{"taken", false}, {"reason", result.Reason}};
    });
}

}  // namespace FX_Algen::cli::rpc
