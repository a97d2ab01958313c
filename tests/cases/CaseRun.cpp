#include "cases/CaseRun.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "FX_Algen/AL_PS.h"
#include "store/Connection.h"

namespace FX_Algen::cases {
namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') quoted += c;
    }
    return quoted + "'";
}

std::string Key(std::size_t position) { return std::to_string(position + 1); }

std::string Flag(bool value) { return value ? "-1" : "0"; }

/// One "INSERT"; each value stands ready for the statement.
void Insert(store::Database& database, const std::string& table, const std::string& columns,
            const std::vector<std::string>& values) {
    std::string statement = "INSERT INTO " + table + " (" + columns + ") VALUES(";
    for (std::size_t i = 0; i < values.size(); ++i) statement += (i == 0 ? "" : ", ") + values[i];
    database.Execute(statement + ");");
}

void FillSite(store::Database& database, const Case& sample) {
    Insert(database, "Projekt", "ID_PRJ, PRJBez", {"1", Quoted("Aufwuchsalgen im Überblick")});
    Insert(database, "Abschnitt", "ID_AB, ID_PRJ, ABBez", {"1", "1", Quoted("Oberlauf")});
    Insert(database, "UnvUStelle", "ID_UUS, ID_AB, USBez, Gewaessername, ID_AL_Bioregion",
           {"1", "1", Quoted(sample.Site.Station), Quoted(sample.Site.Gewaesser),
            std::to_string(sample.Site.BioregionID)});
    Insert(database, "VerUStelle", "ID_VUS, ID_UUS, USDatumVon", {"1", "1", "#05/12/2026#"});
    const auto id = std::to_string(Subhabitat);
    Insert(database, "Teilraum", "ID_TR, ID_VUS, TRBez", {id, "1", Quoted("Blöcke")});
    if (sample.Covers) {
        Insert(database, "awaTeilraum", "ID_TR, DG_Gesamt_WRRL, DG_MA_WRRL, DG_Gesamt, DG_MA",
               {id, sample.Covers->DG_Gesamt_WRRL, sample.Covers->DG_MA_WRRL, sample.Covers->DG_Gesamt,
                sample.Covers->DG_MA});
    }
}

void FillTaxon(store::Database& database, const Taxon& taxon, const std::string& id) {
    const auto space = taxon.Name.find(' ');
    // A family a taxon: its major group is all that the assessment asks of it.
    Insert(database, "awaFamilie", "ID_FAM, Familie, ID_GRGR",
           {id, Quoted("Familie " + id), std::to_string(taxon.ID_GRGR)});
    Insert(database, "awaUnterFam", "ID_UFAM, ID_FAM, Unterfamilie", {id, id, Quoted("Unterfamilie " + id)});
    Insert(database, "awaArt", "ID_ART, ID_UFAM, Gattung, Art, IstArtniveau",
           {id, id, Quoted(taxon.Name.substr(0, space)), Quoted(taxon.Name.substr(space + 1)),
            Flag(taxon.IstArtniveau)});
    Insert(database, "awaArtKatalog", "ID_ART, ID_KAT", {id, "1"});
    if (taxon.Values) {
        const auto& values = *taxon.Values;
        Insert(database, "awaModulStandard",
               "ID_ART, SI, Sap_GBer, Trophiewert, Trophiegewicht, Algenart, Lebensform",
               {id, values.SI, values.Sap_GBer, values.Trophiewert, values.Trophiegewicht,
                values.Algenart ? Quoted(*values.Algenart) : "Null", std::to_string(values.Lebensform)});
    }
    if (taxon.TypA) Insert(database, "awaRefArt_TypA", "ID_Art", {id});
    for (const auto& region : taxon.TypB)
        Insert(database, "awaRefArt_TypB", "ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe",
               {id, std::to_string(region.Bioregion), std::to_string(region.Hoehenstufe)});
}

