#include "store/dialect/Translate.h"

#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Analysis.h"
#include "store/dialect/Lexer.h"
#include "store/dialect/Parser.h"
#include "store/dialect/Writer.h"

namespace FX_Algen::store::dialect {

namespace {

void DescribeSelect(const SelectTree& select, Translation& translation) {
    translation.Is = Translation::Verb::Select;
    translation.Columns = ResultColumns(select);
    translation.RowIds = Writer::RowIds(select);
    translation.IsJoin = select.Sources.size() > 1;
}

void DescribeInsert(const InsertTree& insert, Translation& translation) {
    translation.Is = Translation::Verb::Insert;
    translation.Target = insert.Target.Table->Name;
    if (insert.Target.Path) translation.ExternalPath = LiteralValue(insert.Target.Path->Is).Text();
}

void Describe(const StatementTree& tree, Translation& translation) {
    if (const auto* select = std::get_if<SelectPtr>(&tree)) {
        DescribeSelect(**select, translation);
    } else if (const auto* insert = std::get_if<InsertTree>(&tree)) {
        DescribeInsert(*insert, translation);
    } else if (const auto* update = std::get_if<UpdateTree>(&tree)) {
        translation.Is = Translation::Verb::Update;
        translation.Target = update->Target->Table->Name;
    } else {
        translation.Is = Translation::Verb::Delete;
        translation.Target = std::get<DeleteTree>(tree).Target->Table->Name;
    }
}

Value BoundValue(const Binding& binding, const Shape& shape) {
    Value value = LiteralValue(shape.Literals[binding.LiteralIndex]);
    if (!binding.Negate) return value;
    return value.kind() == Kind::I4 ? Value(-value.I4()) : Value(-value.R8());
}

}  // namespace

Translation Translate(std::string_view statement, const Shape& shape, const Catalogue& catalogue,
                      ExternalSource* external) {
    StatementTree tree = ParseStatement(statement, shape);
    Analysis analysis(statement, &catalogue, external);
    analysis.Statement(tree);

    Translation translation;
    Describe(tree, translation);
    Writer writer(statement);
    writer.Statement(tree);
    translation.Sql = writer.TakeSql();
    translation.Bindings = writer.TakeBindings();
    for (const std::size_t index : analysis.Pins()) {
        translation.Pins.push_back({index, std::string(shape.Literals[index].Raw)});
    }
    return translation;
}

std::optional<std::string> TableSource(std::string_view source, const Catalogue& catalogue) {
    std::vector<Token> tokens;
    try {
        tokens = Tokens(source);
    } catch (const Error&) {
        return std::nullopt;  // no name; its failure is told where it is read as a statement
    }
    const bool closed = tokens.size() == 3 && tokens[1].Text == ";" && tokens[1].Is == Token::Type::Symbol;
    if (tokens.size() != 2 && !closed) return std::nullopt;
    if (tokens.front().Is != Token::Type::Name) return std::nullopt;
    const TableInfo* table = catalogue.FindTable(tokens.front().Text);
    if (table == nullptr) return std::nullopt;
    return "SELECT * FROM [" + table->Name + "]";
}

bool StartsWithWord(std::string_view text) {
    try {
        return Tokens(text).front().Is == Token::Type::Word;
    } catch (const Error&) {
        return false;
    }
}

Criterion TranslateCriterion(std::string_view criterion, const std::vector<ResultColumn>& columns) {
    Shape shape;
    ScanShape(criterion, shape);
    const ExprPtr condition = ParseCriterion(criterion, shape);
    Analysis analysis(criterion, nullptr, nullptr);
    Criterion translated;
    translated.ColumnsUsed = analysis.Criterion(*condition, columns);
    Writer writer(criterion, translated.ColumnsUsed.size());
    writer.Criterion(*condition);
    translated.Sql = writer.TakeSql();
    for (const Binding& binding : writer.TakeBindings()) {
        if (binding.IsPattern) translated.Patterns.push_back(translated.Literals.size());
        translated.Literals.push_back(BoundValue(binding, shape));
    }
    return translated;
}

}  // namespace FX_Algen::store::dialect
