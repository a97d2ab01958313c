#include "store/dialect/Tree.h"

#include <algorithm>

namespace FX_Algen::store::dialect {

namespace {

bool SameList(const std::vector<ExprPtr>& a, const std::vector<ExprPtr>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const ExprPtr& x, const ExprPtr& y) { return SameExpr(*x, *y); });
}

bool Same(const LiteralNode& a, const LiteralNode& b) { return a.Is.Is == b.Is.Is && a.Is.Raw == b.Is.Raw; }
bool Same(const ConstantNode& a, const ConstantNode& b) { return a.Is == b.Is; }
bool Same(const ColumnNode& a, const ColumnNode& b) { return a.Source == b.Source && a.Column == b.Column; }
bool Same(const UnaryNode& a, const UnaryNode& b) { return a.Op == b.Op && SameExpr(*a.Operand, *b.Operand); }
bool Same(const BinaryNode& a, const BinaryNode& b) {
    return a.Op == b.Op && SameExpr(*a.Left, *b.Left) && SameExpr(*a.Right, *b.Right);
}
bool Same(const IsNullNode& a, const IsNullNode& b) {
    return a.Negated == b.Negated && SameExpr(*a.Operand, *b.Operand);
}
bool Same(const InNode& a, const InNode& b) {
    // Two selects are never taken for the same: a grouped query has no need of it.
    if (a.Select || b.Select) return false;
    return a.Negated == b.Negated && SameExpr(*a.Operand, *b.Operand) && SameList(a.List, b.List);
}
bool Same(const BetweenNode& a, const BetweenNode& b) {
    return a.Negated == b.Negated && SameExpr(*a.Operand, *b.Operand) && SameExpr(*a.Low, *b.Low) &&
           SameExpr(*a.High, *b.High);
}
bool Same(const LikeNode& a, const LikeNode& b) {
    return a.Negated == b.Negated && SameExpr(*a.Operand, *b.Operand) && SameExpr(*a.Pattern, *b.Pattern);
}
bool Same(const CallNode& a, const CallNode& b) { return a.Is == b.Is && SameList(a.Arguments, b.Arguments); }

}  // namespace

ExprPtr MakeExpr(std::size_t offset, std::size_t depthOfParts, Expr::NodeType node) {
    auto expr = std::make_unique<Expr>();
    expr->Offset = offset;
    expr->Depth = depthOfParts + 1;
    expr->Node = std::move(node);
    return expr;
}

bool SameExpr(const Expr& a, const Expr& b) {
    if (a.Node.index() != b.Node.index()) return false;
    return std::visit(
        [&](const auto& node) { return Same(node, std::get<std::decay_t<decltype(node)>>(b.Node)); }, a.Node);
}

}  // namespace FX_Algen::store::dialect
