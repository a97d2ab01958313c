#include <algorithm>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Analysis.h"
#include "store/dialect/Failure.h"
#include "store/dialect/Kinds.h"
#include "store/dialect/Names.h"
#include "store/dialect/Parts.h"

namespace FX_Algen::store::dialect {

namespace {

/// Longer lists are written into the text: the engine takes 32766 parameters at most, and a list of that
/// length does not come twice.
constexpr std::size_t LongestBoundList = 500;

bool IsComparison(BinaryOp op) { return op >= BinaryOp::Equal && op <= BinaryOp::GreaterEqual; }

void MarkCondition(Expr& expr) {
    expr.Type = Kind::Bool;
    expr.IsCondition = true;
}

std::string Described(const ColumnNode& node) {
    return node.Qualifier.empty() ? node.Name : node.Qualifier + "." + node.Name;
}

/// "Field" of a result name "Table.Field".
std::string_view BareName(std::string_view name) {
    const std::size_t point = name.find('.');
    return point == std::string_view::npos ? name : name.substr(point + 1);
}

bool NamesResultColumn(const ColumnNode& node, const ResultColumn& column) {
    if (node.Qualifier.empty()) {
        return SameName(column.Name, node.Name) || SameName(BareName(column.Name), node.Name);
    }
    if (SameName(column.Name, Described(node))) return true;
    return column.Alias && column.Column && SameName(*column.Alias, node.Qualifier) &&
           SameName(*column.Column, node.Name);
}

}  // namespace

void Analysis::Fail(std::int32_t number, std::size_t offset, std::string_view why) const {
    FailAt(number, statement_, offset, why);
}

void Analysis::Value(Expr& expr, const Scope& scope) {
    std::visit([&](auto& node) { Node(expr, node, scope); }, expr.Node);
}

void Analysis::Condition(Expr& expr, const Scope& scope) {
    Value(expr, scope);
    if (expr.Type == Kind::Null || IsNumber(expr.Type)) return;
    Fail(ErrorNumber::TypeMismatch, expr.Offset, "A condition is needed, not a text or date");
}

void Analysis::Node(Expr& expr, LiteralNode& node, const Scope&) {
    switch (node.Is.Is) {
        case Literal::Type::Number:
            expr.Type = LiteralValue(node.Is).kind();
            break;
        case Literal::Type::Text:
            expr.Type = Kind::Text;
            break;
        case Literal::Type::Date:
            expr.Type = Kind::Date;
            break;
    }
}

void Analysis::Node(Expr& expr, ConstantNode& node, const Scope&) {
    expr.Type = node.Is == Constant::Null ? Kind::Null : Kind::Bool;
}

void Analysis::Node(Expr& expr, ColumnNode& node, const Scope& scope) {
    if (node.Column != nullptr) {  // written out from a star
        expr.Type = node.Column->Type;
        return;
    }
    if (scope.Result != nullptr) {
        FindInResult(expr, node, scope);
        return;
    }
    for (const Scope* at = &scope; at != nullptr; at = at->Outer) {
        if (at->Sources == nullptr || !FindColumn(expr, node, *at->Sources)) continue;
        expr.Type = node.Column->Type;
        return;
    }
    Fail(ErrorNumber::UnknownName, expr.Offset, "No table of the statement has a column " + Described(node));
}

bool Analysis::FindColumn(const Expr& expr, ColumnNode& node, const std::vector<TableRef*>& sources) const {
    node.Column = nullptr;
    for (const TableRef* source : sources) {
        if (!node.Qualifier.empty() && !SameName(source->Label, node.Qualifier)) continue;
        const ColumnInfo* column = source->Table->Find(node.Name);
        if (column == nullptr) continue;
        if (node.Column != nullptr) {
            Fail(ErrorNumber::UnknownName, expr.Offset,
                 "Several tables of the statement have a column " + Described(node));
        }
        node.Source = source;
        node.Column = column;
    }
    return node.Column != nullptr;
}

void Analysis::FindInResult(Expr& expr, ColumnNode& node, const Scope& scope) const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < scope.Result->size(); ++i) {
        if (NamesResultColumn(node, (*scope.Result)[i])) found.push_back(i);
    }
    if (found.empty())
        Fail(ErrorNumber::UnknownName, expr.Offset, "The result has no column " + Described(node));
    if (found.size() > 1) {
        Fail(ErrorNumber::UnknownName, expr.Offset, "The result has several columns " + Described(node));
    }
    auto& used = *scope.Used;
    const auto position = std::find(used.begin(), used.end(), found.front());
    node.Parameter = static_cast<std::size_t>(position - used.begin());
    if (position == used.end()) used.push_back(found.front());
    expr.Type = (*scope.Result)[found.front()].Type;
}

