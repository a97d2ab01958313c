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

bool IsSum(BinaryOp op) { return op == BinaryOp::Add || op == BinaryOp::Subtract; }

/// The parts of a chain such as a AND b AND c in their order. The engine's parser has room for some ninety
/// open brackets, and a chain is longer than that.
std::vector<const Expr*> PartsOfChain(BinaryOp op, const Expr& chain) {
    std::vector<const Expr*> parts;
    const Expr* rest = &chain;
    for (const auto* node = std::get_if<BinaryNode>(&rest->Node);
         node != nullptr && node->Op == op && rest->Type == chain.Type;
         node = std::get_if<BinaryNode>(&rest->Node)) {
        parts.push_back(node->Right.get());
        rest = node->Left.get();
    }
    parts.push_back(rest);
    std::reverse(parts.begin(), parts.end());
    return parts;
}

/// Whether `left + …` or `left - …` reads the same without brackets around `left`.
bool IsSumOfNumbers(const Expr& left) {
    const auto* inner = std::get_if<BinaryNode>(&left.Node);
    return inner != nullptr && IsSum(inner->Op) && !IsText(left);
}

/// A product or sum that may grow beyond what 64 bits hold; whole numbers stay far below.
bool MayOverflow(const Expr& expr) {
    const auto* binary = std::get_if<BinaryNode>(&expr.Node);
    if (binary == nullptr || (!IsSum(binary->Op) && binary->Op != BinaryOp::Multiply)) return false;
    return expr.Type == Kind::R4 || expr.Type == Kind::R8 || expr.Type == Kind::Null;
}

bool IsPlain(const Expr& expr) {
    return std::holds_alternative<ColumnNode>(expr.Node) || std::holds_alternative<LiteralNode>(expr.Node) ||
           std::holds_alternative<ConstantNode>(expr.Node);
}

/// How often an operator stands before its operand, and the operand.
struct Repeated {
    std::size_t Count = 0;
    const Expr* Operand = nullptr;
};
Repeated RepeatsOf(UnaryOp op, const Expr& expr) {
    Repeated repeated{0, &expr};
    for (const auto* unary = std::get_if<UnaryNode>(&expr.Node); unary != nullptr && unary->Op == op;
         unary = std::get_if<UnaryNode>(&repeated.Operand->Node)) {
        ++repeated.Count;
        repeated.Operand = unary->Operand.get();
    }
    return repeated;
}

const CallNode* AsIIf(const Expr& expr) {
    const auto* call = std::get_if<CallNode>(&expr.Node);
    return call != nullptr && call->Is == Function::IIf ? call : nullptr;
}

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