void FillFindings(store::Database& database, const Case& sample) {
    for (std::size_t i = 0; i < sample.Sites.size(); ++i)
        Insert(database, "awaPrStelle", "ID_PS, ID_TR, PSBez",
               {Key(i), std::to_string(Subhabitat), Quoted(sample.Sites[i])});
    for (const auto& finding : sample.Findings)
        Insert(database, "awaArtPrStelle", "ID_PS, ID_ART, CF, DG_MA, Schalen_KA",
               {Key(finding.Site), Key(finding.Taxon), Flag(finding.CF), finding.DG_MA, finding.Schalen_KA});
    for (std::size_t i = 0; i < sample.Stands.size(); ++i) {
        const auto& stand = sample.Stands[i];
        Insert(database, "awaTeilraum_MI", "ID_TR_MI, ID_TR, MI_Bez, DG_MI_WRRL, DG_MI",
               {Key(i), std::to_string(Subhabitat), Quoted(stand.Name), stand.DG_MI_WRRL, stand.DG_MI});
        for (const auto& share : stand.Shares)
            Insert(database, "awaArtPrStelle_MI", "ID_TR_MI, ID_ART, CF, DG_MI",
                   {Key(i), Key(share.Taxon), Flag(share.CF), share.DG_MI});
    }
}

void FillReference(store::Database& database, const ReferenceTables& tables) {
    for (const auto& [name, table] : tables) {
        std::string columns;
        for (const auto& column : table.Columns) columns += (columns.empty() ? "" : ", ") + column;
        for (const auto& row : table.Rows) Insert(database, name, columns, row);
    }
}

std::optional<Error> Run(AL_PS& host, bool KAOnly) {
    host.KAOnly(KAOnly);
    try {
        host.Berechnung_WRRL();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

std::vector<Difference> ListDifferences(const store::DatabasePtr& database, const Case& sample) {
    std::vector<Difference> differences;
    const auto rows = database->OpenRecordset("SELECT * FROM awaArtenlisteHaeufigkeit;");
    std::vector<bool> found(sample.List->size(), false);
    const auto& list = *sample.List;
    for (; !rows->Eof(); rows->MoveNext()) {
        const auto taxon = static_cast<std::size_t>((*rows)["ID_Art"].I4() - 1);
        const bool cf = (*rows)["CF"].Bool();
        const auto expected = std::find_if(list.begin(), list.end(), [&](const ExpectedAbundance& row) {
            return row.Taxon == taxon && row.CF == cf;
        });
        const auto name = sample.Taxa.at(taxon).Name + (cf ? " (cf.)" : "");
        if (expected == list.end()) {
            differences.push_back({0, "the frequency list also holds " + name});
            continue;
        }
        found[static_cast<std::size_t>(expected - list.begin())] = true;
        auto text = ValueDifference(expected->Percent, (*rows)["A" + std::to_string(Subhabitat)]);
        if (!text.empty())
            differences.push_back({expected->Line, name + " in the frequency list: " + std::move(text)});
    }
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!found[i])
            differences.push_back({list[i].Line, "the frequency list does not hold " +
                                                     sample.Taxa[list[i].Taxon].Name +
                                                     (list[i].CF ? " (cf.)" : "")});
    }
    return differences;
}

/// Half a unit of the last digit given, at most a hundred-thousandth of the value; never less than what a
/// 32-bit float can hold.
double Tolerance(const std::string& text, double number) {
    const auto point = text.find('.');
    const auto digits = point == std::string::npos ? 0 : text.size() - point - 1;
    const double given = 0.5 * std::pow(10.0, -static_cast<double>(digits));
    return std::max(std::min(given, 1e-5 * std::abs(number)), 2e-7 * std::abs(number));
}

std::string Quote(const store::Value& value) {
    switch (value.kind()) {
        case store::Kind::Null:
            return "Null";
        case store::Kind::Bool:
            return value.Bool() ? "yes" : "no";
        case store::Kind::R4:
        case store::Kind::R8:
        case store::Kind::I2:
        case store::Kind::I4:
            return value.Text();
        default:
            return "\"" + value.Text() + "\"";
    }
}

}  // namespace

