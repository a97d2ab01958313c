#include "store/load/DumpMark.h"

#include <algorithm>

#include "store/load/TableFile.h"

namespace FX_Algen::store::load {
namespace {

TargetTable MakeTable() {
    TargetTable table;
    table.Name = "Auszug";
    TargetColumn name;
    name.Name = "Tabelle";
    name.Type = Kind::Text;
    name.IsKey = name.NotNull = name.Required = true;
    table.Columns = {name};
    return table;
}

const TargetTable& Table() {
    static const TargetTable table = MakeTable();
    return table;
}

}  // namespace

bool DumpMark::IsFile(std::string_view name) { return dialect::Fold(name) == dialect::Fold(FileName); }

std::string DumpMark::TextFor(const std::vector<std::string>& tables) {
    std::string out = "Tabelle\n";
    for (const auto& table : tables) out += table + '\n';
    return out;
}

DumpMark::DumpMark(const LoadText& file, std::vector<LoadProblem>& problems) {
    const TableFile marks(file, Table(), problems);
    if (!marks.Keyed()) return;
    TableFile::Rows rows(marks);
    for (Batch batch; rows.Next(batch, 1000);) {
        std::move(batch.Problems.begin(), batch.Problems.end(), std::back_inserter(problems));
        for (std::size_t i = 0; i < batch.Lines.size(); ++i)
            if (batch.Writable[i])
                lines_.push_back({std::string(batch.Row(i, 1)[0].Text), marks.FileName(), batch.Lines[i]});
    }
}

bool DumpMark::Names(std::string_view table) const {
    return std::any_of(lines_.begin(), lines_.end(), [wanted = dialect::Fold(table)](const Line& line) {
        return dialect::Fold(line.Table) == wanted;
    });
}

}  // namespace FX_Algen::store::load
