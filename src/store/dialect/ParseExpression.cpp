#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Failure.h"
#include "store/dialect/Names.h"
#include "store/dialect/Parser.h"
#include "store/dialect/ParserCore.h"

namespace FX_Algen::store::dialect {

namespace {

/// Chains such as a AND b AND c grow a tree to one side; the engine refuses more than 1000 levels.
constexpr std::size_t DeepestTree = 900;

struct FunctionRule {
    std::string_view Name;
    Function Is;
    std::size_t Arguments;
};
constexpr std::array<FunctionRule, 9> Functions{{
    {"IIf", Function::IIf, 3},
    {"IsNull", Function::IsNull, 1},
    {"Format", Function::Format, 2},
    {"CStr", Function::CStr, 1},
    {"Sum", Function::Sum, 1},
    {"Count", Function::Count, 1},
    {"Min", Function::Min, 1},
    {"Max", Function::Max, 1},
    {"Avg", Function::Avg, 1},
}};

using NamedOperator = std::pair<std::string_view, BinaryOp>;
constexpr std::array<NamedOperator, 6> Comparisons{{
    {"=", BinaryOp::Equal},
    {"<>", BinaryOp::NotEqual},
    {"<", BinaryOp::Less},
    {"<=", BinaryOp::LessEqual},
    {">", BinaryOp::Greater},
    {">=", BinaryOp::GreaterEqual},
}};

std::optional<BinaryOp> ComparisonOf(const Token& token) {
    if (token.Is != Token::Type::Symbol) return std::nullopt;
    const auto found = std::find_if(Comparisons.begin(), Comparisons.end(),
                                    [&](const NamedOperator& op) { return op.first == token.Text; });
    if (found == Comparisons.end()) return std::nullopt;
    return found->second;
}

bool StartsTail(const Token& token) {
    if (token.Is != Token::Type::Word) return false;
    switch (token.Keyword) {
        case Word::Is:
        case Word::In:
        case Word::Between:
        case Word::Like:
            return true;
        default:
            return false;
    }
}

std::size_t DepthOf(const std::vector<ExprPtr>& parts) {
    std::size_t depth = 0;
    for (const ExprPtr& part : parts) depth = std::max(depth, part->Depth);
    return depth;
}

}  // namespace

ExprPtr Parser::Checked(ExprPtr expr) const {
    if (expr->Depth > DeepestTree) Fail(expr->Offset, "The expression has too many parts");
    return expr;
}

ExprPtr Parser::Binary(BinaryOp op, std::size_t offset, ExprPtr left, ExprPtr right) {
    const std::size_t depth = std::max(left->Depth, right->Depth);
    return Checked(MakeExpr(offset, depth, BinaryNode{op, std::move(left), std::move(right)}));
}

ExprPtr Parser::Expression() {
    const Nesting nesting(*this);
    return Or();
}

ExprPtr Parser::Or() {
    ExprPtr left = And();
    while (At(Word::Or)) {
        const std::size_t offset = Take().Offset;
        left = Binary(BinaryOp::Or, offset, std::move(left), And());
    }
    return left;
}

ExprPtr Parser::And() {
    ExprPtr left = Not();
    while (At(Word::And)) {
        const std::size_t offset = Take().Offset;
        left = Binary(BinaryOp::And, offset, std::move(left), Not());
    }
    return left;
}

ExprPtr Parser::Not() {
    if (!At(Word::Not)) return Comparison();
    const Nesting nesting(*this);
    const std::size_t offset = Take().Offset;
    ExprPtr operand = Not();
    const std::size_t depth = operand->Depth;
    return MakeExpr(offset, depth, UnaryNode{UnaryOp::Not, std::move(operand)});
}

ExprPtr Parser::Comparison() {
    ExprPtr left = Concatenation();
    while (true) {
        if (const auto op = ComparisonOf(Peek())) {
            const std::size_t offset = Take().Offset;
            left = Binary(*op, offset, std::move(left), Concatenation());
        } else if (StartsTail(Peek())) {
            left = Tail(std::move(left), false);
        } else if (At(Word::Not) && StartsTail(Peek(1)) && Peek(1).Keyword != Word::Is) {
            Take();
            left = Tail(std::move(left), true);
        } else {
            return left;
        }
    }
}

ExprPtr Parser::Tail(ExprPtr operand, bool negated) {
    switch (Peek().Keyword) {
        case Word::In:
            return Checked(InTail(std::move(operand), negated));
        case Word::Between:
            return Checked(BetweenTail(std::move(operand), negated));
        case Word::Like:
            return Checked(LikeTail(std::move(operand), negated));
        default:
            return Checked(IsTail(std::move(operand)));
    }
}

ExprPtr Parser::IsTail(ExprPtr operand) {
    const std::size_t offset = Take().Offset;
    const bool negated = Skip(Word::Not);
    Expect(Word::Null, "Is must be followed by Null or Not Null");
    const std::size_t depth = operand->Depth;
    return MakeExpr(offset, depth, IsNullNode{std::move(operand), negated});
}

ExprPtr Parser::InTail(ExprPtr operand, bool negated) {
    const std::size_t offset = Take().Offset;
    Expect("(", "In must be followed by a list in brackets");
    InNode node;
    node.Negated = negated;
    std::size_t depth = operand->Depth;
    node.Operand = std::move(operand);
    if (At(Word::Select)) {
        const Nesting nesting(*this);
        node.Select = Select();
    } else {
        node.List = ExpressionList();
        depth = std::max(depth, DepthOf(node.List));
    }
    Expect(")", "The list of In does not end");
    return MakeExpr(offset, depth, std::move(node));
}

ExprPtr Parser::BetweenTail(ExprPtr operand, bool negated) {
    const std::size_t offset = Take().Offset;
    ExprPtr low = Concatenation();
    Expect(Word::And, "Between needs two bounds with And between them");
    ExprPtr high = Concatenation();
    const std::size_t depth = std::max({operand->Depth, low->Depth, high->Depth});
    return MakeExpr(offset, depth, BetweenNode{std::move(operand), std::move(low), std::move(high), negated});
}

ExprPtr Parser::LikeTail(ExprPtr operand, bool negated) {
    const std::size_t offset = Take().Offset;
    ExprPtr pattern = Concatenation();
    const std::size_t depth = std::max(operand->Depth, pattern->Depth);
    return MakeExpr(offset, depth, LikeNode{std::move(operand), std::move(pattern), negated});
}

ExprPtr Parser::Concatenation() {
    ExprPtr left = Sum();
    while (At("&")) {
        const std::size_t offset = Take().Offset;
        left = Binary(BinaryOp::Concatenate, offset, std::move(left), Sum());
    }
    return left;
}

ExprPtr Parser::Sum() {
    ExprPtr left = Product();
    while (At("+") || At("-")) {
        const Token token = Take();
        const BinaryOp op = token.Text == "+" ? BinaryOp::Add : BinaryOp::Subtract;
        left = Binary(op, token.Offset, std::move(left), Product());
    }
    return left;
}

ExprPtr Parser::Product() {
    ExprPtr left = Sign();
    while (At("*") || At("/")) {
        const Token token = Take();
        const BinaryOp op = token.Text == "*" ? BinaryOp::Multiply : BinaryOp::Divide;
        left = Binary(op, token.Offset, std::move(left), Sign());
    }
    return left;
}

ExprPtr Parser::Sign() {
    if (!At("-") && !At("+")) return Primary();
    const Nesting nesting(*this);
    const Token token = Take();
    ExprPtr operand = Sign();
    if (token.Text == "+") return operand;
    const std::size_t depth = operand->Depth;
    return MakeExpr(token.Offset, depth, UnaryNode{UnaryOp::Negate, std::move(operand)});
}

ExprPtr Parser::Primary() {
    const Token& token = Peek();
    switch (token.Is) {
        case Token::Type::Literal:
            return LiteralOperand();
        case Token::Type::Name:
            return NameOrCall();
        case Token::Type::Word: {
            const std::size_t offset = token.Offset;
            if (Skip(Word::True)) return MakeExpr(offset, 0, ConstantNode{Constant::True});
            if (Skip(Word::False)) return MakeExpr(offset, 0, ConstantNode{Constant::False});
            if (Skip(Word::Null)) return MakeExpr(offset, 0, ConstantNode{Constant::Null});
            break;
        }
        case Token::Type::Symbol:
            if (Skip("(")) {
                ExprPtr inner = Expression();
                Expect(")", "A closing bracket is missing");
                return inner;
            }
            break;
        case Token::Type::End:
            break;
    }
    Fail("An expression is missing");
}

ExprPtr Parser::LiteralOperand() {
    const Token token = Take();
    const Literal& literal = shape_.Literals.at(token.LiteralIndex);
    try {
        if (literal.Is != Literal::Type::Text) LiteralValue(literal);
    } catch (const Error& error) {
        // The same failure with its place in the statement.
        FailAt(error.Number(), statement_, token.Offset, error.Description());
    }
    return MakeExpr(token.Offset, 0, LiteralNode{token.LiteralIndex, literal});
}

ExprPtr Parser::NameOrCall() {
    if (!Peek().Bracketed && Peek(1).Is == Token::Type::Symbol && Peek(1).Text == "(") return Call();
    const Token name = Take();
    if (!Skip(".")) return MakeExpr(name.Offset, 0, ColumnNode{{}, std::string(name.Text)});
    return MakeExpr(name.Offset, 0, ColumnNode{std::string(name.Text), NameAfterPoint()});
}

ExprPtr Parser::Call() {
    const Token name = Take();
    const auto rule = std::find_if(Functions.begin(), Functions.end(), [&](const FunctionRule& known) {
        return SameName(known.Name, name.Text);
    });
    if (rule == Functions.end()) {
        Fail(name.Offset, "The function " + std::string(name.Text) + " is not part of the language");
    }
    Expect("(", "A function needs its arguments in brackets");
    CallNode call;
    call.Is = rule->Is;
    const bool star = rule->Is == Function::Count && Skip("*");
    if (!star) {
        call.Arguments = ExpressionList();
        if (call.Arguments.size() != rule->Arguments) {
            Fail(name.Offset, "The function " + std::string(rule->Name) + " takes " +
                                  std::to_string(rule->Arguments) + " argument(s)");
        }
    }
    Expect(")", "The arguments of a function do not end");
    const std::size_t depth = DepthOf(call.Arguments);
    return MakeExpr(name.Offset, depth, std::move(call));
}

std::vector<ExprPtr> Parser::ExpressionList() {
    std::vector<ExprPtr> list;
    do {
        list.push_back(Expression());
    } while (Skip(","));
    return list;
}

ExprPtr ParseCriterion(std::string_view criterion, const Shape& shape) {
    Parser parser(criterion, shape);
    ExprPtr condition = parser.Expression();
    parser.ExpectEnd();
    return condition;
}

}  // namespace FX_Algen::store::dialect