void Writer::ArithmeticOperand(const Expr& expr) {
    if (!MayOverflow(expr)) {
        Operand(expr);
        return;
    }
    sql_ += names::Finite;
    sql_ += "(";
    Value(expr);
    sql_ += ", 0)";
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

void Writer::Node(const Expr& expr, const UnaryNode& node) {
    // Two of a kind undo each other; one pair is kept, since it makes a condition or number of its operand.
    const Repeated repeated = RepeatsOf(node.Op, expr);
    const bool twice = repeated.Count % 2 == 0;
    if (node.Op == UnaryOp::Not) {
        sql_ += twice ? "NOT NOT " : "NOT ";
        ConditionOperand(*repeated.Operand);
        return;
    }
    const auto* literal = std::get_if<LiteralNode>(&repeated.Operand->Node);
    if (!twice && literal != nullptr && !literal->Pinned) {
        Binding binding{literal->Index};
        binding.Negate = true;
        Parameter(binding);
        return;
    }
    // Always in brackets: two minus signs side by side would open a comment.
    sql_ += twice ? "-(-(" : "-(";
    Value(*repeated.Operand);
    sql_ += twice ? "))" : ")";
}

void Writer::Node(const Expr& expr, const BinaryNode& node) {
    if (IsComparison(node.Op)) {
        Comparison(node);
        return;
    }
    if (node.Op == BinaryOp::And || node.Op == BinaryOp::Or) {
        Parts(SymbolOf(node.Op), PartsOfChain(node.Op, expr), &Writer::ConditionOperand);
        return;
    }
    if (node.Op == BinaryOp::Concatenate) {
        Parts(SymbolOf(node.Op), PartsOfChain(node.Op, expr), &Writer::JoinPart);
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
    if (node.Op == BinaryOp::Add && IsText(expr)) {
        Parts(SymbolOf(BinaryOp::Concatenate), PartsOfChain(node.Op, expr), &Writer::Operand);
        return;
    }
    Arithmetic(node);
}

void Writer::Arithmetic(const BinaryNode& node) {
    if (!IsSum(node.Op)) {
        ArithmeticOperand(*node.Left);
        sql_ += SymbolOf(node.Op);
        ArithmeticOperand(*node.Right);
        return;
    }
    // What has grown beyond 64 bits stays so whatever is added, and is found in the end; two such may undo
    // each other.
    IsSumOfNumbers(*node.Left) ? Value(*node.Left) : Operand(*node.Left);
    sql_ += SymbolOf(node.Op);
    IsPlain(*node.Left) ? Operand(*node.Right) : ArithmeticOperand(*node.Right);
}

void Writer::Comparison(const BinaryNode& node) {
    Operand(*node.Left);
    if (ComparesTexts(*node.Left, *node.Right)) sql_ += Collated(names::CaseBlind);
    sql_ += SymbolOf(node.Op);
    Operand(*node.Right);
}

void Writer::Parts(std::string_view symbol, const std::vector<const Expr*>& parts,
                   void (Writer::*write)(const Expr&)) {
    // In groups, where it is long: the engine counts how deep a condition is, in a select behind In twice.
    constexpr std::size_t Group = 64;
    const bool grouped = parts.size() > Group;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) sql_ += symbol;
        if (grouped && i % Group == 0) sql_ += "(";
        (this->*write)(*parts[i]);
        if (grouped && (i % Group == Group - 1 || i + 1 == parts.size())) sql_ += ")";
    }
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

void Writer::Branch(const Expr& value, Kind kind) {
    const bool converts = kind == Kind::Text && !IsText(value) && !IsNullConstant(value);
    converts ? Text(names::Text, value) : Value(value);
}

void Writer::Case(const Expr& expr, const CallNode& node) {
    // IIf inside IIf becomes one CASE of many branches: nested ones would soon be too deep for the engine.
    sql_ += "CASE";
    const Expr* rest = &expr;
    for (const CallNode* call = &node; call != nullptr; call = AsIIf(*rest)) {
        // An IIf of numbers beside a text is a value that is told as a text as a whole.
        if (IsText(expr) && !IsText(*rest)) break;
        const bool inverted = AsIIf(*call->Arguments[1]) != nullptr && AsIIf(*call->Arguments[2]) == nullptr;
        sql_ += " WHEN ";
        if (inverted) {
            sql_ += "(";
            Condition(*call->Arguments[0]);
            sql_ += ") IS NOT TRUE";
        } else {
            Condition(*call->Arguments[0]);
        }
        sql_ += " THEN ";
        Branch(*call->Arguments[inverted ? 2 : 1], expr.Type);
        rest = call->Arguments[inverted ? 1 : 2].get();
    }
    sql_ += " ELSE ";
    Branch(*rest, expr.Type);
    sql_ += " END";
}

void Writer::Node(const Expr& expr, const CallNode& node) {
    if (IsAggregate(node.Is)) {
        Aggregate(node);
        return;
    }
    const Expr& first = *node.Arguments.front();
    switch (node.Is) {
        case Function::IIf:
            Case(expr, node);
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
            sql_ += ", " + std::to_string(static_cast<int>(first.Type)) + ")";
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
        const bool adds = node.Is == Function::Sum || node.Is == Function::Avg;
        if (adds && MayOverflow(argument)) {
            ArithmeticOperand(argument);
        } else {
            ordersTexts ? Operand(argument) : Value(argument);
        }
        if (ordersTexts) sql_ += Collated(names::German);
    }
    sql_ += ")";
}

}  // namespace FX_Algen::store::dialect