void Fill(const store::DatabasePtr& database, const Case& sample) {
    // Rows are filled in together: a statement each would wait for the disk each time.
    store::Savepoint together(database->SharedConnection());
    FillSite(*database, sample);
    for (std::size_t i = 0; i < sample.Taxa.size(); ++i) FillTaxon(*database, sample.Taxa[i], Key(i));
    FillFindings(*database, sample);
    FillReference(*database, sample.Reference);
    together.Keep();
}

Outcome Assess(const store::DatabasePtr& database, const Case& sample, std::vector<Difference>& list) {
    AL_PS host;
    host.CurrentDB(database);
    host.SprachID(10000);
    host.DBName(database->Name());
    host.AktUebersicht("Projekt");
    host.ProjektID(1);
    host.USTAuswahl(false);
    host.IstWRRLBerechnung(true);
    host.Berechnung_WRRLInit();
    host.TeilraumID(Subhabitat);
    host.BioregionID(sample.Site.BioregionID);
    host.Hoehenstufe(static_cast<std::int16_t>(sample.Site.Hoehenstufe));
    host.RefBioregion(sample.Site.RefBioregion);
    Outcome outcome;
    outcome.FirstRun = Run(host, false);
    if (sample.List) list = ListDifferences(database, sample);
    outcome.SecondRun = Run(host, true);
    return outcome;
}

std::vector<Difference> Differences(const store::DatabasePtr& database, const Expectation& expected,
                                    const std::optional<Error>& failure, bool KAOnly) {
    auto differences =
        RowDifferences(*database, {"awaErgWRRL", "KAOnly=" + std::string(Flag(KAOnly))}, expected, failure);
    for (auto& difference : differences) {
        difference.Text = (KAOnly ? "second run: " : "first run: ") + difference.Text;
    }
    return differences;
}

std::vector<Difference> RowDifferences(store::Database& database, const ResultRow& where,
                                       const Expectation& expected, const std::optional<Error>& failure) {
    std::vector<Difference> differences;
    const auto add = [&](std::size_t line, const std::string& text) { differences.push_back({line, text}); };
    if (failure && failure->Number() != expected.Failure)
        add(expected.Line,
            "failed with " + std::to_string(failure->Number()) + ", " + failure->Description());
    if (!failure && expected.Failure)
        add(expected.Line, "did not fail with " + std::to_string(*expected.Failure));
    const auto row =
        database.OpenRecordset("SELECT * FROM " + where.Table + " WHERE (ID=" + std::to_string(Subhabitat) +
                               ") AND (" + where.Condition + ");");
    if (row->Eof()) {
        if (!expected.NoRow) add(expected.Line, "left no row in " + where.Table);
        return differences;
    }
    if (expected.NoRow) {
        add(expected.Line, "left a row in " + where.Table);
        return differences;
    }
    for (const auto& value : expected.Values) {
        const auto& fields = row->Fields();
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const store::ResultField& other) {
            return other.Name == value.Column;
        });
        if (field == fields.end()) {
            add(value.Line, where.Table + " has no column \"" + value.Column + "\"");
            continue;
        }
        const auto text = ValueDifference(value.Text, (*row)[value.Column]);
        if (!text.empty()) add(value.Line, value.Column + ": " + text);
    }
    return differences;
}

std::string ValueDifference(const std::string& expected, const store::Value& value) {
    const auto differs = "expected " + expected + ", got " + Quote(value);
    switch (value.kind()) {
        case store::Kind::R4:
        case store::Kind::R8: {
            if (!IsNumber(expected)) return differs;
            double number = 0;
            std::from_chars(expected.data(), expected.data() + expected.size(), number);
            return std::abs(value.R8() - number) <= Tolerance(expected, number) ? std::string() : differs;
        }
        case store::Kind::Null:
            return expected == "Null" ? std::string() : differs;
        case store::Kind::Bool:
            return expected == (value.Bool() ? "yes" : "no") ? std::string() : differs;
        case store::Kind::Text: {
            const auto text = value.Text();
            return expected == (text.empty() ? "\"\"" : text) ? std::string() : differs;
        }
        default:
            return expected == value.Text() ? std::string() : differs;
    }
}

}  // namespace FX_Algen::cases
