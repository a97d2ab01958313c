#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/Lexer.h"
#include "store/dialect/Tree.h"

namespace FX_Algen::store::dialect {

/// Recursive descent over the tokens of one statement. Expressions stand in ParseExpression.cpp,
/// statements in ParseStatement.cpp.
class Parser {
public:
    Parser(std::string_view statement, const Shape& shape);

    StatementTree Statement();
    ExprPtr Expression();
    /// Fails unless nothing follows, save one ";".
    void ExpectEnd();

private:
    // Tokens
    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    bool At(Word word) const { return Peek().Is == Token::Type::Word && Peek().Keyword == word; }
    bool At(std::string_view symbol) const {
        return Peek().Is == Token::Type::Symbol && Peek().Text == symbol;
    }
    bool Skip(Word word);
    bool Skip(std::string_view symbol);
    void Expect(Word word, std::string_view why);
    void Expect(std::string_view symbol, std::string_view why);
    Token ExpectName(std::string_view why);
    std::string NameAfterPoint();
    [[noreturn]] void Fail(std::string_view why) const;
    [[noreturn]] void Fail(std::size_t offset, std::string_view why) const;

    // Expressions
    ExprPtr Or();
    ExprPtr And();
    ExprPtr Not();
    ExprPtr Comparison();
    ExprPtr Concatenation();
    ExprPtr Sum();
    ExprPtr Product();
    ExprPtr Sign();
    ExprPtr Primary();
    ExprPtr LiteralOperand();
    ExprPtr NameOrCall();
    ExprPtr Call();
    ExprPtr Tail(ExprPtr operand, bool negated);
    ExprPtr InTail(ExprPtr operand, bool negated);
    ExprPtr BetweenTail(ExprPtr operand, bool negated);
    ExprPtr LikeTail(ExprPtr operand, bool negated);
    ExprPtr IsTail(ExprPtr operand);
    ExprPtr Binary(BinaryOp op, std::size_t offset, ExprPtr left, ExprPtr right);
    ExprPtr Checked(ExprPtr expr) const;

    // Statements
    SelectPtr Select();
    void Quantifier(SelectTree& select);
    SelectItem Item();
    std::string AliasName();
    FromPtr From();
    FromPtr Joined();
    FromPtr JoinOperand();
    FromPtr Table();
    std::vector<ExprPtr> ExpressionList();
    std::vector<OrderItem> OrderList();
    InsertTree Insert();
    void InsertColumns(InsertTree& insert);
    void InsertPath(InsertTree& insert);
    UpdateTree Update();
    Assignment OneAssignment();
    DeleteTree Delete();

    class Nesting;

    std::string_view statement_;
    const Shape& shape_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    std::size_t nesting_ = 0;
};

/// Keeps the recursion of the parser within what a stack carries.
class Parser::Nesting {
public:
    explicit Nesting(Parser& parser) : parser_(parser) {
        if (parser_.nesting_ >= Most) parser_.Fail("The statement is nested too deeply");
        ++parser_.nesting_;
    }
    ~Nesting() { --parser_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    static constexpr std::size_t Most = 200;
    Parser& parser_;
};

}  // namespace FX_Algen::store::dialect
