#include "fxalgen/record/Digest.h"

#include <array>

namespace FX_Algen::cli {

namespace {

/// What a calculation reads of a taxon; valences because the count of completely rated taxa rests on them.
constexpr std::string_view Ratings =
    "awaModulStandard.SI, awaModulStandard.Sap_GBer, awaModulStandard.Trophiewert, "
    "awaModulStandard.Trophiegewicht, awaModulStandard.Trophiewert_N, awaModulStandard.Trophiegewicht_N, "
    "awaModulStandard.Algenart, awaModulStandard.Lebensform, awaModulStandard.X, awaModulStandard.O, "
    "awaModulStandard.OB, awaModulStandard.B, awaModulStandard.BA, awaModulStandard.A, awaModulStandard.AP, "
    "awaModulStandard.P, awaModulStandard.ID_ART AS HatEinstufung, awaFamilie.ID_GRGR ";

/// What an assessment reads besides: the kind of a taxon comes from the row of its major group there.
constexpr std::string_view AssessmentRatings =
    ", awaArt.IstArtniveau, awaGrossGr.ID_GRGR AS HatGruppe, awaGrossGr.RF_Kieselalge ";

std::string WithTaxa(std::string_view findings, std::string_view table) {
    const std::string name(table);
    return "FROM ((((" + std::string(findings) + " LEFT JOIN awaModulStandard ON " + name +
           ".ID_ART = awaModulStandard.ID_ART) LEFT JOIN awaArt ON " + name +
           ".ID_ART = awaArt.ID_ART) LEFT JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
           "LEFT JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
           "LEFT JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR ";
}

/// Covers, stands, taxa of the stands, findings.
std::array<std::string, 4> Statements(std::int32_t ID_TR, std::string_view ofFindings = {}) {
    const std::string id = store::NumberText(ID_TR);
    return {
        "SELECT DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL FROM awaTeilraum WHERE ID_TR=" + id + ";",
        "SELECT ID_TR_MI, DG_MI, DG_MI_WRRL, SD_MI FROM awaTeilraum_MI WHERE ID_TR=" + id +
            " ORDER BY ID_TR_MI;",
        "SELECT awaArtPrStelle_MI.ID_TR_MI AS Bestand, awaArtPrStelle_MI.ID_ART AS Taxon, "
        "awaArtPrStelle_MI.CF, awaArtPrStelle_MI.DG_MI, " +
            std::string(Ratings) +
            WithTaxa("(awaTeilraum_MI INNER JOIN awaArtPrStelle_MI ON awaTeilraum_MI.ID_TR_MI = "
                     "awaArtPrStelle_MI.ID_TR_MI)",
                     "awaArtPrStelle_MI") +
            "WHERE awaTeilraum_MI.ID_TR=" + id +
            " ORDER BY awaArtPrStelle_MI.ID_TR_MI, awaArtPrStelle_MI.ID_ART, awaArtPrStelle_MI.CF;",
        "SELECT awaArtPrStelle.ID_PS AS Stelle, awaArtPrStelle.ID_ART AS Taxon, awaArtPrStelle.CF, "
        "awaArtPrStelle.DG_MA, awaArtPrStelle.SD_MA, awaArtPrStelle.Schalen_KA, " +
            std::string(Ratings) + std::string(ofFindings) +
            WithTaxa("(awaPrStelle INNER JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS)",
                     "awaArtPrStelle") +
            "WHERE awaPrStelle.ID_TR=" + id +
            " ORDER BY awaArtPrStelle.ID_PS, awaArtPrStelle.ID_ART, awaArtPrStelle.CF;"};
}

void AddRow(Digest& digest, const store::Recordset& row) {
    for (std::size_t i = 0; i < row.Fields().size(); ++i) digest.AddField(row[i]);
    digest.AddBytes("\n");
}

}  // namespace

void Digest::AddBytes(std::string_view bytes) noexcept {
    for (const char byte : bytes) {
        state_ ^= static_cast<unsigned char>(byte);
        state_ *= 0x100000001b3ULL;
    }
}

void Digest::AddField(const store::Value& value) {
    if (value.IsNull()) {
        AddBytes("-;");
        return;
    }
    // The short text of a 32-bit float is the same for neighbours; as a 64-bit number it is not.
    const std::string text = value.kind() == store::Kind::R4 ? store::NumberText(value.R8()) : value.Text();
    AddBytes(std::to_string(text.size()) + ":" + text + ";");
}

std::string Digest::Text() const {
    static constexpr std::string_view Digits = "0123456789abcdef";
    std::string text(16, '0');
    for (std::size_t i = 0; i < text.size(); ++i) text[i] = Digits[(state_ >> (60 - 4 * i)) & 0xF];
    return text;
}

std::string DigestOfInputs(store::Database& database, std::int32_t ID_TR) {
    Digest digest;
    for (const std::string& statement : Statements(ID_TR)) AddRows(digest, database, statement);
    return digest.Text();
}

void AddAssessedSample(Digest& digest, store::Database& database, std::int32_t ID_TR,
                       const std::function<void(std::int32_t ID_ART)>& taxon) {
    const auto statements = Statements(ID_TR, AssessmentRatings);
    for (std::size_t i = 0; i + 1 < statements.size(); ++i) AddRows(digest, database, statements[i]);
    AddRows(digest, database, statements.back(),
            [&](const store::Recordset& row) { taxon(row["Taxon"].I4()); });
}

void AddRows(Digest& digest, store::Database& database, const std::string& statement,
             const std::function<void(const store::Recordset&)>& row) {
    digest.AddBytes("\f");
    const auto rows = database.OpenRecordset(statement);
    for (; !rows->Eof(); rows->MoveNext()) {
        AddRow(digest, *rows);
        if (row) row(*rows);
    }
}

std::string DigestOfRow(const store::Recordset& row) {
    Digest digest;
    AddRow(digest, row);
    return digest.Text();
}

}  // namespace FX_Algen::cli
