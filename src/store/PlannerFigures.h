#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the engine's planner believes about the sizes of tables and about how far an index narrows.
///
/// The order in which an unordered query delivers its rows follows from the plan, and the class counts and
/// the last digits of 32-bit sums follow from that order. So the planner must believe the same in every
/// database: these figures, never counts.
namespace FX_Algen::store {

class Engine;

/// One row of the engine's table of figures. `Index` is none for the table as a whole.
struct PlannerFigure {
    std::string Table;
    std::optional<std::string> Index;
    std::optional<std::string> Figures;

    auto operator<=>(const PlannerFigure&) const = default;
};

/// The figures that belong into the open database: those of the tables that it has, in order. Databases with
/// none of the tables concerned get none.
std::vector<PlannerFigure> PlannerFiguresFor(Engine& engine);

/// Whether figures of the table are among them, without regard to case.
bool HasPlannerFigures(std::string_view table);

/// Puts the figures back where they differ, as they do after an index was dropped or a tool analysed the
/// tables, and makes every connection on the file read them. True where something was put back. A file that
/// cannot be written stays as it is.
bool RestorePlannerFigures(Engine& engine);

}  // namespace FX_Algen::store
