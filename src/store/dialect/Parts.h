#pragma once

#include <type_traits>
#include <variant>

#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// Calls `visit` with each direct part of an expression. A select behind In is not entered.
template <typename ExprType, typename Visitor>
void ForEachPart(ExprType& expr, Visitor&& visit) {
    std::visit(
        [&](auto& node) {
            using Node = std::remove_cvref_t<decltype(node)>;
            if constexpr (std::is_same_v<Node, UnaryNode> || std::is_same_v<Node, IsNullNode>) {
                visit(*node.Operand);
            } else if constexpr (std::is_same_v<Node, BinaryNode>) {
                visit(*node.Left);
                visit(*node.Right);
            } else if constexpr (std::is_same_v<Node, InNode>) {
                visit(*node.Operand);
                for (auto& part : node.List) visit(*part);
            } else if constexpr (std::is_same_v<Node, BetweenNode>) {
                visit(*node.Operand);
                visit(*node.Low);
                visit(*node.High);
            } else if constexpr (std::is_same_v<Node, LikeNode>) {
                visit(*node.Operand);
                visit(*node.Pattern);
            } else if constexpr (std::is_same_v<Node, CallNode>) {
                for (auto& part : node.Arguments) visit(*part);
            }
        },
        expr.Node);
}

/// Whether a function makes one value of many rows.
inline bool IsAggregate(Function function) { return function >= Function::Sum; }

inline bool IsAggregateCall(const Expr& expr) {
    const auto* call = std::get_if<CallNode>(&expr.Node);
    return call != nullptr && IsAggregate(call->Is);
}

inline bool IsNullConstant(const Expr& expr) {
    const auto* constant = std::get_if<ConstantNode>(&expr.Node);
    return constant != nullptr && constant->Is == Constant::Null;
}

inline bool IsEmptyText(const Expr& expr) {
    const auto* literal = std::get_if<LiteralNode>(&expr.Node);
    return literal != nullptr && literal->Is.Is == Literal::Type::Text && literal->Is.Raw.size() == 2;
}

}  // namespace FX_Algen::store::dialect
