#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Failure.h"
#include "store/dialect/Parser.h"
#include "store/dialect/ParserCore.h"

namespace FX_Algen::store::dialect {

Parser::Parser(std::string_view statement, const Shape& shape)
    : statement_(statement), shape_(shape), tokens_(Tokens(statement)) {}

const Token& Parser::Peek(std::size_t ahead) const {
    const std::size_t at = at_ + ahead;
    return at < tokens_.size() ? tokens_[at] : tokens_.back();
}

Token Parser::Take() {
    const Token token = Peek();
    if (token.Is != Token::Type::End) ++at_;
    return token;
}

bool Parser::Skip(Word word) {
    if (!At(word)) return false;
    Take();
    return true;
}

bool Parser::Skip(std::string_view symbol) {
    if (!At(symbol)) return false;
    Take();
    return true;
}

void Parser::Expect(Word word, std::string_view why) {
    if (!Skip(word)) Fail(why);
}

void Parser::Expect(std::string_view symbol, std::string_view why) {
    if (!Skip(symbol)) Fail(why);
}

Token Parser::ExpectName(std::string_view why) {
    if (Peek().Is != Token::Type::Name) Fail(why);
    return Take();
}

std::string Parser::NameAfterPoint() {
    // Behind a point no word of the language can stand, so that a column may bear one as its name.
    if (Peek().Is != Token::Type::Name && Peek().Is != Token::Type::Word)
        Fail("A name is missing behind the point");
    return std::string(Take().Text);
}

void Parser::Fail(std::string_view why) const { Fail(Peek().Offset, why); }

void Parser::Fail(std::size_t offset, std::string_view why) const {
    FailAt(ErrorNumber::SyntaxError, statement_, offset, why);
}

void Parser::ExpectEnd() {
    if (Skip(";") && Peek().Is != Token::Type::End) Fail("Only one statement may stand in a text");
    if (Peek().Is != Token::Type::End) Fail("The statement should end here");
}

StatementTree Parser::Statement() {
    if (At(Word::Select)) return Select();
    if (At(Word::Insert)) return Insert();
    if (At(Word::Update)) return Update();
    if (At(Word::Delete)) return Delete();
    if (Peek().Is == Token::Type::End) Fail("The statement is empty");
    if (Peek().Is == Token::Type::Name && Peek(1).Is == Token::Type::End) {
        FailAt(ErrorNumber::UnknownTable, statement_, Peek().Offset, "There is no table of this name");
    }
    Fail("A statement starts with SELECT, INSERT, UPDATE or DELETE");
}

SelectPtr Parser::Select() {
    auto select = std::make_unique<SelectTree>();
    select->Offset = Peek().Offset;
    Expect(Word::Select, "SELECT is missing");
    Quantifier(*select);
    do {
        select->Items.push_back(Item());
    } while (Skip(","));
    Expect(Word::From, "FROM or a comma is missing");
    select->From = From();
    if (Skip(Word::Where)) select->Where = Expression();
    if (Skip(Word::Group)) {
        Expect(Word::By, "GROUP must be followed by BY");
        select->GroupBy = ExpressionList();
    }
    if (Skip(Word::Having)) select->Having = Expression();
    if (Skip(Word::Order)) {
        Expect(Word::By, "ORDER must be followed by BY");
        select->OrderBy = OrderList();
    }
    return select;
}

void Parser::Quantifier(SelectTree& select) {
    // DISTINCTROW drops rows that come from the same source rows; over base tables there are none.
    if (Skip(Word::All) || Skip(Word::DistinctRow)) return;
    select.Distinct = Skip(Word::Distinct);
}

SelectItem Parser::Item() {
    SelectItem item;
    item.Offset = Peek().Offset;
    if (Skip("*")) {
        item.StarQualifier = std::string();
        return item;
    }
    const bool pointStar = Peek().Is == Token::Type::Name && Peek(1).Text == "." && Peek(2).Text == "*";
    if (pointStar) {
        item.StarQualifier = std::string(Take().Text);
        Take();
        Take();
        return item;
    }
    item.Value = Expression();
    if (Skip(Word::As)) {
        item.Alias = AliasName();
    } else if (Peek().Is == Token::Type::Name) {
        item.Alias = std::string(Take().Text);
    }
    return item;
}

std::string Parser::AliasName() { return std::string(ExpectName("A name is missing behind AS").Text); }

FromPtr Parser::From() {
    FromPtr left = Joined();
    while (Skip(",")) {
        JoinNode join;
        join.Left = std::move(left);
        join.Right = Joined();
        left = std::make_unique<FromNode>(FromNode{std::move(join)});
    }
    return left;
}

FromPtr Parser::Joined() {
    const Nesting nesting(*this);
    FromPtr left = JoinOperand();
    while (At(Word::Inner) || At(Word::Left) || At(Word::Right)) {
        const Word kind = Take().Keyword;
        if (kind != Word::Inner) Skip(Word::Outer);
        Expect(Word::Join, "JOIN is missing");
        JoinNode join;
        join.Outer = kind != Word::Inner;
        join.Left = std::move(left);
        join.Right = JoinOperand();
        Expect(Word::On, "ON is missing behind a JOIN");
        join.On = Expression();
        if (kind == Word::Right) std::swap(join.Left, join.Right);
        left = std::make_unique<FromNode>(FromNode{std::move(join)});
    }
    if (At(Word::Join)) Fail("JOIN needs INNER, LEFT or RIGHT before it");
    return left;
}

FromPtr Parser::JoinOperand() {
    if (!Skip("(")) return Table();
    FromPtr inner = Joined();
    Expect(")", "A closing bracket is missing in FROM");
    return inner;
}

FromPtr Parser::Table() {
    TableRef table;
    const Token name = ExpectName("The name of a table is missing");
    table.Offset = name.Offset;
    table.Name = std::string(name.Text);
    if (Skip(Word::As)) {
        table.Label = AliasName();
    } else if (Peek().Is == Token::Type::Name) {
        table.Label = std::string(Take().Text);
    }
    table.HasAlias = !table.Label.empty();
    return std::make_unique<FromNode>(FromNode{std::move(table)});
}

std::vector<OrderItem> Parser::OrderList() {
    std::vector<OrderItem> list;
    do {
        OrderItem item;
        item.Value = Expression();
        item.Descending = Skip(Word::Desc);
        if (!item.Descending) Skip(Word::Asc);
        list.push_back(std::move(item));
    } while (Skip(","));
    return list;
}

InsertTree Parser::Insert() {
    InsertTree insert;
    Take();
    Expect(Word::Into, "INSERT must be followed by INTO");
    const Token name = ExpectName("The name of a table is missing");
    insert.Target.Offset = name.Offset;
    insert.Target.Name = std::string(name.Text);
    // The path may stand before or behind the list of columns.
    InsertPath(insert);
    if (At("(")) InsertColumns(insert);
    if (!insert.Target.Path) InsertPath(insert);
    if (At(Word::Select)) {
        insert.Select = Select();
        return insert;
    }
    Expect(Word::Values, "VALUES or SELECT is missing");
    Expect("(", "VALUES must be followed by a list in brackets");
    insert.Values = ExpressionList();
    Expect(")", "The list of VALUES does not end");
    return insert;
}

void Parser::InsertPath(InsertTree& insert) {
    if (!Skip(Word::In)) return;
    const Token& token = Peek();
    const bool isText =
        token.Is == Token::Type::Literal && shape_.Literals.at(token.LiteralIndex).Is == Literal::Type::Text;
    if (!isText) Fail("IN must be followed by the path of a database in quotes");
    insert.Target.PathOffset = token.Offset;
    insert.Target.Path = LiteralNode{token.LiteralIndex, shape_.Literals[token.LiteralIndex], true};
    Take();
}

void Parser::InsertColumns(InsertTree& insert) {
    Expect("(", "A list of columns is missing");
    do {
        const Token name = ExpectName("The name of a column is missing");
        insert.Columns.push_back({name.Offset, std::string(name.Text)});
    } while (Skip(","));
    Expect(")", "The list of columns does not end");
}

UpdateTree Parser::Update() {
    UpdateTree update;
    Take();
    Skip(Word::DistinctRow);
    update.From = From();
    Expect(Word::Set, "SET is missing");
    do {
        update.Assignments.push_back(OneAssignment());
    } while (Skip(","));
    if (Skip(Word::Where)) update.Where = Expression();
    return update;
}

Assignment Parser::OneAssignment() {
    Assignment assignment;
    const Token name = ExpectName("The name of a column is missing");
    ColumnNode column{{}, std::string(name.Text)};
    if (Skip(".")) {
        column.Qualifier = std::move(column.Name);
        column.Name = NameAfterPoint();
    }
    assignment.Column = MakeExpr(name.Offset, 0, std::move(column));
    Expect("=", "\"=\" is missing in SET");
    assignment.Value = Expression();
    return assignment;
}

DeleteTree Parser::Delete() {
    DeleteTree tree;
    tree.Offset = Take().Offset;
    Skip(Word::DistinctRow);
    if (!Skip("*") && Peek().Is == Token::Type::Name) {
        tree.Qualifier = std::string(Take().Text);
        Expect(".", "DELETE takes *, or a table with .* behind it");
        Expect("*", "DELETE takes whole rows: * is missing");
    }
    Expect(Word::From, "FROM is missing");
    tree.From = From();
    if (Skip(Word::Where)) tree.Where = Expression();
    return tree;
}

StatementTree ParseStatement(std::string_view statement, const Shape& shape) {
    Parser parser(statement, shape);
    StatementTree tree = parser.Statement();
    parser.ExpectEnd();
    return tree;
}

}  // namespace FX_Algen::store::dialect