void Analysis::Node(Expr& expr, UnaryNode& node, const Scope& scope) {
    if (node.Op == UnaryOp::Not) {
        Condition(*node.Operand, scope);
        MarkCondition(expr);
        return;
    }
    Value(*node.Operand, scope);
    RequireNumber(*node.Operand);
    expr.Type = node.Operand->Type == Kind::Bool ? Kind::I4 : node.Operand->Type;
}

void Analysis::Node(Expr& expr, BinaryNode& node, const Scope& scope) {
    if (node.Op == BinaryOp::And || node.Op == BinaryOp::Or) {
        Condition(*node.Left, scope);
        Condition(*node.Right, scope);
        MarkCondition(expr);
        return;
    }
    Value(*node.Left, scope);
    Value(*node.Right, scope);
    if (IsComparison(node.Op)) {
        Comparison(expr, node);
    } else if (node.Op == BinaryOp::Concatenate) {
        expr.Type = Kind::Text;
    } else if (node.Op == BinaryOp::Add) {
        Addition(expr, node);
    } else {
        Arithmetic(expr, node);
    }
}

void Analysis::Comparison(Expr& expr, BinaryNode& node) {
    CheckComparable(expr, *node.Left, *node.Right);
    PinEmptyText(*node.Left);
    PinEmptyText(*node.Right);
    MarkCondition(expr);
}

void Analysis::Addition(Expr& expr, const BinaryNode& node) {
    const Kind left = node.Left->Type;
    const Kind right = node.Right->Type;
    if (left != Kind::Text && right != Kind::Text) {
        Arithmetic(expr, node);
        return;
    }
    const Kind other = left == Kind::Text ? right : left;
    if (other != Kind::Text && other != Kind::Null) {
        Fail(ErrorNumber::TypeMismatch, expr.Offset,
             "A text and another kind of value cannot be added; & joins them");
    }
    expr.Type = Kind::Text;
}

void Analysis::Arithmetic(Expr& expr, const BinaryNode& node) {
    RequireNumber(*node.Left);
    RequireNumber(*node.Right);
    const Kind kind = ArithmeticKind(node.Left->Type, node.Right->Type);
    expr.Type = node.Op == BinaryOp::Divide ? Kind::R8 : kind;
}

void Analysis::Node(Expr& expr, IsNullNode& node, const Scope& scope) {
    Value(*node.Operand, scope);
    MarkCondition(expr);
}

void Analysis::Node(Expr& expr, InNode& node, const Scope& scope) {
    Value(*node.Operand, scope);
    MarkCondition(expr);
    if (node.Select) {
        if (catalogue_ == nullptr) {
            Fail(ErrorNumber::SyntaxError, node.Select->Offset, "A select cannot stand in a criterion");
        }
        Select(*node.Select, &scope);
        if (node.Select->Items.size() != 1) {
            Fail(ErrorNumber::SyntaxError, node.Select->Offset, "A select behind In must give one column");
        }
        CheckComparable(expr, *node.Operand, *node.Select->Items.front().Value);
        return;
    }
    for (const ExprPtr& element : node.List) {
        Value(*element, scope);
        CheckComparable(*element, *node.Operand, *element);
        if (node.List.size() > LongestBoundList) PinAll(*element);
    }
}

void Analysis::Node(Expr& expr, BetweenNode& node, const Scope& scope) {
    Value(*node.Operand, scope);
    Value(*node.Low, scope);
    Value(*node.High, scope);
    CheckComparable(expr, *node.Operand, *node.Low);
    CheckComparable(expr, *node.Operand, *node.High);
    MarkCondition(expr);
}

void Analysis::Node(Expr& expr, LikeNode& node, const Scope& scope) {
    Value(*node.Operand, scope);
    Value(*node.Pattern, scope);
    RequireText(*node.Pattern);
    MarkCondition(expr);
}

