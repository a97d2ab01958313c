#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// A 64-bit digest of texts, the same on every machine and in every version: FNV-1a over the bytes.
///
/// Fowler, G., Noll, L. C., Vo, K.-P., Eastlake, D.: The FNV Non-Cryptographic Hash Algorithm (IETF draft).
class Digest {
public:
    void AddBytes(std::string_view bytes) noexcept;
    /// Adds a field with its length, so that no two rows run into one another.
    void AddField(const store::Value& value);
    std::string Text() const;  ///< 16 hexadecimal digits

private:
    std::uint64_t state_ = 0xcbf29ce484222325ULL;
};

/// Digest of all that the calculation of a sub-habitat reads: covers, stands, findings, and of each taxon
/// found its ratings and its major group.
std::string DigestOfInputs(store::Database& database, std::int32_t ID_TR);

/// Adds all that the assessment of a sub-habitat reads of its sample: what the calculation reads, and of each
/// taxon found whether it is determined to species level and a diatom. `taxon` is called behind each finding.
void AddAssessedSample(Digest& digest, store::Database& database, std::int32_t ID_TR,
                       const std::function<void(std::int32_t ID_ART)>& taxon);

/// Adds the rows of a statement, all fields in their order; `row` is called behind each.
void AddRows(Digest& digest, store::Database& database, const std::string& statement,
             const std::function<void(const store::Recordset&)>& row = {});

/// Digest of the current row of an open result, all fields in their order.
std::string DigestOfRow(const store::Recordset& row);

}  // namespace FX_Algen::cli
