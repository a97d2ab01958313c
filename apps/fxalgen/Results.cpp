#include "fxalgen/Results.h"

#include <algorithm>

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

}  // namespace

const store::Value& Record::operator[](std::string_view name) const {
    static const store::Value Null;
    const auto found = std::find(names_->begin(), names_->end(), name);
    const auto index = static_cast<std::size_t>(found - names_->begin());
    return index < values_.size() ? values_[index] : Null;
}

const ResultKind& ClassicResults() {
    static const ResultKind kind{"awaErgProjekt",
                                 true,
                                 true,
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
    static const ResultKind kind{"awaErgWRRL",
                                 true,
                                 false,
                                 {{words::Bewertung,
                                   {{"Taxagruppe", 0, Show::Text},
                                    {"TI_EQR", 0, Show::Index},
                                    {"TI_OEZK_Klasse", 0, Show::Text},
                                    {"SI_EQR", 0, Show::Index},
                                    {"SI_OEZK_Klasse", 0, Show::Text},
                                    {"RI_EQR", 0, Show::Index},
                                    {"RI_OEZK_Klasse", 0, Show::Text},
                                    {"OEZK_Klasse", 0, Show::Text}}}}};
    return kind;
}

const ResultKind& SestonResults() {
    static const ResultKind kind{"sesErgProjekt",
                                 false,
                                 false,
                                 {{words::Indices,
                                   {{"SapIndex", 5211, Show::Index},
                                    {"SI_Streuung", 0, Show::Quantity},
                                    {"Oligo", 0, Show::Index},
                                    {"Beta", 0, Show::Index},
                                    {"Alpha", 0, Show::Index},
                                    {"Poly", 0, Show::Index},
                                    {"ShannonundWeaver", 0, Show::Quantity},
                                    {"MArgalef", 0, Show::Quantity},
                                    {"Eveness", 0, Show::Quantity},
                                    {"Abundanzsumme", 0, Show::Count},
                                    {"Taxa", 0, Show::Count},
                                    {"Taxa_SI", 0, Show::Count}}}}};
    return kind;
}

}  // namespace FX_Algen::cli
