#include <algorithm>
#include <utility>

#include "FX_Algen/Error.h"
#include "store/dialect/Analysis.h"
#include "store/dialect/Names.h"
#include "store/dialect/Parts.h"

namespace FX_Algen::store::dialect {

namespace {

/// What the engine takes in one FROM.
constexpr std::size_t MostSources = 64;

bool HoldsSelect(const Expr& expr) {
    const auto* in = std::get_if<InNode>(&expr.Node);
    if (in != nullptr && in->Select) return true;
    bool holds = false;
    ForEachPart(expr, [&](const Expr& part) { holds = holds || HoldsSelect(part); });
    return holds;
}

void MarkInsideOuter(FromNode& from) {
    if (auto* table = std::get_if<TableRef>(&from.Node)) {
        table->InsideOuter = true;
        return;
    }
    auto& join = std::get<JoinNode>(from.Node);
    MarkInsideOuter(*join.Left);
    MarkInsideOuter(*join.Right);
}

}  // namespace

void Analysis::Statement(StatementTree& tree) {
    if (auto* select = std::get_if<SelectPtr>(&tree)) {
        Select(**select, nullptr);
    } else if (auto* insert = std::get_if<InsertTree>(&tree)) {
        Action(*insert);
    } else if (auto* update = std::get_if<UpdateTree>(&tree)) {
        Action(*update);
    } else {
        Action(std::get<DeleteTree>(tree));
    }
}

const TableInfo& Analysis::FindTable(const Catalogue& catalogue, const std::string& name,
                                     std::size_t offset) const {
    const TableInfo* table = catalogue.FindTable(name);
    if (table == nullptr) Fail(ErrorNumber::UnknownTable, offset, "There is no table or view " + name);
    return *table;
}

// FROM

void Analysis::Sources(FromNode& from, std::vector<TableRef*>& sources, const Scope* outer) {
    if (auto* table = std::get_if<TableRef>(&from.Node)) {
        Table(*table, sources);
    } else {
        Join(std::get<JoinNode>(from.Node), sources, outer);
    }
    const auto byPlace = [](const TableRef* a, const TableRef* b) { return a->Offset < b->Offset; };
    std::sort(sources.begin(), sources.end(), byPlace);
}

void Analysis::Table(TableRef& table, std::vector<TableRef*>& sources) {
    table.Table = &FindTable(*catalogue_, table.Name, table.Offset);
    if (!table.HasAlias) table.Label = table.Table->Name;
    const bool twice = std::any_of(sources.begin(), sources.end(), [&](const TableRef* other) {
        return SameName(other->Label, table.Label);
    });
    if (twice)
        Fail(ErrorNumber::SyntaxError, table.Offset, "Two tables in FROM bear the name " + table.Label);
    if (sources.size() == MostSources)
        Fail(ErrorNumber::SyntaxError, table.Offset, "FROM names too many tables");
    sources.push_back(&table);
}

void Analysis::Join(JoinNode& join, std::vector<TableRef*>& sources, const Scope* outer) {
    std::vector<TableRef*> own;
    Sources(*join.Left, own, outer);
    std::vector<TableRef*> right;
    Sources(*join.Right, right, outer);
    for (TableRef* table : right) Table(*table, own);
    if (join.On) {
        Scope scope;
        scope.Sources = &own;
        scope.Outer = outer;
        Condition(*join.On, scope);
    }
    if (join.Outer && std::holds_alternative<JoinNode>(join.Right->Node)) MarkInsideOuter(*join.Right);
    for (TableRef* table : own) Table(*table, sources);
}

// SELECT

void Analysis::Select(SelectTree& select, const Scope* outer) {
    Sources(*select.From, select.Sources, outer);
    Scope plain;
    plain.Sources = &select.Sources;
    plain.Outer = outer;
    Scope aggregating = plain;
    bool aggregate = false;
    aggregating.Aggregate = &aggregate;

    ExpandStars(select);
    CheckAliases(select);
    for (SelectItem& item : select.Items) Value(*item.Value, aggregating);
    if (select.Where) Condition(*select.Where, plain);
    for (const ExprPtr& group : select.GroupBy) Value(*group, plain);
    if (select.Having) Condition(*select.Having, aggregating);
    Order(select, aggregating);
    if (select.Having && select.GroupBy.empty() && !aggregate) {
        Fail(ErrorNumber::SyntaxError, select.Having->Offset,
             "HAVING needs groups or a function over all rows");
    }
    select.Grouped = aggregate || select.Having || !select.GroupBy.empty();
    if (select.Grouped) Grouping(select);
}

void Analysis::ExpandStars(SelectTree& select) const {
    std::vector<SelectItem> items;
    for (SelectItem& item : select.Items) {
        if (!item.StarQualifier) {
            items.push_back(std::move(item));
            continue;
        }
        bool found = false;
        for (const TableRef* source : select.Sources) {
            if (!item.StarQualifier->empty() && !SameName(source->Label, *item.StarQualifier)) continue;
            AddColumns(*source, item.Offset, items);
            found = true;
        }
        if (!found) Fail(ErrorNumber::UnknownName, item.Offset, "No table in FROM bears this name");
    }
    select.Items = std::move(items);
}

void Analysis::AddColumns(const TableRef& source, std::size_t offset, std::vector<SelectItem>& items) const {
    for (const ColumnInfo& column : source.Table->Columns) {
        SelectItem item;
        item.Offset = offset;
        item.Value = MakeExpr(offset, 0, ColumnNode{source.Label, column.Name, &source, &column});
        items.push_back(std::move(item));
    }
}

void Analysis::CheckAliases(const SelectTree& select) const {
    std::set<std::string> taken;
    for (const SelectItem& item : select.Items) {
        if (!item.Alias || taken.insert(Fold(*item.Alias)).second) continue;
        Fail(ErrorNumber::SyntaxError, item.Offset, "Two columns of the list bear the name " + *item.Alias);
    }
}

void Analysis::Order(SelectTree& select, const Scope& scope) {
    for (OrderItem& order : select.OrderBy) {
        if (OrderByItem(order, select)) continue;
        Value(*order.Value, scope);
        if (select.Distinct) CheckOrderOfDistinct(*order.Value, select);
    }
}

void Analysis::CheckOrderOfDistinct(Expr& term, SelectTree& select) {
    // Which of the rows that became one would give the place is left open.
    if (std::holds_alternative<ConstantNode>(term.Node)) return;
    const auto item = std::find_if(select.Items.begin(), select.Items.end(),
                                   [&](const SelectItem& one) { return SameExpr(*one.Value, term); });
    if (item == select.Items.end()) {
        Fail(ErrorNumber::SyntaxError, term.Offset,
             "With DISTINCT, ORDER BY takes columns and expressions of the list alone");
    }
    // Whether the two are the same depends on the values of the constants in them.
    PinAll(*item->Value);
    PinAll(term);
}

bool Analysis::OrderByItem(OrderItem& order, const SelectTree& select) {
    if (auto* literal = std::get_if<LiteralNode>(&order.Value->Node)) {
        const store::Value position = LiteralValue(literal->Is);
        const bool valid = position.kind() == Kind::I4 && position.I4() >= 1 &&
                           static_cast<std::size_t>(position.I4()) <= select.Items.size();
        if (!valid)
            Fail(ErrorNumber::SyntaxError, order.Value->Offset,
                 "ORDER BY: there is no column of this number");
        Pin(*literal);
        order.Item = static_cast<std::size_t>(position.I4()) - 1;
        return true;
    }
    const auto* name = std::get_if<ColumnNode>(&order.Value->Node);
    if (name == nullptr || !name->Qualifier.empty()) return false;
    const auto named = std::find_if(select.Items.begin(), select.Items.end(), [&](const SelectItem& item) {
        return item.Alias && SameName(*item.Alias, name->Name);
    });
    if (named == select.Items.end()) return false;
    order.Item = static_cast<std::size_t>(named - select.Items.begin());
    return true;
}

void Analysis::Grouping(SelectTree& select) {
    for (const ExprPtr& group : select.GroupBy) {
        const bool constant = std::holds_alternative<LiteralNode>(group->Node) ||
                              std::holds_alternative<ConstantNode>(group->Node);
        if (constant)
            Fail(ErrorNumber::SyntaxError, group->Offset, "GROUP BY takes columns and expressions over them");
        // Whether an item is one of the groups depends on the values of the constants in it.
        PinAll(*group);
    }
    for (SelectItem& item : select.Items) CheckGrouped(*item.Value, select);
    if (select.Having) CheckGrouped(*select.Having, select);
    for (OrderItem& order : select.OrderBy) {
        if (!order.Item) CheckGrouped(*order.Value, select);
    }
}

void Analysis::CheckGrouped(Expr& expr, SelectTree& select) {
    if (IsAggregateCall(expr)) return;
    const bool isGroup = std::any_of(select.GroupBy.begin(), select.GroupBy.end(),
                                     [&](const ExprPtr& group) { return SameExpr(*group, expr); });
    if (isGroup) {
        PinAll(expr);
        return;
    }
    if (const auto* column = std::get_if<ColumnNode>(&expr.Node)) {
        const bool own =
            std::find(select.Sources.begin(), select.Sources.end(), column->Source) != select.Sources.end();
        if (!own) return;
        Fail(ErrorNumber::SyntaxError, expr.Offset,
             "The column " + column->Name +
                 " is neither in GROUP BY nor inside a function over the rows of a group");
    }
    ForEachPart(expr, [&](Expr& part) { CheckGrouped(part, select); });
}

// INSERT, UPDATE, DELETE

void Analysis::CheckChangeable(const TableInfo& table, std::size_t offset) const {
    if (table.IsView) Fail(ErrorNumber::SyntaxError, offset, "The view " + table.Name + " cannot be changed");
}

void Analysis::InsertTarget(InsertTree& insert) {
    const Catalogue* catalogue = catalogue_;
    if (insert.Target.Path) {
        if (external_ == nullptr) {
            Fail(ErrorNumber::SyntaxError, insert.Target.PathOffset, "No other database can be reached here");
        }
        pins_.insert(insert.Target.Path->Index);
        const External target = external_->Attach(LiteralValue(insert.Target.Path->Is).Text());
        catalogue = target.Tables;
        insert.Target.SchemaName = target.SchemaName;
    }
    insert.Target.Table = &FindTable(*catalogue, insert.Target.Name, insert.Target.Offset);
    CheckChangeable(*insert.Target.Table, insert.Target.Offset);
}

void Analysis::InsertColumns(InsertTree& insert) {
    const TableInfo& table = *insert.Target.Table;
    const auto add = [&](std::string_view name, std::size_t offset) {
        const ColumnInfo* column = table.Find(name);
        if (column == nullptr) {
            Fail(ErrorNumber::UnknownName, offset,
                 "The table " + table.Name + " has no column " + std::string(name));
        }
        const auto& known = insert.TargetColumns;
        if (std::find(known.begin(), known.end(), column) != known.end()) {
            Fail(ErrorNumber::SyntaxError, offset, "The column " + column->Name + " is named twice");
        }
        insert.TargetColumns.push_back(column);
    };
    for (const NamedColumn& column : insert.Columns) add(column.Name, column.Offset);
    if (!insert.Columns.empty()) return;
    // Without a list, values go by position, the columns of a select by their names.
    if (!insert.Select) {
        for (const ColumnInfo& column : table.Columns) insert.TargetColumns.push_back(&column);
        return;
    }
    for (const ResultColumn& column : ResultColumns(*insert.Select)) add(column.Name, insert.Select->Offset);
}

void Analysis::Action(InsertTree& insert) {
    InsertTarget(insert);
    if (insert.Select) Select(*insert.Select, nullptr);
    const Scope nothing;
    for (const ExprPtr& value : insert.Values) Value(*value, nothing);
    InsertColumns(insert);
    const std::size_t given = insert.Select ? insert.Select->Items.size() : insert.Values.size();
    if (given != insert.TargetColumns.size()) {
        Fail(ErrorNumber::SyntaxError, insert.Target.Offset,
             std::to_string(insert.TargetColumns.size()) + " columns, but " + std::to_string(given) +
                 " values");
    }
    CheckKeysGiven(insert);
}

/// The engine numbers a lone integer key by itself where it is left out, as if it were a counter.
void Analysis::CheckKeysGiven(const InsertTree& insert) const {
    const ColumnInfo* key = LoneKey(*insert.Target.Table);
    if (key == nullptr) return;
    const auto& columns = insert.TargetColumns;
    const auto at = std::find(columns.begin(), columns.end(), key);
    const auto position = static_cast<std::size_t>(at - columns.begin());
    const auto isNull = [&] {
        const Expr& value = insert.Select ? *insert.Select->Items[position].Value : *insert.Values[position];
        return IsNullConstant(value);
    };
    if (at == columns.end() || isNull())
        Fail(ErrorNumber::InvalidUseOfNull, insert.Target.Offset,
             "Invalid use of Null: " + insert.Target.Table->Name + "." + key->Name + " needs a value");
}

bool Analysis::OnlyFrom(const Expr& expr, const TableRef& source) const {
    if (HoldsSelect(expr)) return false;
    if (const auto* column = std::get_if<ColumnNode>(&expr.Node)) return column->Source == &source;
    bool only = true;
    ForEachPart(expr, [&](const Expr& part) { only = only && OnlyFrom(part, source); });
    return only;
}

void Analysis::Action(UpdateTree& update) {
    Sources(*update.From, update.Sources, nullptr);
    Scope scope;
    scope.Sources = &update.Sources;
    for (Assignment& assignment : update.Assignments) {
        Value(*assignment.Column, scope);
        const TableRef* target = std::get<ColumnNode>(assignment.Column->Node).Source;
        if (update.Target == nullptr) update.Target = target;
        if (update.Target != target) {
            Fail(ErrorNumber::SyntaxError, assignment.Column->Offset, "One UPDATE changes one table");
        }
        Value(*assignment.Value, scope);
    }
    CheckChangeable(*update.Target->Table, update.Target->Offset);
    if (update.Where) Condition(*update.Where, scope);
    for (const Assignment& assignment : update.Assignments) {
        if (!OnlyFrom(*assignment.Value, *update.Target)) update.ValuesFromOthers = true;
    }
}

void Analysis::Action(DeleteTree& tree) {
    Sources(*tree.From, tree.Sources, nullptr);
    Scope scope;
    scope.Sources = &tree.Sources;
    if (tree.Where) Condition(*tree.Where, scope);
    if (!tree.Qualifier && tree.Sources.size() > 1) {
        Fail(ErrorNumber::SyntaxError, tree.Offset,
             "DELETE over several tables needs the table: DELETE table.* FROM");
    }
    for (const TableRef* source : tree.Sources) {
        if (!tree.Qualifier || SameName(source->Label, *tree.Qualifier)) tree.Target = source;
    }
    if (tree.Target == nullptr) {
        Fail(ErrorNumber::UnknownName, tree.Offset, "No table in FROM bears the name " + *tree.Qualifier);
    }
    CheckChangeable(*tree.Target->Table, tree.Target->Offset);
}

}  // namespace FX_Algen::store::dialect
