#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cases/CaseFile.h"
#include "cases/CaseTable.h"

namespace FX_Algen::cases {

/// The lines below a name in brackets.
struct Section {
    std::string Name;
    std::size_t Line = 0;
    std::vector<cases::Line> Lines;
    bool Read = false;
};

/// The parts of a file: a title, then sections.
class Sections {
public:
    Sections(std::string file, std::string_view text);

    /// What stands behind "Case:" or "Reference:" in the first line.
    std::string Title() const { return title_; }
    bool Has(std::string_view name) const;
    /// A section that must be there; it counts as read from then on.
    const Section& Required(std::string_view name);
    Table TableOf(std::string_view name, const std::vector<std::string_view>& required,
                  const std::vector<std::string_view>& optional = {});
    /// A section that nobody read is an unknown word.
    void RequireAllRead() const;
    [[noreturn]] void Fail(std::string_view name, const std::string& reason) const;

private:
    const Section* Find(std::string_view name) const;

    std::string file_;
    std::string title_;
    std::vector<Section> sections_;
};

/// The major group of a taxon, from the word under "group".
std::int32_t GroupOf(const Row& row);

/// The ratings of a taxon; none where every cell holds "-".
std::optional<Ratings> RatingsOf(const Row& row);

/// Reads "no", "A", "B <bioregion>/<altitude step>", or several of these separated by commas.
void ReadReferenceSpecies(const Row& row, Taxon& taxon);

/// Every reference table among the sections.
ReferenceTables ReferenceTablesOf(Sections& sections);

}  // namespace FX_Algen::cases
