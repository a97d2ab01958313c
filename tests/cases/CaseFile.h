#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cases/CaseTable.h"

/// Case files: a sample, the reasoning of a biologist and the assessment that must come out. How they are
/// written: docs/cases.md.
///
/// Numbers of the sample stay the texts that the file holds ("12.5", or "Null"), since they go into the
/// database as they stand.
namespace FX_Algen::cases {

/// Ratings of a taxon.
struct Ratings {
    std::int32_t Lebensform = 1;
    std::string SI;
    std::string Sap_GBer;
    std::string Trophiewert;
    std::string Trophiegewicht;
    std::optional<std::string> Algenart;  ///< "Makroalge", "Mikroalge", or none
};

/// Where a reference species of type B counts.
struct Region {
    std::int32_t Bioregion = 0;
    std::int32_t Hoehenstufe = 0;
};

/// Taxa are numbered in the order of the file, from 1.
struct Taxon {
    std::string Name;
    std::int32_t ID_GRGR = 0;
    bool IstArtniveau = false;
    std::optional<Ratings> Values;  ///< none: the catalogue holds no ratings of it
    bool TypA = false;
    std::vector<Region> TypB;
};

struct Finding {
    std::size_t Site = 0;   ///< position in `Case::Sites`
    std::size_t Taxon = 0;  ///< position in `Case::Taxa`
    bool CF = false;
    std::string DG_MA;
    std::string Schalen_KA;
};

struct Share {
    std::size_t Taxon = 0;
    bool CF = false;
    std::string DG_MI;
};

struct Stand {
    std::string Name;
    std::string DG_MI_WRRL;
    std::string DG_MI;
    std::vector<Share> Shares;
};

struct Covers {
    std::string DG_Gesamt_WRRL;
    std::string DG_MA_WRRL;
    std::string DG_Gesamt;
    std::string DG_MA;
};

struct Site {
    std::string Station;
    std::string Gewaesser;
    std::int32_t BioregionID = 0;
    std::int32_t Hoehenstufe = 0;
    std::string RefBioregion;
};

/// Rows of a reference table, each value ready for a statement.
struct ReferenceTable {
    std::vector<std::string> Columns;
    std::vector<std::vector<std::string>> Rows;
};
using ReferenceTables = std::map<std::string, ReferenceTable>;

/// A value that must stand in a column.
struct ExpectedValue {
    std::size_t Line = 0;
    std::string Column;
    std::string Text;
};

/// What one of the two runs must leave.
struct Expectation {
    std::size_t Line = 0;                 ///< where the section begins
    bool NoRow = false;                   ///< no row in awaErgWRRL
    std::optional<std::int32_t> Failure;  ///< number of the failure of the call
    std::vector<ExpectedValue> Values;    ///< columns of the row in awaErgWRRL
};

/// A cell of the frequency list.
struct ExpectedAbundance {
    std::size_t Line = 0;
    std::size_t Taxon = 0;
    bool CF = false;
    std::string Percent;
};

struct Case {
    std::string File;  ///< for messages
    std::string Title;
    std::string Reasoning;
    struct Site Site;
    std::optional<struct Covers> Covers;  ///< none: the sub-habitat has no row in awaTeilraum
    std::vector<Taxon> Taxa;
    std::vector<std::string> Sites;  ///< sampling sites
    std::vector<Finding> Findings;
    std::vector<Stand> Stands;
    ReferenceTables Reference;
    std::optional<std::vector<ExpectedAbundance>> List;  ///< every row of the frequency list
    Expectation FirstRun;
    Expectation SecondRun;
};

/// Gives the text of the shared reference tables of a name, or nothing where there is no such file.
using SharedTables = std::function<std::optional<std::string>(const std::string& name)>;

/// Reads a case. Everything that is not understood, and whatever is missing, fails with `CaseError`.
Case ReadCase(const std::string& file, std::string_view text, const SharedTables& shared);

}  // namespace FX_Algen::cases
