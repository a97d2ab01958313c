#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "FX_Algen/Value.h"
#include "store/dialect/Catalogue.h"
#include "store/dialect/Translate.h"

/// The tree of a statement: built by the parser, completed by the analysis, read by the writer.
namespace FX_Algen::store::dialect {

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;
struct SelectTree;
using SelectPtr = std::unique_ptr<SelectTree>;

enum class UnaryOp : std::uint8_t { Negate, Not };
enum class BinaryOp : std::uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
};
enum class Function : std::uint8_t { IIf, IsNull, Format, CStr, Sum, Count, Min, Max, Avg };
enum class Constant : std::uint8_t { True, False, Null };

/// A table in a FROM.
struct TableRef {
    std::size_t Offset = 0;
    std::string Name;
    std::string Label;  ///< alias, else the table's name as declared
    bool HasAlias = false;
    const TableInfo* Table = nullptr;  ///< set by the analysis
    bool InsideOuter = false;          ///< stands in a nested join on the far side of an outer join
};

struct LiteralNode {
    std::size_t Index = 0;
    Literal Is;
    bool Pinned = false;  ///< written into the text, not bound
};
struct ConstantNode {
    Constant Is = Constant::Null;
};
struct ColumnNode {
    std::string Qualifier;
    std::string Name;
    const TableRef* Source = nullptr;    ///< set by the analysis
    const ColumnInfo* Column = nullptr;  ///< set by the analysis
    std::optional<std::size_t> Parameter =
        std::nullopt;  ///< in a criterion: position among the columns used, from 0
};
struct UnaryNode {
    UnaryOp Op = UnaryOp::Negate;
    ExprPtr Operand;
};
struct BinaryNode {
    BinaryOp Op = BinaryOp::Add;
    ExprPtr Left;
    ExprPtr Right;
};
struct IsNullNode {
    ExprPtr Operand;
    bool Negated = false;
};
struct InNode {
    ExprPtr Operand;
    std::vector<ExprPtr> List;
    SelectPtr Select;  ///< in the place of a list
    bool Negated = false;
};
struct BetweenNode {
    ExprPtr Operand;
    ExprPtr Low;
    ExprPtr High;
    bool Negated = false;
};
struct LikeNode {
    ExprPtr Operand;
    ExprPtr Pattern;
    bool Negated = false;
};
struct CallNode {
    Function Is = Function::Count;
    std::vector<ExprPtr> Arguments;  ///< none for Count(*)
};

struct Expr {
    using NodeType = std::variant<LiteralNode, ConstantNode, ColumnNode, UnaryNode, BinaryNode, IsNullNode,
                                  InNode, BetweenNode, LikeNode, CallNode>;
    std::size_t Offset = 0;
    std::size_t Depth = 1;
    NodeType Node;
    Kind Type = Kind::Null;    ///< set by the analysis; Null where it cannot be told
    bool IsCondition = false;  ///< set by the analysis: the engine gives 1 and 0 here, not -1 and 0
};

struct FromNode;
using FromPtr = std::unique_ptr<FromNode>;

/// A join; a RIGHT JOIN stands here as a LEFT JOIN with its sides exchanged.
struct JoinNode {
    bool Outer = false;
    FromPtr Left;
    FromPtr Right;
    ExprPtr On;  ///< none between the members of a comma list
};
struct FromNode {
    std::variant<TableRef, JoinNode> Node;
};

struct SelectItem {
    std::size_t Offset = 0;
    ExprPtr Value;  ///< none for a star
    std::optional<std::string> Alias;
    std::optional<std::string> StarQualifier;  ///< "" for *, "t" for t.*
};

struct OrderItem {
    ExprPtr Value;                    ///< none where it stands for an item
    std::optional<std::size_t> Item;  ///< position among the items: an ordinal or an alias
    bool Descending = false;
};

struct SelectTree {
    std::size_t Offset = 0;
    bool Distinct = false;
    std::vector<SelectItem> Items;  ///< after the analysis without stars
    FromPtr From;
    ExprPtr Where;
    std::vector<ExprPtr> GroupBy;
    ExprPtr Having;
    std::vector<OrderItem> OrderBy;

    std::vector<TableRef*> Sources;  ///< set by the analysis, in the order of the text
    bool Grouped = false;            ///< set by the analysis: GROUP BY or an aggregate
};

/// The target table of an action statement.
struct TargetTable {
    std::size_t Offset = 0;
    std::string Name;
    const TableInfo* Table = nullptr;  ///< set by the analysis
    std::optional<LiteralNode> Path;   ///< of IN 'path'
    std::size_t PathOffset = 0;
    std::optional<std::string> SchemaName;  ///< set by the analysis where a path is given
};

struct NamedColumn {
    std::size_t Offset = 0;
    std::string Name;
};

struct InsertTree {
    TargetTable Target;
    std::vector<NamedColumn> Columns;
    std::vector<ExprPtr> Values;
    SelectPtr Select;                              ///< in the place of values
    std::vector<const ColumnInfo*> TargetColumns;  ///< set by the analysis, one an item or value
};

struct Assignment {
    ExprPtr Column;  ///< a ColumnNode
    ExprPtr Value;
};
struct UpdateTree {
    FromPtr From;
    std::vector<Assignment> Assignments;
    ExprPtr Where;
    std::vector<TableRef*> Sources;    ///< set by the analysis
    const TableRef* Target = nullptr;  ///< set by the analysis
    bool ValuesFromOthers = false;     ///< set by the analysis: a value names a table besides the target
};

struct DeleteTree {
    std::size_t Offset = 0;
    std::optional<std::string> Qualifier;  ///< of t.*
    FromPtr From;
    ExprPtr Where;
    std::vector<TableRef*> Sources;    ///< set by the analysis
    const TableRef* Target = nullptr;  ///< set by the analysis
};

using StatementTree = std::variant<SelectPtr, InsertTree, UpdateTree, DeleteTree>;

/// A new expression one deeper than the deepest of its parts; the parts are moved into the node before.
ExprPtr MakeExpr(std::size_t offset, std::size_t depthOfParts, Expr::NodeType node);

/// Whether two analysed expressions are the same; constants count by their text. Names count by the column
/// they were resolved to.
bool SameExpr(const Expr& a, const Expr& b);

}  // namespace FX_Algen::store::dialect
