#include "store/dialect/Joins.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "store/dialect/Parts.h"

namespace FX_Algen::store::dialect {

namespace {

using Tables = std::set<const TableRef*>;

void CollectTables(const FromNode& from, Tables& tables) {
    if (const auto* table = std::get_if<TableRef>(&from.Node)) {
        tables.insert(table);
        return;
    }
    const auto& join = std::get<JoinNode>(from.Node);
    CollectTables(*join.Left, tables);
    CollectTables(*join.Right, tables);
}

bool HoldsSelect(const Expr& expr) {
    const auto* in = std::get_if<InNode>(&expr.Node);
    bool holds = in != nullptr && in->Select;
    ForEachPart(expr, [&](const Expr& part) { holds = holds || HoldsSelect(part); });
    return holds;
}

void CollectTables(const Expr& expr, Tables& tables) {
    if (const auto* column = std::get_if<ColumnNode>(&expr.Node)) tables.insert(column->Source);
    ForEachPart(expr, [&](const Expr& part) { CollectTables(part, tables); });
}

/// Position of the last member that a condition needs. A select inside it may name any of them.
std::size_t LastNeeded(const Expr& condition, const std::vector<JoinLink>& links) {
    if (HoldsSelect(condition)) return links.size() - 1;
    Tables needed;
    CollectTables(condition, needed);
    std::size_t last = 0;
    for (std::size_t i = 0; i < links.size(); ++i) {
        Tables here;
        CollectTables(*links[i].Operand, here);
        const bool needs = std::any_of(here.begin(), here.end(),
                                       [&](const TableRef* table) { return needed.count(table) > 0; });
        if (needs) last = i;
    }
    return last;
}

void AddInnerCondition(JoinChain& chain, const Expr& condition) {
    const std::size_t at = LastNeeded(condition, chain.Links);
    if (at == 0 || chain.Links[at].Outer) {
        chain.Filters.push_back(&condition);
    } else {
        chain.Links[at].Conditions.push_back(&condition);
    }
}

JoinChain Inner(const JoinNode& join) {
    JoinChain chain = Chain(*join.Left);
    JoinChain right = Chain(*join.Right);
    // A condition on what an outer join may leave empty cannot stand at that member; with the outer side
    // first it needs no place in WHERE.
    if (chain.Links.size() == 1 && right.Links.size() > 1) std::swap(chain, right);
    std::move(right.Links.begin(), right.Links.end(), std::back_inserter(chain.Links));
    std::move(right.Filters.begin(), right.Filters.end(), std::back_inserter(chain.Filters));
    if (join.On) AddInnerCondition(chain, *join.On);
    return chain;
}

JoinChain Outer(const JoinNode& join) {
    JoinChain chain = Chain(*join.Left);
    chain.Links.push_back({join.Right.get(), true, {join.On.get()}});
    return chain;
}

}  // namespace

JoinChain Chain(const FromNode& from) {
    const auto* join = std::get_if<JoinNode>(&from.Node);
    if (join == nullptr) {
        JoinChain chain;
        chain.Links.push_back({&from, false, {}});
        return chain;
    }
    return join->Outer ? Outer(*join) : Inner(*join);
}

}  // namespace FX_Algen::store::dialect
