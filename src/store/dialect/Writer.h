#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "FX_Algen/Value.h"
#include "store/dialect/Joins.h"
#include "store/dialect/Translate.h"
#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// Writes an analysed tree in the engine's language. Expressions stand in WriteExpression.cpp, statements
/// in WriteStatement.cpp.
class Writer {
public:
    /// `columnParameters`: parameters that a criterion's columns take before its literals.
    explicit Writer(std::string_view statement, std::size_t columnParameters = 0)
        : statement_(statement), columnParameters_(columnParameters) {}

    void Statement(const StatementTree& tree);
    void Criterion(const Expr& condition);

    std::string TakeSql() { return std::move(sql_); }
    std::vector<Binding> TakeBindings() { return std::move(bindings_); }

    /// Base tables of a select whose rows can be told and changed, in the order of their hidden columns.
    static std::vector<RowIdColumn> RowIds(const SelectTree& select);

private:
    // Expressions
    void Value(const Expr& expr);
    void Condition(const Expr& expr);
    void Operand(const Expr& expr);            ///< as a value, in brackets where it needs them
    void ArithmeticOperand(const Expr& expr);  ///< the same; fails where it has grown beyond 64 bits
    void ConditionOperand(const Expr& expr);   ///< the same as a condition
    void Plain(const Expr& expr);
    void Node(const Expr& expr, const LiteralNode& node);
    void Node(const Expr& expr, const ConstantNode& node);
    void Node(const Expr& expr, const ColumnNode& node);
    void Node(const Expr& expr, const UnaryNode& node);
    void Node(const Expr& expr, const BinaryNode& node);
    void Node(const Expr& expr, const IsNullNode& node);
    void Node(const Expr& expr, const InNode& node);
    void Node(const Expr& expr, const BetweenNode& node);
    void Node(const Expr& expr, const LikeNode& node);
    void Node(const Expr& expr, const CallNode& node);
    void Comparison(const BinaryNode& node);
    void Arithmetic(const BinaryNode& node);
    void Parts(std::string_view symbol, const std::vector<const Expr*>& parts,
               void (Writer::*write)(const Expr&));
    void JoinPart(const Expr& expr);
    void Case(const Expr& expr, const CallNode& node);
    void Branch(const Expr& value, Kind kind);  ///< one value of an IIf of that kind
    void Aggregate(const CallNode& node);
    void Text(const char* function, const Expr& expr);
    void Parameter(const Binding& binding);
    void List(const std::vector<ExprPtr>& list);

    // Statements
    /// `targets`: columns that take the items, of INSERT; `rowIds`: hidden columns behind the items.
    void Select(const SelectTree& select, const std::vector<const ColumnInfo*>& targets,
                const std::vector<RowIdColumn>& rowIds);
    void SelectItems(const SelectTree& select, const std::vector<const ColumnInfo*>& targets);
    void From(const JoinChain& chain);
    void Link(const JoinLink& link);
    void Table(const TableRef& table);
    void Conditions(const std::vector<const Expr*>& conditions);
    void Where(const JoinChain& chain, const Expr* where);
    void FromWhere(const FromNode& from, const Expr* where);
    void GroupBy(const SelectTree& select);
    void OrderBy(const SelectTree& select);
    void OrderTerm(const Expr& expr, bool descending, std::string_view& separator);
    void Action(const InsertTree& insert);
    void DistinctRows(const InsertTree& insert);
    void Action(const UpdateTree& update);
    void Action(const DeleteTree& tree);
    void UpdateFromOthers(const UpdateTree& update);
    void Assignments(const UpdateTree& update);
    void RowsOf(const TableRef& target, const FromNode& from, const Expr* where);
    void Written(const Expr& value, const ColumnInfo& column);  ///< a value as the column takes it
    /// The function that makes of a value what the column takes, around what `write` writes.
    template <typename Write>
    void Converted(Kind kind, const ColumnInfo& column, Write&& write);
    void Target(const TableRef& target);
    void RowId(std::string_view label);
    void Quoted(std::string_view name);
    void QuotedText(std::string_view text);

    std::string_view statement_;
    std::size_t columnParameters_;
    std::string sql_;
    std::vector<Binding> bindings_;
};

}  // namespace FX_Algen::store::dialect
