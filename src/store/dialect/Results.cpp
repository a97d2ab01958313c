#include <algorithm>

#include "store/dialect/Analysis.h"
#include "store/dialect/Catalogue.h"
#include "store/dialect/Parts.h"

namespace FX_Algen::store::dialect {

namespace {

constexpr std::size_t FirstUnnamed = 1000;

ResultColumn Described(const SelectItem& item) {
    ResultColumn result;
    result.Type = item.Value->Type;
    if (const auto* column = std::get_if<ColumnNode>(&item.Value->Node)) {
        result.Name = column->Column->Name;
        result.Alias = column->Source->Label;
        result.Table = column->Source->Table->Name;
        result.Column = column->Column->Name;
    }
    if (item.Alias) result.Name = *item.Alias;
    return result;
}

/// Names that are not yet taken, without regard to case.
class FreshNames {
public:
    void Take(const std::string& name) { taken_.insert(Fold(name)); }
    bool IsTaken(const std::string& name) const { return taken_.count(Fold(name)) > 0; }
    std::string Unnamed() {
        std::string name;
        do {
            name = "Expr" + std::to_string(next_++);
        } while (IsTaken(name));
        return name;
    }

private:
    std::set<std::string> taken_;
    std::size_t next_ = FirstUnnamed;
};

std::multiset<std::string> FoldedNames(const std::vector<ResultColumn>& columns) {
    std::multiset<std::string> names;
    for (const ResultColumn& column : columns) names.insert(Fold(column.Name));
    return names;
}

}  // namespace

std::vector<ResultColumn> ResultColumns(const SelectTree& select) {
    std::vector<ResultColumn> columns;
    for (const SelectItem& item : select.Items) columns.push_back(Described(item));
    const std::multiset<std::string> names = FoldedNames(columns);
    FreshNames fresh;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        ResultColumn& column = columns[i];
        const bool repeats = names.count(Fold(column.Name)) > 1;
        // An alias stays as it is; a plain column gives way and says where it comes from.
        if (repeats && !select.Items[i].Alias && column.Column)
            column.Name = *column.Alias + "." + column.Name;
        if (column.Name.empty() || fresh.IsTaken(column.Name)) column.Name = fresh.Unnamed();
        fresh.Take(column.Name);
    }
    return columns;
}

}  // namespace FX_Algen::store::dialect
