#include "store/load/TableFile.h"

#include <algorithm>

#include "store/load/Problems.h"
#include "store/load/Ranges.h"

namespace FX_Algen::store::load {
namespace {

std::string_view TrimmedName(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string EncodingFault(std::string_view text, std::size_t at) {
    if (text[at] == '\0') return "a byte 0 stands in the field";
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(text[at]);
    return std::string("byte ") + digits[byte >> 4U] + digits[byte & 0xFU] + " at position " +
           std::to_string(at + 1) + " of the field is not UTF-8";
}

bool LooksLikeUtf16(std::string_view text) {
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

/// Line ends of old programs: the whole file would be its own header.
bool HasCarriageReturnsOnly(std::string_view text) {
    const auto at = text.find('\r');
    return at != std::string_view::npos && at + 1 < text.size() && text.find('\n') == std::string_view::npos;
}

}  // namespace

TableFile::TableFile(LoadText file, const TargetTable& table, std::vector<LoadProblem>& problems)
    : file_(Printable(file.Name)), text_(WithoutMark(file.Text)), table_(&table) {
    const bool wide = LooksLikeUtf16(text_);
    if (wide || HasCarriageReturnsOnly(text_)) {
        problems.push_back(
            {file_, 0, "",
             wide ? "the file is UTF-16, not UTF-8" : "the lines end with CR alone; LF or CR LF is needed"});
        usable_ = false;
        text_ = {};
        return;
    }
    delimiter_ = Delimiter(text_);
    ReadHeader(problems);
}

std::optional<std::size_t> TableFile::PositionOf(std::size_t tableColumn) const {
    const auto at = std::find(columns_.begin(), columns_.end(), tableColumn);
    if (at == columns_.end()) return std::nullopt;
    return static_cast<std::size_t>(at - columns_.begin());
}

void TableFile::ReadName(const CsvField& field, std::vector<LoadProblem>& problems) {
    const auto refuse = [&](std::string reason) {
        const bool readable = !FirstBadByte(field.Text);
        problems.push_back({file_, field.Line, readable ? Printable(TrimmedName(field.Text)) : "", reason});
        fields_.emplace_back();
    };
    if (field.Fault != nullptr) return refuse(field.Fault);
    if (const auto bad = FirstBadByte(field.Text)) return refuse(EncodingFault(field.Text, *bad));
    const std::string_view name = TrimmedName(field.Text);
    if (name.empty())
        return refuse("column " + std::to_string(fields_.size() + 1) + " of the header has no name");
    const std::size_t column = table_->Find(name);
    if (column == table_->Columns.size()) return refuse("table " + table_->Name + " has no such column");
    if (PositionOf(column)) return refuse("the header names the column twice");
    fields_.emplace_back(columns_.size());
    columns_.push_back(column);
}

void TableFile::ReadHeader(std::vector<LoadProblem>& problems) {
    CsvReader reader(text_, delimiter_);
    std::vector<CsvField> header;
    std::deque<std::string> buffers;
    if (!reader.Next(header, buffers)) {
        problems.push_back({file_, 0, "", "the file has no header line"});
        usable_ = false;
        return;
    }
    for (const auto& field : header) ReadName(field, problems);
    for (std::size_t i = 0; i < table_->Columns.size(); ++i) {
        const TargetColumn& column = table_->Columns[i];
        if (!column.Required || column.HasDefault || PositionOf(i)) continue;
        problems.push_back({file_, header.front().Line, column.Name,
                            column.NotNull ? "the header lacks this column of the key"
                                           : "the header lacks this column: nothing would lead to the rows"});
        if (column.NotNull) keyed_ = false;
    }
    if (columns_.empty()) usable_ = false;
}

TableFile::Rows::Rows(const TableFile& file)
    : file_(file),
      reader_(file.text_, file.delimiter_),
      encodingFaults_(FirstBadByte(file.text_).has_value()),
      low_(file.PositionOf(file.table_->Find("EQRMin"))),
      high_(file.PositionOf(file.table_->Find("EQRMax"))) {
    std::deque<std::string> buffers;
    reader_.Next(fields_, buffers);  // the header
}

void TableFile::Rows::Add(Batch& batch, std::int64_t line, std::string column, std::string reason) const {
    batch.Problems.push_back({file_.file_, line, std::move(column), std::move(reason)});
}

void TableFile::Rows::Read(Batch& batch) {
    const std::int64_t line = fields_.front().Line;
    const std::size_t wanted = file_.fields_.size();
    if (fields_.size() != wanted)
        Add(batch, line, "",
            "the line has " + std::to_string(fields_.size()) + (fields_.size() == 1 ? " field" : " fields") +
                ", the header " + std::to_string(wanted));

    const std::size_t first = batch.Cells.size();
    batch.Cells.resize(first + file_.columns_.size());
    bool keyed = file_.keyed_;
    for (std::size_t i = 0; i < wanted; ++i) {
        if (!file_.fields_[i]) continue;
        const std::size_t position = *file_.fields_[i];
        const TargetColumn& column = file_.table_->Columns[file_.columns_[position]];
        const CsvField missing{{}, false, line, nullptr};
        const CsvField& field = i < fields_.size() ? fields_[i] : missing;
        Cell& cell = batch.Cells[first + position];
        std::string reason = ReadCell(field, column, cell, batch);
        const bool faulty = !reason.empty();
        const bool empty = cell.Is == Cell::Tag::Null;
        if (!faulty && column.Required && empty && i < fields_.size())
            reason = column.NotNull ? "the key may not be empty"
                                    : "the reference may not be empty: nothing would lead to the row";
        if (!reason.empty()) Add(batch, field.Line, column.Name, std::move(reason));
        // A counter must not give a number to a row whose own number cannot be read.
        if ((column.NotNull && empty) || (column.IsKey && (faulty || i >= fields_.size()))) keyed = false;
    }
    CheckBounds(batch, batch.Cells.data() + first, line);
    batch.Lines.push_back(line);
    batch.Writable.push_back(keyed);
}

std::string TableFile::Rows::ReadCell(const CsvField& field, const TargetColumn& column, Cell& cell,
                                      Batch& batch) const {
    if (const auto bad = encodingFaults_ ? FirstBadByte(field.Text) : std::nullopt)
        return EncodingFault(field.Text, *bad);
    const Conversion conversion{file_.delimiter_ == ';'};
    std::string reason = conversion.Convert(field, column, cell, batch.Buffers);
    return reason.empty() ? RangeFault(cell, column) : reason;
}

/// A class whose lower bound lies above its upper one takes no ratio at all.
void TableFile::Rows::CheckBounds(Batch& batch, const Cell* row, std::int64_t line) const {
    if (!low_ || !high_) return;
    const Cell& low = row[*low_];
    const Cell& high = row[*high_];
    if (low.Is == Cell::Tag::Real && high.Is == Cell::Tag::Real && low.Real > high.Real)
        Add(batch, line, "EQRMin",
            "the lower bound " + low.AsText() + " is above the upper bound " + high.AsText());
}

bool TableFile::Rows::Next(Batch& batch, std::size_t most) {
    batch.Cells.clear();
    batch.Lines.clear();
    batch.Writable.clear();
    batch.Problems.clear();
    batch.Buffers.clear();
    batch.Cells.reserve(most * file_.columns_.size());
    std::size_t rows = 0;
    while (rows < most && reader_.Next(fields_, batch.Buffers)) {
        Read(batch);
        ++rows;
    }
    return rows > 0;
}

}  // namespace FX_Algen::store::load
