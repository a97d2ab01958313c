#include <algorithm>
#include <array>

#include "store/dialect/FunctionNames.h"
#include "store/dialect/Parts.h"
#include "store/dialect/Writer.h"

namespace FX_Algen::store::dialect {

namespace {

std::string_view SymbolOf(BinaryOp op) {
    static constexpr std::array<std::string_view, 13> Symbols{
        " + ", " - ", " * ", " / ", " || ", " = ", " <> ", " < ", " <= ", " > ", " >= ", " AND ", " OR "};
    return Symbols[static_cast<std::size_t>(op)];
}

bool IsComparison(BinaryOp op) { return op >= BinaryOp::Equal && op <= BinaryOp::GreaterEqual; }

bool NeedsBrackets(const Expr& expr) {
    if (const auto* binary = std::get_if<BinaryNode>(&expr.Node)) return binary->Op != BinaryOp::Divide;
    return std::holds_alternative<UnaryNode>(expr.Node) || std::holds_alternative<IsNullNode>(expr.Node) ||
           std::holds_alternative<InNode>(expr.Node) || std::holds_alternative<BetweenNode>(expr.Node) ||
           std::holds_alternative<LikeNode>(expr.Node) || expr.IsCondition;
}

bool IsText(const Expr& expr) { return expr.Type == Kind::Text; }

/// Texts are compared without case; with the empty text there is nothing to fold.
bool ComparesTexts(const Expr& a, const Expr& b) {
    return (IsText(a) || IsText(b)) && !IsEmptyText(a) && !IsEmptyText(b);
}

std::string Collated(const char* collation) { return std::string(" COLLATE ") + collation; }

bool SameBinding(const Binding& a, const Binding& b) {
    return a.LiteralIndex == b.LiteralIndex && a.Negate == b.Negate && a.ConvertTo == b.ConvertTo &&
           a.IsPattern == b.IsPattern && a.DayOnly == b.DayOnly;
}

}  // namespace

void Writer::Parameter(const Binding& binding) {
    auto found = std::find_if(bindings_.begin(), bindings_.end(),
                              [&](const Binding& known) { return SameBinding(known, binding); });
    if (found == bindings_.end()) found = bindings_.insert(bindings_.end(), binding);
    const auto position = static_cast<std::size_t>(found - bindings_.begin());
    sql_ += "?" + std::to_string(columnParameters_ + position + 1);
}

void Writer::Quoted(std::string_view name) {
    sql_ += '"';
    for (const char c : name) {
        if (c == '"') sql_ += '"';
        sql_ += c;
    }
    sql_ += '"';
}

void Writer::QuotedText(std::string_view text) {
    sql_ += '\'';
    for (const char c : text) {
        if (c == '\'') sql_ += '\'';
        sql_ += c;
    }
    sql_ += '\'';
}

void Writer::Criterion(const Expr& condition) {
    sql_ = "SELECT 1 WHERE ";
    Condition(condition);
}

void Writer::Plain(const Expr& expr) {
    std::visit([&](const auto& node) { Node(expr, node); }, expr.Node);
}

void Writer::Value(const Expr& expr) {
    if (!expr.IsCondition) {
        Plain(expr);
        return;
    }
    // The engine says 1 for true, the language -1.
    sql_ += "-(";
    Plain(expr);
    sql_ += ")";
}

void Writer::Condition(const Expr& expr) { Plain(expr); }

void Writer::Operand(const Expr& expr) {
    if (!NeedsBrackets(expr)) {
        Value(expr);
        return;
    }
    sql_ += "(";
    Value(expr);
    sql_ += ")";
}

void Writer::ConditionOperand(const Expr& expr) {
    const bool bare = !NeedsBrackets(expr);
    if (!bare) sql_ += "(";
    Condition(expr);
    if (!bare) sql_ += ")";
}

void Writer::Node(const Expr&, const LiteralNode& node) {
    if (!node.Pinned) {
        Parameter({node.Index});
        return;
    }
    if (node.Is.Is == Literal::Type::Number) {
        sql_ += node.Is.Raw;
    } else if (node.Is.Is == Literal::Type::Text) {
        QuotedText(LiteralValue(node.Is).Text());
    } else {
        QuotedText(LiteralValue(node.Is).AsDate().Iso);
    }
}

void Writer::Node(const Expr&, const ConstantNode& node) {
    switch (node.Is) {
        case Constant::True:
            sql_ += "-1";
            break;
        case Constant::False:
            sql_ += "0";
            break;
        case Constant::Null:
            sql_ += "NULL";
            break;
    }
}

void Writer::Node(const Expr&, const ColumnNode& node) {
    if (node.Parameter) {
        sql_ += "?" + std::to_string(*node.Parameter + 1);
        return;
    }
    Quoted(node.Source->Label);
    sql_ += ".";
    Quoted(node.Column->Name);
}

void Writer::Node(const Expr&, const UnaryNode& node) {
    if (node.Op == UnaryOp::Not) {
        sql_ += "NOT ";
        ConditionOperand(*node.Operand);
        return;
    }
    const auto* literal = std::get_if<LiteralNode>(&node.Operand->Node);
    if (literal != nullptr && !literal->Pinned) {
        Binding binding{literal->Index};
        binding.Negate = true;
        Parameter(binding);
        return;
    }
    // Always in brackets: two minus signs side by side would open a comment.
    sql_ += "-(";
    Value(*node.Operand);
    sql_ += ")";
}

void Writer::Node(const Expr& expr, const BinaryNode& node) {
    if (IsComparison(node.Op)) {
        Comparison(node);
        return;
    }
    if (node.Op == BinaryOp::And || node.Op == BinaryOp::Or) {
        ConditionOperand(*node.Left);
        sql_ += SymbolOf(node.Op);
        ConditionOperand(*node.Right);
        return;
    }
    if (node.Op == BinaryOp::Concatenate) {
        Join(node);
        return;
    }
    if (node.Op == BinaryOp::Divide) {
        sql_ += names::Divide;
        sql_ += "(";
        Value(*node.Left);
        sql_ += ", ";
        Value(*node.Right);
        sql_ += ")";
        return;
    }
    const bool joinsTexts = node.Op == BinaryOp::Add && IsText(expr);
    Operand(*node.Left);
    sql_ += joinsTexts ? SymbolOf(BinaryOp::Concatenate) : SymbolOf(node.Op);
    Operand(*node.Right);
}

void Writer::Comparison(const BinaryNode& node) {
    Operand(*node.Left);
    if (ComparesTexts(*node.Left, *node.Right)) sql_ += Collated(names::CaseBlind);
    sql_ += SymbolOf(node.Op);
    Operand(*node.Right);
}

void Writer::Join(const BinaryNode& node) {
    JoinPart(*node.Left);
    sql_ += SymbolOf(BinaryOp::Concatenate);
    JoinPart(*node.Right);
}

void Writer::JoinPart(const Expr& expr) {
    const auto* binary = std::get_if<BinaryNode>(&expr.Node);
    const bool isChain = binary != nullptr && binary->Op == BinaryOp::Concatenate;
    const bool isLiteral = std::holds_alternative<LiteralNode>(expr.Node);
    if (isChain || (isLiteral && IsText(expr))) {
        Operand(expr);
        return;
    }
    if (isLiteral) {
        Text(names::Text, expr);
        return;
    }
    sql_ += "COALESCE(";
    if (IsText(expr)) {
        Value(expr);
    } else {
        Text(names::Text, expr);
    }
    sql_ += ", '')";
}

void Writer::Text(const char* function, const Expr& expr) {
    sql_ += function;
    sql_ += "(";
    Value(expr);
    sql_ += ", " + std::to_string(static_cast<int>(expr.Type)) + ")";
}

void Writer::Node(const Expr&, const IsNullNode& node) {
    Operand(*node.Operand);
    sql_ += node.Negated ? " IS NOT NULL" : " IS NULL";
}

void Writer::List(const std::vector<ExprPtr>& list) {
    std::string_view separator;
    for (const ExprPtr& element : list) {
        sql_ += separator;
        Value(*element);
        separator = ", ";
    }
}

void Writer::Node(const Expr&, const InNode& node) {
    bool texts = IsText(*node.Operand) || (node.Select && IsText(*node.Select->Items.front().Value));
    for (const ExprPtr& element : node.List) texts = texts || IsText(*element);
    Operand(*node.Operand);
    if (texts) sql_ += Collated(names::CaseBlind);
    sql_ += node.Negated ? " NOT IN (" : " IN (";
    if (node.Select) {
        Select(*node.Select, {}, {});
    } else {
        List(node.List);
    }
    sql_ += ")";
}

void Writer::Node(const Expr&, const BetweenNode& node) {
    Operand(*node.Operand);
    if (IsText(*node.Operand) || IsText(*node.Low) || IsText(*node.High)) sql_ += Collated(names::CaseBlind);
    sql_ += node.Negated ? " NOT BETWEEN " : " BETWEEN ";
    Operand(*node.Low);
    sql_ += " AND ";
    Operand(*node.High);
}

void Writer::Node(const Expr&, const LikeNode& node) {
    if (node.Negated) sql_ += "NOT ";
    sql_ += names::Like;
    sql_ += "(";
    if (IsText(*node.Operand)) {
        Value(*node.Operand);
    } else {
        Text(names::Text, *node.Operand);
    }
    sql_ += ", ";
    const auto* literal = std::get_if<LiteralNode>(&node.Pattern->Node);
    if (literal != nullptr && !literal->Pinned) {
        Binding binding{literal->Index};
        binding.IsPattern = true;
        Parameter(binding);
    } else {
        Value(*node.Pattern);
    }
    sql_ += ")";
}

void Writer::Node(const Expr&, const CallNode& node) {
    if (IsAggregate(node.Is)) {
        Aggregate(node);
        return;
    }
    const Expr& first = *node.Arguments.front();
    switch (node.Is) {
        case Function::IIf:
            sql_ += "CASE WHEN ";
            Condition(first);
            sql_ += " THEN ";
            Value(*node.Arguments[1]);
            sql_ += " ELSE ";
            Value(*node.Arguments[2]);
            sql_ += " END";
            break;
        case Function::IsNull:
            Operand(first);
            sql_ += " IS NULL";
            break;
        case Function::Format:
            sql_ += names::Format;
            sql_ += "(";
            Value(first);
            sql_ += ", ";
            Value(*node.Arguments[1]);
            sql_ += ")";
            break;
        default:
            Text(names::CStr, first);
            break;
    }
}

void Writer::Aggregate(const CallNode& node) {
    static constexpr std::array<std::string_view, 5> Names{"sum(", "count(", "min(", "max(", "avg("};
    sql_ += Names[static_cast<std::size_t>(node.Is) - static_cast<std::size_t>(Function::Sum)];
    if (node.Arguments.empty()) {
        sql_ += "*";
    } else {
        const Expr& argument = *node.Arguments.front();
        const bool ordersTexts = IsText(argument) && (node.Is == Function::Min || node.Is == Function::Max);
        ordersTexts ? Operand(argument) : Value(argument);
        if (ordersTexts) sql_ += Collated(names::German);
    }
    sql_ += ")";
}

}  // namespace FX_Algen::store::dialect
