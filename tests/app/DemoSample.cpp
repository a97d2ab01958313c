#include "DemoSample.h"

#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

namespace {

std::string Key(std::int32_t id) { return store::NumberText(id); }

double Number(const store::Value& value) { return value.IsNull() ? 0 : value.R8(); }

std::string Word(const store::Value& value) { return value.IsNull() ? "" : value.Text(); }

/// What the field sheet of a taxon says beside its shares.
EnteredTaxon ReadTaxon(store::Recordset& row) {
    EnteredTaxon taxon;
    taxon.Gattung = row["Gattung"].Text();
    taxon.Art = row["Art"].Text();
    taxon.CF = row["CF"].Bool();
    taxon.DG_MA = Number(row["DG_MA"]);
    taxon.SD_MA = Number(row["SD_MA"]);
    taxon.Schalen_KA = Number(row["Schalen_KA"]);
    taxon.DG_MP = Number(row["DG_MP"]);
    return taxon;
}

std::vector<EnteredShare> ReadShares(const store::DatabasePtr& database, const std::string& ID_TR,
                                     const std::string& ID_ART, bool cf) {
    std::vector<EnteredShare> shares;
    const auto rows = database->OpenRecordset(
        "SELECT awaTeilraum_MI.MI_Bez, awaArtPrStelle_MI.DG_MI FROM awaTeilraum_MI INNER JOIN "
        "awaArtPrStelle_MI "
        "ON awaTeilraum_MI.ID_TR_MI = awaArtPrStelle_MI.ID_TR_MI WHERE awaTeilraum_MI.ID_TR=" +
        ID_TR + " AND awaArtPrStelle_MI.ID_ART=" + ID_ART + " AND awaArtPrStelle_MI.CF=" +
        (cf ? "True" : "False") + " ORDER BY awaTeilraum_MI.RF_MI, awaTeilraum_MI.MI_Bez;");
    for (; !rows->Eof(); rows->MoveNext())
        shares.push_back({(*rows)["MI_Bez"].Text(), Number((*rows)["DG_MI"])});
    return shares;
}

void Append(std::vector<std::string>& lines, std::vector<std::string> more) {
    lines.insert(lines.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

AlgaeSample ReadAlgaeSample(const store::DatabasePtr& database, std::int32_t ID_TR) {
    AlgaeSample sample;
    sample.ID_TR = ID_TR;
    const auto key = Key(ID_TR);
    const auto site =
        database->OpenRecordset("SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_TR=" + key + ";");
    sample.PSBez = (*site)["PSBez"].Text();
    const auto covers = database->OpenRecordset("SELECT * FROM awaTeilraum WHERE ID_TR=" + key + ";");
    // The covers as a whole before their parts, which must not exceed them.
    static const std::vector<std::pair<std::string, std::string>> fields{
        {"txtAlgenGesamt", "DG_Algengesamt"},
        {"txtDG_Gesamt", "DG_Gesamt"},
        {"txtDG_Makro", "DG_MA"},
        {"txtMitBewuchsdichte", "MitBewuchsdichte"},
        {"txtAlgenGesamt_WRRL", "DG_Algengesamt_WRRL"},
        {"txtDG_Gesamt_WRRL", "DG_Gesamt_WRRL"},
        {"txtDG_Makro_WRRL", "DG_MA_WRRL"},
        {"txtMitBewuchsdichte_WRRL", "MitBewuchsdichte_WRRL"}};
    for (const auto& [field, column] : fields) sample.Covers.emplace_back(field, Number((*covers)[column]));
    const auto stands = database->OpenRecordset("SELECT * FROM awaTeilraum_MI WHERE ID_TR=" + key +
                                                " ORDER BY RF_MI, MI_Bez;");
    for (; !stands->Eof(); stands->MoveNext())
        sample.Stands.push_back({(*stands)["MI_Bez"].Text(), Number((*stands)["DG_MI"]),
                                 Number((*stands)["DG_MI_WRRL"]), Number((*stands)["SD_MI"]),
                                 Number((*stands)["RF_MI"])});
    // The uncertain finding of a taxon before the certain one: the picker enters certain findings only, and a
    // check mark makes them uncertain.
    const auto taxa = database->OpenRecordset(
        "SELECT awaArt.ID_ART, awaArt.Gattung, awaArt.Art, awaArtPrStelle.CF, awaArtPrStelle.DG_MA, "
        "awaArtPrStelle.SD_MA, awaArtPrStelle.Schalen_KA, awaArtPrStelle.DG_MP FROM awaArt INNER JOIN "
        "awaArtPrStelle ON awaArt.ID_ART = awaArtPrStelle.ID_ART WHERE awaArtPrStelle.ID_PS=" +
        (*site)["ID_PS"].Text() + " ORDER BY awaArtPrStelle.ID_ART, awaArtPrStelle.CF DESC;");
    for (; !taxa->Eof(); taxa->MoveNext()) {
        auto taxon = ReadTaxon(*taxa);
        taxon.Shares = ReadShares(database, key, (*taxa)["ID_ART"].Text(), taxon.CF);
        sample.Taxa.push_back(std::move(taxon));
    }
    return sample;
}

SestonSample ReadSestonSample(const store::DatabasePtr& database, std::int32_t ID_TR) {
    SestonSample sample;
    sample.ID_TR = ID_TR;
    const auto rows = database->OpenRecordset(
        "SELECT sesArt.Gattung, sesArt.Art, sesArtPrStelle.CF, sesArtPrStelle.Abundanz, "
        "sesArtPrStelle.Zusatz "
        "FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS) INNER JOIN "
        "sesArt ON sesArtPrStelle.ID_ART = sesArt.ID_ART WHERE sesPrStelle.ID_TR=" +
        Key(ID_TR) + " ORDER BY sesArtPrStelle.ID_ART, sesArtPrStelle.CF DESC;");
    for (; !rows->Eof(); rows->MoveNext()) {
        SestonSample::Finding finding;
        finding.Taxon.Gattung = (*rows)["Gattung"].Text();
        finding.Taxon.Art = (*rows)["Art"].Text();
        finding.Taxon.CF = (*rows)["CF"].Bool();
        finding.Abundanz = Number((*rows)["Abundanz"]);
        finding.Zusatz = Word((*rows)["Zusatz"]);
        sample.Findings.push_back(std::move(finding));
    }
    return sample;
}

void RemoveAlgaeSample(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const auto key = Key(ID_TR);
    const auto sites = Lines(database, "SELECT ID_PS FROM awaPrStelle WHERE ID_TR=" + key + ";");
    for (const auto& site : sites)
        database->Execute("DELETE * FROM awaArtPrStelle WHERE ID_PS=" + site + ";");
    // The shares go with their stands.
    for (const auto* table : {"awaTeilraum_MI", "awaPrStelle", "awaTeilraum"})
        database->Execute(std::string("DELETE * FROM ") + table + " WHERE ID_TR=" + key + ";");
}

void RemoveSestonSample(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const auto key = Key(ID_TR);
    const auto sites = Lines(database, "SELECT ID_PS FROM sesPrStelle WHERE ID_TR=" + key + ";");
    for (const auto& site : sites)
        database->Execute("DELETE * FROM sesArtPrStelle WHERE ID_PS=" + site + ";");
    database->Execute("DELETE * FROM sesPrStelle WHERE ID_TR=" + key + ";");
}

std::vector<std::string> Lines(const store::DatabasePtr& database, const std::string& statement) {
    std::vector<std::string> lines;
    const auto rows = database->OpenRecordset(statement);
    for (; !rows->Eof(); rows->MoveNext()) {
        auto& line = lines.emplace_back();
        for (std::size_t i = 0; i < rows->Fields().size(); ++i)
            line += (i > 0 ? "|" : "") + ((*rows)[i].IsNull() ? std::string("-") : (*rows)[i].Text());
    }
    return lines;
}

std::vector<std::string> AlgaeRows(const store::DatabasePtr& database, std::int32_t ID_TR) {
    const auto where = " WHERE awaTeilraum.ID_TR=" + Key(ID_TR);
    auto lines =
        Lines(database,
              "SELECT DG_Gesamt, DG_MA, DG_Algengesamt, MitBewuchsdichte, DG_Gesamt_WRRL, DG_MA_WRRL, "
              "DG_Algengesamt_WRRL, MitBewuchsdichte_WRRL, PSBez FROM awaTeilraum INNER JOIN "
              "awaPrStelle ON awaTeilraum.ID_TR = awaPrStelle.ID_TR" +
                  where + ";");
    Append(lines, Lines(database,
                        "SELECT MI_Bez, DG_MI, DG_MI_WRRL, SD_MI, RF_MI FROM awaTeilraum INNER JOIN "
                        "awaTeilraum_MI ON awaTeilraum.ID_TR = awaTeilraum_MI.ID_TR" +
                            where + " ORDER BY RF_MI, MI_Bez;"));
    Append(lines, Lines(database,
                        "SELECT ID_ART, CF, MAalsMI, awaArtPrStelle.DG_MA, SD_MA, Schalen_KA, DG_MP FROM "
                        "(awaTeilraum INNER JOIN awaPrStelle ON awaTeilraum.ID_TR = awaPrStelle.ID_TR) INNER "
                        "JOIN awaArtPrStelle ON awaPrStelle.ID_PS = awaArtPrStelle.ID_PS" +
                            where + " ORDER BY ID_ART, CF;"));
    Append(lines, Lines(database,
                        "SELECT MI_Bez, ID_ART, CF, awaArtPrStelle_MI.DG_MI FROM (awaTeilraum INNER JOIN "
                        "awaTeilraum_MI ON awaTeilraum.ID_TR = awaTeilraum_MI.ID_TR) INNER JOIN "
                        "awaArtPrStelle_MI ON awaTeilraum_MI.ID_TR_MI = awaArtPrStelle_MI.ID_TR_MI" +
                            where + " ORDER BY RF_MI, ID_ART, CF;"));
    return lines;
}

std::vector<std::string> SestonRows(const store::DatabasePtr& database, std::int32_t ID_TR) {
    // A remark that nobody entered is an empty text or Null: it reads the same.
    return Lines(database,
                 "SELECT ID_ART, CF, Abundanz, Zusatz & '' FROM sesPrStelle INNER JOIN sesArtPrStelle ON "
                 "sesPrStelle.ID_PS = sesArtPrStelle.ID_PS WHERE sesPrStelle.ID_TR=" +
                     Key(ID_TR) + " ORDER BY ID_ART, CF;");
}

}  // namespace FX_Algen::cli
