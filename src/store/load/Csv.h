#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace FX_Algen::store::load {

/// A field of a CSV file.
struct CsvField {
    std::string_view Text;        ///< without quotes
    bool Quoted = false;          ///< tells the empty text from Null
    std::int64_t Line = 0;        ///< line on which the field begins
    const char* Fault = nullptr;  ///< what is wrong with its quotes; nullptr = nothing
};

/// Reads the rows of a CSV text one by one (RFC 4180; line ends LF or CR LF; empty lines are passed over).
///
/// Fields point into the text, or into the caller's buffers where quotes had to be undoubled.
class CsvReader {
public:
    /// `text` without a byte order mark.
    CsvReader(std::string_view text, char delimiter) : text_(text), delimiter_(delimiter) {}

    /// The fields of the next row; false at the end.
    bool Next(std::vector<CsvField>& fields, std::deque<std::string>& buffers);

    /// Bytes read.
    std::size_t Position() const noexcept { return at_; }

private:
    bool AtLineEnd() const noexcept;
    void PassLineEnd() noexcept;
    CsvField Plain();
    CsvField InQuotes(std::deque<std::string>& buffers);

    std::string_view text_;
    char delimiter_;
    std::size_t at_ = 0;
    std::int64_t line_ = 1;
};

/// The text behind a byte order mark, if there is one.
std::string_view WithoutMark(std::string_view text);

/// "," or ";" as the header line has it outside quotes; "," where it has neither.
char Delimiter(std::string_view text);

/// Position of the first byte that is not well-formed UTF-8, or that is 0; none where all is well.
std::optional<std::size_t> FirstBadByte(std::string_view text);

}  // namespace FX_Algen::store::load