void Analysis::Node(Expr& expr, CallNode& node, const Scope& scope) {
    if (IsAggregate(node.Is)) {
        Aggregate(expr, node, scope);
    } else {
        Call(expr, node, scope);
    }
}

void Analysis::Call(Expr& expr, CallNode& node, const Scope& scope) {
    Expr& first = *node.Arguments.front();
    switch (node.Is) {
        case Function::IIf: {
            const Expr& whenTrue = *node.Arguments[1];
            const Expr& otherwise = *node.Arguments[2];
            Condition(first, scope);
            Value(*node.Arguments[1], scope);
            Value(*node.Arguments[2], scope);
            if (IsNullConstant(whenTrue)) {
                expr.Type = otherwise.Type;
            } else if (IsNullConstant(otherwise)) {
                expr.Type = whenTrue.Type;
            } else {
                expr.Type = CommonKind(whenTrue.Type, otherwise.Type);
                // Beside a text each value is told as a text, so that the result is of one kind.
                if (whenTrue.Type == Kind::Text || otherwise.Type == Kind::Text) expr.Type = Kind::Text;
            }
            break;
        }
        case Function::IsNull:
            Value(first, scope);
            MarkCondition(expr);
            break;
        case Function::Format:
            Value(first, scope);
            Value(*node.Arguments[1], scope);
            RequireText(*node.Arguments[1]);
            PinAll(*node.Arguments[1]);
            expr.Type = Kind::Text;
            break;
        default:
            Value(first, scope);
            expr.Type = Kind::Text;
            break;
    }
}

void Analysis::Aggregate(Expr& expr, CallNode& node, const Scope& scope) {
    if (scope.Aggregate == nullptr) {
        Fail(ErrorNumber::SyntaxError, expr.Offset,
             "A function over all rows may stand in the select list, HAVING and ORDER BY alone, and in no "
             "other");
    }
    *scope.Aggregate = true;
    Scope inner = scope;
    inner.Aggregate = nullptr;
    for (const ExprPtr& argument : node.Arguments) Value(*argument, inner);
    switch (node.Is) {
        case Function::Count:
            expr.Type = Kind::I4;
            break;
        case Function::Sum:
        case Function::Avg:
            RequireNumber(*node.Arguments.front());
            expr.Type = Kind::R8;
            break;
        default:
            expr.Type = node.Arguments.front()->Type;
            break;
    }
}

void Analysis::CheckComparable(const Expr& at, const Expr& a, const Expr& b) const {
    if (Comparable(a.Type, b.Type)) return;
    Fail(ErrorNumber::TypeMismatch, at.Offset,
         std::string(KindName(a.Type)) + " cannot be compared with " + std::string(KindName(b.Type)));
}

void Analysis::RequireNumber(const Expr& expr) const {
    if (expr.Type == Kind::Null || IsNumber(expr.Type)) return;
    Fail(ErrorNumber::TypeMismatch, expr.Offset,
         "A number is needed, not " + std::string(KindName(expr.Type)));
}

void Analysis::RequireText(const Expr& expr) const {
    if (expr.Type == Kind::Null || expr.Type == Kind::Text) return;
    Fail(ErrorNumber::TypeMismatch, expr.Offset, "A text is needed, not " + std::string(KindName(expr.Type)));
}

void Analysis::Pin(LiteralNode& literal) {
    literal.Pinned = true;
    pins_.insert(literal.Index);
}

void Analysis::PinAll(Expr& expr) {
    if (auto* literal = std::get_if<LiteralNode>(&expr.Node)) Pin(*literal);
    ForEachPart(expr, [&](Expr& part) { PinAll(part); });
}

void Analysis::PinEmptyText(Expr& expr) {
    // Compared plainly: without case there is nothing to fold, and an index serves.
    if (IsEmptyText(expr)) PinAll(expr);
}

std::vector<std::size_t> Analysis::Criterion(Expr& condition, const std::vector<ResultColumn>& columns) {
    std::vector<std::size_t> used;
    Scope scope;
    scope.Result = &columns;
    scope.Used = &used;
    Condition(condition, scope);
    return used;
}

}  // namespace FX_Algen::store::dialect
