#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/Translate.h"
#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// Completes the tree of a statement: looks up tables and columns, writes stars out, tells the kind of each
/// expression, finds the literals that must stand in the translated text, and refuses what does not fit.
/// Expressions stand in AnalyseExpression.cpp, statements in AnalyseStatement.cpp.
class Analysis {
public:
    Analysis(std::string_view statement, const Catalogue* catalogue, ExternalSource* external)
        : statement_(statement), catalogue_(catalogue), external_(external) {}

    void Statement(StatementTree& tree);

    /// A condition over the columns of an open result. Gives the positions of the columns it names; a
    /// column's parameter counts in that list.
    std::vector<std::size_t> Criterion(Expr& condition, const std::vector<ResultColumn>& columns);

    /// Literals that stand in the translated text, by their position in the shape.
    const std::set<std::size_t>& Pins() const noexcept { return pins_; }

private:
    /// What names an expression may use.
    struct Scope {
        const std::vector<TableRef*>* Sources = nullptr;
        const Scope* Outer = nullptr;                       ///< of the statement around a select behind In
        const std::vector<ResultColumn>* Result = nullptr;  ///< of a criterion
        std::vector<std::size_t>* Used = nullptr;
        bool* Aggregate = nullptr;  ///< set where an aggregate was met; none may stand where it is missing
    };

    // Expressions
    void Value(Expr& expr, const Scope& scope);
    void Condition(Expr& expr, const Scope& scope);
    void Node(Expr& expr, LiteralNode& node, const Scope& scope);
    void Node(Expr& expr, ConstantNode& node, const Scope& scope);
    void Node(Expr& expr, ColumnNode& node, const Scope& scope);
    void Node(Expr& expr, UnaryNode& node, const Scope& scope);
    void Node(Expr& expr, BinaryNode& node, const Scope& scope);
    void Node(Expr& expr, IsNullNode& node, const Scope& scope);
    void Node(Expr& expr, InNode& node, const Scope& scope);
    void Node(Expr& expr, BetweenNode& node, const Scope& scope);
    void Node(Expr& expr, LikeNode& node, const Scope& scope);
    void Node(Expr& expr, CallNode& node, const Scope& scope);
    void Comparison(Expr& expr, BinaryNode& node);
    void Addition(Expr& expr, const BinaryNode& node);
    void Arithmetic(Expr& expr, const BinaryNode& node);
    void Call(Expr& expr, CallNode& node, const Scope& scope);
    void Aggregate(Expr& expr, CallNode& node, const Scope& scope);
    bool FindColumn(const Expr& expr, ColumnNode& node, const std::vector<TableRef*>& sources) const;
    void FindInResult(Expr& expr, ColumnNode& node, const Scope& scope) const;
    void CheckComparable(const Expr& at, const Expr& a, const Expr& b) const;
    void RequireNumber(const Expr& expr) const;
    void RequireText(const Expr& expr) const;
    void Pin(LiteralNode& literal);
    void PinAll(Expr& expr);
    void PinEmptyText(Expr& expr);

    // Statements
    void Select(SelectTree& select, const Scope* outer);
    void Action(InsertTree& insert);
    void Action(UpdateTree& update);
    void Action(DeleteTree& tree);
    void Sources(FromNode& from, std::vector<TableRef*>& sources, const Scope* outer);
    void Table(TableRef& table, std::vector<TableRef*>& sources);
    void Join(JoinNode& join, std::vector<TableRef*>& sources, const Scope* outer);
    void ExpandStars(SelectTree& select) const;
    void AddColumns(const TableRef& source, std::size_t offset, std::vector<SelectItem>& items) const;
    void CheckAliases(const SelectTree& select) const;
    void Order(SelectTree& select, const Scope& scope);
    void CheckOrderOfDistinct(Expr& term, SelectTree& select);
    bool OrderByItem(OrderItem& order, const SelectTree& select);
    void Grouping(SelectTree& select);
    void CheckGrouped(Expr& expr, SelectTree& select);
    void InsertTarget(InsertTree& insert);
    void InsertColumns(InsertTree& insert);
    void CheckKeysGiven(const InsertTree& insert) const;
    void CheckChangeable(const TableInfo& table, std::size_t offset) const;
    bool OnlyFrom(const Expr& expr, const TableRef& source) const;
    const TableInfo& FindTable(const Catalogue& catalogue, const std::string& name, std::size_t offset) const;

    [[noreturn]] void Fail(std::int32_t number, std::size_t offset, std::string_view why) const;

    std::string_view statement_;
    const Catalogue* catalogue_;
    ExternalSource* external_;
    std::set<std::size_t> pins_;
};

/// Names and kinds of the columns that an analysed select gives.
std::vector<ResultColumn> ResultColumns(const SelectTree& select);

}  // namespace FX_Algen::store::dialect
