#include <algorithm>

#include "FX_Algen/Error.h"
#include "store/dialect/Failure.h"
#include "store/dialect/FunctionNames.h"
#include "store/dialect/Kinds.h"
#include "store/dialect/Parts.h"
#include "store/dialect/Writer.h"

namespace FX_Algen::store::dialect {

namespace {

bool IsConstant(const Expr& expr) {
    return std::holds_alternative<LiteralNode>(expr.Node) || std::holds_alternative<ConstantNode>(expr.Node);
}

/// The literal that a value consists of, with its sign, if it is no more than that.
struct SignedLiteral {
    const LiteralNode* Literal = nullptr;
    bool Negate = false;
};

SignedLiteral LiteralOf(const Expr& expr) {
    if (const auto* literal = std::get_if<LiteralNode>(&expr.Node)) return {literal, false};
    const auto* unary = std::get_if<UnaryNode>(&expr.Node);
    if (unary == nullptr || unary->Op != UnaryOp::Negate) return {};
    return {std::get_if<LiteralNode>(&unary->Operand->Node), true};
}

/// Whether the value of an expression is of its kind for sure: a sum may grow beyond it.
bool KeepsKind(const Expr& expr) {
    if (expr.IsCondition || std::holds_alternative<ColumnNode>(expr.Node) ||
        std::holds_alternative<ConstantNode>(expr.Node)) {
        return true;
    }
    return expr.Type == Kind::Text;
}

bool ShowsColumnOf(const SelectTree& select, const TableRef& source) {
    return std::any_of(select.Items.begin(), select.Items.end(), [&source](const SelectItem& item) {
        const auto* column = std::get_if<ColumnNode>(&item.Value->Node);
        return column != nullptr && column->Source == &source;
    });
}

bool NeedsConversion(const Expr& value, const ColumnInfo& column) {
    if (IsNullConstant(value)) return false;
    const auto* source = std::get_if<ColumnNode>(&value.Node);
    if (source != nullptr && source->Column->HasTime != column.HasTime) return true;
    return !KeepsKind(value) || !FitsAsItIs(value.Type, column.Type);
}

}  // namespace

void Writer::Statement(const StatementTree& tree) {
    if (const auto* select = std::get_if<SelectPtr>(&tree)) {
        Select(**select, {}, RowIds(**select));
    } else if (const auto* insert = std::get_if<InsertTree>(&tree)) {
        Action(*insert);
    } else if (const auto* update = std::get_if<UpdateTree>(&tree)) {
        Action(*update);
    } else {
        Action(std::get<DeleteTree>(tree));
    }
}

// SELECT

std::vector<RowIdColumn> Writer::RowIds(const SelectTree& select) {
    if (select.Distinct || select.Grouped) return {};
    std::vector<RowIdColumn> columns;
    for (const TableRef* source : select.Sources) {
        if (source->Table->IsView) return {};
        // A table of a join none of whose columns is shown cannot be changed: its identity would be
        // fetched for nothing, row by row.
        const bool wanted = select.Sources.size() == 1 || ShowsColumnOf(select, *source);
        if (wanted && !source->InsideOuter) columns.push_back({source->Label, source->Table->Name});
    }
    return columns;
}

void Writer::Select(const SelectTree& select, const std::vector<const ColumnInfo*>& targets,
                    const std::vector<RowIdColumn>& rowIds) {
    sql_ += select.Distinct ? "SELECT DISTINCT " : "SELECT ";
    SelectItems(select, targets);
    for (const RowIdColumn& column : rowIds) {
        sql_ += ", ";
        RowId(column.Alias);
    }
    FromWhere(*select.From, select.Where.get());
    GroupBy(select);
    OrderBy(select);
}

void Writer::SelectItems(const SelectTree& select, const std::vector<const ColumnInfo*>& targets) {
    for (std::size_t i = 0; i < select.Items.size(); ++i) {
        const SelectItem& item = select.Items[i];
        const bool folds = select.Distinct && item.Value->Type == Kind::Text;
        if (i > 0) sql_ += ", ";
        if (folds) sql_ += "(";
        if (targets.empty()) {
            Value(*item.Value);
        } else {
            Written(*item.Value, *targets[i]);
        }
        if (folds) sql_ += std::string(") COLLATE ") + names::CaseBlind;
        if (item.Alias && targets.empty()) {
            sql_ += " AS ";
            Quoted(*item.Alias);
        }
    }
}

void Writer::Table(const TableRef& table) {
    Quoted(table.Table->Name);
    if (table.Label == table.Table->Name) return;
    sql_ += " AS ";
    Quoted(table.Label);
}

void Writer::Conditions(const std::vector<const Expr*>& conditions) {
    std::string_view separator;
    for (const Expr* condition : conditions) {
        sql_ += separator;
        if (conditions.size() > 1) {
            ConditionOperand(*condition);
        } else {
            Condition(*condition);
        }
        separator = " AND ";
    }
}

void Writer::From(const JoinChain& chain) {
    for (std::size_t i = 0; i < chain.Links.size(); ++i) {
        const JoinLink& link = chain.Links[i];
        if (i > 0) sql_ += link.Outer ? " LEFT JOIN " : " INNER JOIN ";
        Link(link);
    }
}

void Writer::Link(const JoinLink& link) {
    if (const auto* table = std::get_if<TableRef>(&link.Operand->Node)) {
        Table(*table);
    } else {
        const JoinChain nested = Chain(*link.Operand);
        if (!nested.Filters.empty()) {
            FailAt(ErrorNumber::SyntaxError, statement_, nested.Filters.front()->Offset,
                   "A condition of this shape cannot stand in a join nested behind LEFT or RIGHT JOIN");
        }
        sql_ += "(";
        From(nested);
        sql_ += ")";
    }
    if (link.Conditions.empty()) return;
    sql_ += " ON ";
    Conditions(link.Conditions);
}

void Writer::Where(const JoinChain& chain, const Expr* where) {
    std::vector<const Expr*> conditions = chain.Filters;
    if (where != nullptr) conditions.push_back(where);
    if (conditions.empty()) return;
    sql_ += " WHERE ";
    Conditions(conditions);
}

void Writer::FromWhere(const FromNode& from, const Expr* where) {
    const JoinChain chain = Chain(from);
    sql_ += " FROM ";
    From(chain);
    Where(chain, where);
}

void Writer::GroupBy(const SelectTree& select) {
    std::string_view separator = " GROUP BY ";
    for (const ExprPtr& group : select.GroupBy) {
        sql_ += separator;
        Operand(*group);
        if (group->Type == Kind::Text) sql_ += std::string(" COLLATE ") + names::CaseBlind;
        separator = ", ";
    }
    if (!select.Having) return;
    sql_ += " HAVING ";
    Condition(*select.Having);
}

void Writer::OrderBy(const SelectTree& select) {
    std::string_view separator = " ORDER BY ";
    for (const OrderItem& order : select.OrderBy) {
        OrderTerm(order.Item ? *select.Items[*order.Item].Value : *order.Value, order.Descending, separator);
    }
    if (!select.OrderBy.empty()) return;
    for (const ExprPtr& group : select.GroupBy) OrderTerm(*group, false, separator);
}

void Writer::OrderTerm(const Expr& expr, bool descending, std::string_view& separator) {
    // A constant orders nothing, and the engine would take a number for the position of a column.
    if (IsConstant(expr)) return;
    sql_ += separator;
    Operand(expr);
    if (expr.Type == Kind::Text) sql_ += std::string(" COLLATE ") + names::German;
    if (expr.Type == Kind::Bool) {
        // False comes before true although it is the greater number; Null comes before both.
        sql_ += descending ? " ASC NULLS LAST" : " DESC NULLS FIRST";
    } else if (descending) {
        sql_ += " DESC";
    }
    separator = ", ";
}

// INSERT, UPDATE, DELETE

void Writer::Written(const Expr& value, const ColumnInfo& column) {
    const SignedLiteral literal = LiteralOf(value);
    if (literal.Literal != nullptr && !literal.Literal->Pinned) {
        Binding binding{literal.Literal->Index};
        binding.Negate = literal.Negate;
        binding.ConvertTo = column.Type;
        binding.DayOnly = column.Type == Kind::Date && !column.HasTime;
        Parameter(binding);
        return;
    }
    if (!NeedsConversion(value, column)) {
        Value(value);
        return;
    }
    Converted(value.Type, column, [&] { Value(value); });
}

template <typename Write>
void Writer::Converted(Kind kind, const ColumnInfo& column, Write&& write) {
    // A text column takes a value as it reads in a text; how that is depends on the kind it had.
    const bool toText = column.Type == Kind::Text;
    const int target = column.HasTime ? names::TimeColumn : static_cast<int>(column.Type);
    sql_ += toText ? names::Text : names::To;
    sql_ += "(";
    write();
    sql_ += ", " + std::to_string(toText ? static_cast<int>(kind) : target) + ")";
}

void Writer::Action(const InsertTree& insert) {
    sql_ += "INSERT INTO ";
    if (insert.Target.SchemaName) {
        Quoted(*insert.Target.SchemaName);
        sql_ += ".";
    }
    Quoted(insert.Target.Table->Name);
    std::string_view separator = " (";
    for (const ColumnInfo* column : insert.TargetColumns) {
        sql_ += separator;
        Quoted(column->Name);
        separator = ", ";
    }
    if (insert.Select) {
        sql_ += ") ";
        if (insert.Select->Distinct) {
            DistinctRows(insert);
        } else {
            Select(*insert.Select, insert.TargetColumns, {});
        }
        return;
    }
    sql_ += ") VALUES";
    separator = " (";
    for (std::size_t i = 0; i < insert.Values.size(); ++i) {
        sql_ += separator;
        Written(*insert.Values[i], *insert.TargetColumns[i]);
        separator = ", ";
    }
    sql_ += ")";
}

void Writer::DistinctRows(const InsertTree& insert) {
    // Rows are told apart before they are converted: two that differ may be the same in the columns' kinds.
    static constexpr std::string_view Rows = "fx_rows";
    const std::size_t count = insert.TargetColumns.size();
    const auto name = [](std::size_t i) { return "v" + std::to_string(i); };
    sql_ += "WITH ";
    Quoted(Rows);
    for (std::size_t i = 0; i < count; ++i) {
        sql_ += i == 0 ? " (" : ", ";
        Quoted(name(i));
    }
    sql_ += ") AS (";
    Select(*insert.Select, {}, {});
    sql_ += ")";
    for (std::size_t i = 0; i < count; ++i) {
        const ColumnInfo& column = *insert.TargetColumns[i];
        const Expr& value = *insert.Select->Items[i].Value;
        const auto write = [&] { Quoted(name(i)); };
        sql_ += i == 0 ? " SELECT " : ", ";
        NeedsConversion(value, column) ? Converted(value.Type, column, write) : write();
    }
    sql_ += " FROM ";
    Quoted(Rows);
}

void Writer::Target(const TableRef& target) {
    if (!target.InsideOuter) {
        Table(target);
        return;
    }
    FailAt(ErrorNumber::SyntaxError, statement_, target.Offset,
           "A table in a join nested behind LEFT or RIGHT JOIN cannot be changed");
}

void Writer::RowId(std::string_view label) {
    Quoted(label);
    sql_ += ".rowid";
}

void Writer::RowsOf(const TableRef& target, const FromNode& from, const Expr* where) {
    sql_ += " WHERE ";
    RowId(target.Label);
    sql_ += " IN (SELECT ";
    RowId(target.Label);
    FromWhere(from, where);
    sql_ += ")";
}

void Writer::Assignments(const UpdateTree& update) {
    std::string_view separator = " SET ";
    for (const Assignment& assignment : update.Assignments) {
        const ColumnInfo& column = *std::get<ColumnNode>(assignment.Column->Node).Column;
        sql_ += separator;
        Quoted(column.Name);
        sql_ += " = ";
        Written(*assignment.Value, column);
        separator = ", ";
    }
}

void Writer::Action(const UpdateTree& update) {
    if (update.ValuesFromOthers) {
        UpdateFromOthers(update);
        return;
    }
    sql_ += "UPDATE ";
    Target(*update.Target);
    Assignments(update);
    if (update.Sources.size() > 1) {
        RowsOf(*update.Target, *update.From, update.Where.get());
    } else {
        Where({}, update.Where.get());
    }
}

void Writer::UpdateFromOthers(const UpdateTree& update) {
    // The values are read in one pass over the join; a row that the join gives several times takes one of
    // them.
    static constexpr std::string_view Values = "fx_values";
    sql_ += "UPDATE ";
    Target(*update.Target);
    std::string_view separator = " SET ";
    for (std::size_t i = 0; i < update.Assignments.size(); ++i) {
        sql_ += separator;
        Quoted(std::get<ColumnNode>(update.Assignments[i].Column->Node).Column->Name);
        sql_ += " = ";
        Quoted(Values);
        sql_ += ".\"v" + std::to_string(i) + "\"";
        separator = ", ";
    }
    sql_ += " FROM (SELECT ";
    RowId(update.Target->Label);
    sql_ += " AS \"id\"";
    for (std::size_t i = 0; i < update.Assignments.size(); ++i) {
        sql_ += ", ";
        Written(*update.Assignments[i].Value,
                *std::get<ColumnNode>(update.Assignments[i].Column->Node).Column);
        sql_ += " AS \"v" + std::to_string(i) + "\"";
    }
    FromWhere(*update.From, update.Where.get());
    sql_ += ") AS ";
    Quoted(Values);
    sql_ += " WHERE ";
    RowId(update.Target->Label);
    sql_ += " = ";
    Quoted(Values);
    sql_ += ".\"id\"";
}

void Writer::Action(const DeleteTree& tree) {
    sql_ += "DELETE FROM ";
    Target(*tree.Target);
    if (tree.Sources.size() > 1) {
        RowsOf(*tree.Target, *tree.From, tree.Where.get());
    } else {
        Where({}, tree.Where.get());
    }
}

}  // namespace FX_Algen::store::dialect
