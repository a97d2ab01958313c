#include "fxalgen/results/Results.h"

#include <algorithm>
#include <array>

#include "fxalgen/Words.h"

namespace FX_Algen::cli {

namespace {

std::vector<ResultColumn> ClassColumns() {
    return {{"ANZ_Gueteklasse_I", 7311, Show::Count},   {"ANZ_Gueteklasse_I_II", 7312, Show::Count},
            {"ANZ_Gueteklasse_II", 7313, Show::Count},  {"ANZ_Gueteklasse_II_III", 7314, Show::Count},
            {"ANZ_Gueteklasse_III", 7315, Show::Count}, {"ANZ_Gueteklasse_III_IV", 7316, Show::Count},
            {"ANZ_Gueteklasse_IV", 7317, Show::Count}};
}

std::vector<ResultColumn> CoverageColumns() {
    std::vector<ResultColumn> columns;
    std::int16_t caption = words::Abdeckung;
    for (const std::string_view field : CoverageFields) columns.push_back({field, ++caption, Show::Share});
    return columns;
}

/// Columns that the modules of an assessment have alike: expected value, ratio, class, its name, raised
/// class.
using ModuleFields = std::array<std::string_view, 5>;

constexpr ModuleFields TI_Columns{"TI_EW", "TI_EQR", "TI_OEZK", "TI_OEZK_Klasse", "TI_OEZK3"};
constexpr ModuleFields SI_Columns{"SI_EW", "SI_EQR", "SI_OEZK", "SI_OEZK_Klasse", "SI_OEZK3"};
constexpr ModuleFields RI_Columns{"RI_EW", "RI_EQR", "RI_OEZK", "RI_OEZK_Klasse", "RI_OEZK3"};

std::vector<ResultColumn> ModuleColumns(std::string_view referenceClass, const ResultColumn& index,
                                        const ModuleFields& fields) {
    return {{referenceClass, words::Referenzklasse, Show::Reference},
            index,
            {fields[0], words::ModulErwartet, Show::Expected},
            {fields[1], words::ModulEQR, Show::Ratio},
            {fields[2], words::ModulOEZK, Show::Reference},
            {fields[3], words::Klassenname, Show::Reference},
            {fields[4], words::ErhoehteKlasse, Show::Reference}};
}

std::vector<ResultColumn> ReferenceSpeciesColumns() {
    auto columns =
        ModuleColumns("Bioregionstyp", {"RI_EQR", words::ModulIndex, Show::ReferenceIndex}, RI_Columns);
    columns.insert(columns.begin() + 1, {{"RI_Anzahl", words::AnteilAnzahl, Show::Ratio},
                                         {"RI_Abundanz", words::AnteilAbundanz, Show::Ratio}});
    return columns;
}

}  // namespace

const store::Value& Record::operator[](std::string_view name) const {
    static const store::Value Null;
    const auto found = std::find(names_->begin(), names_->end(), name);
    const auto index = static_cast<std::size_t>(found - names_->begin());
    return index < values_.size() ? values_[index] : Null;
}

const ResultKind& ClassicResults() {
    static const ResultKind kind{
        "awaErgProjekt",
        true,
        true,
        false,
        StateTexts{words::OutOfDate, words::Incomplete, words::Unknown, words::NoIndex},
        {{words::Indices,
          {{"SapIndex", 5211, Show::Index},
           {"SapIndex_KA", 5212, Show::Index},
           {"TI", 5213, Show::Index},
           {"TI_N", 5214, Show::Index},
           {"TI_KA", 5215, Show::Index},
           {"AMI", 5216, Show::Quantity}}},
         {words::Taxazahlen,
          {{"Taxa", 5221, Show::Count},
           {"Taxa_KA", 5222, Show::Count},
           {"Taxa_SI", 5223, Show::Count},
           {"Taxa_SI_KA", 5224, Show::Count},
           {"TaxaSap", 5225, Show::Count},
           {"TaxaTI", 5226, Show::Count},
           {"TaxaTI_N", 5227, Show::Count},
           {"TaxaTI_KA", 5228, Show::Count}}},
         {words::Klassen, ClassColumns()},
         {words::Abdeckung, CoverageColumns()}}};
    return kind;
}

const ResultKind& WrrlResults() {
    static const ResultKind kind{
        "awaErgWRRL",
        true,
        false,
        false,
        StateTexts{words::WrrlOutOfDate, words::WrrlIncomplete, words::WrrlUnknown, words::WrrlNoIndex},
        {{words::Bewertung,
          {{"Taxagruppe", words::Algengruppe, Show::Group},
           {"OEZK", words::Zustand, Show::NamedClass},
           {"BedingtBewertbar", words::Bedingt, Show::Flag},
           {"TI_OEZK", words::Trophiemodul, Show::Reference},
           {"SI_OEZK", words::Saprobiemodul, Show::Reference},
           {"RI_OEZK", words::Referenzartenmodul, Show::Reference}}},
         {words::Trophiemodul, ModuleColumns("TGZK", {"TI", words::ModulIndex, Show::Index}, TI_Columns)},
         {words::Saprobiemodul, ModuleColumns("SGZK", {"SI", words::ModulIndex, Show::Index}, SI_Columns)},
         {words::Referenzartenmodul, ReferenceSpeciesColumns()}}};
    return kind;
}

const ResultKind& SestonResults() {
    static const ResultKind kind{
        "sesErgProjekt",
        false,
        false,
        true,
        StateTexts{words::SestonOutOfDate, words::Incomplete, words::Unknown, words::SestonNoIndex},
        {{words::SestonIndex,
          {{"SapIndex", 5211, Show::Index},
           {"SI_Streuung", words::Streuung, Show::Quantity},
           {RatedShareField, words::AbundanzMitSI, Show::Share}}},
         {words::SestonValenzen,
          {{"Oligo", words::Oligo, Show::Ratio},
           {"Beta", words::Beta, Show::Ratio},
           {"Alpha", words::Alpha, Show::Ratio},
           {"Poly", words::Poly, Show::Ratio}}},
         {words::SestonKumuliert,
          {{"KumOligo", words::KumOligo, Show::Ratio},
           {"KumBeta", words::KumBeta, Show::Ratio},
           {"KumAlpha", words::KumAlpha, Show::Ratio},
           {"KumPoly", words::KumPoly, Show::Ratio}}},
         {words::SestonDiversitaet,
          {{"Taxa", words::AlleTaxa, Show::Count},
           {"Taxa_SI", words::TaxaMitValenzen, Show::Count},
           {"Abundanzsumme", words::Abundanz, Show::Count},
           {"ShannonundWeaver", words::Diversitaet, Show::Quantity},
           {"MArgalef", words::Margalef, Show::Quantity},
           {"Eveness", words::Eveness, Show::Quantity}}}}};
    return kind;
}

}  // namespace FX_Algen::cli
