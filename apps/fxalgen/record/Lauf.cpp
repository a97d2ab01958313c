#include "fxalgen/record/Lauf.h"

#include "fxalgen/record/Digest.h"
#include "fxalgen/record/Laufeintrag.h"

namespace FX_Algen::cli {

namespace {

std::string_view Flag(bool value) { return value ? "-1" : "0"; }

std::string RowCondition(std::int32_t ID_TR, bool KAOnly) {
    return " WHERE (ID=" + store::NumberText(ID_TR) + ") AND (KAOnly=" + std::string(Flag(KAOnly)) + ");";
}

store::RecordsetPtr RowOf(store::Database& database, std::string_view table, std::int32_t ID_TR,
                          bool KAOnly) {
    return database.OpenRecordset("SELECT * FROM " + std::string(table) + RowCondition(ID_TR, KAOnly));
}

/// Digest of the sub-habitat's row; none where it has no row.
std::optional<std::string> DigestOfResult(store::Database& database, std::string_view table,
                                          std::int32_t ID_TR, bool KAOnly) {
    const auto row = RowOf(database, table, ID_TR, KAOnly);
    if (row->Eof()) return std::nullopt;
    return DigestOfRow(*row);
}

constexpr std::string_view NoRow = "-";

/// Digests of the rows that an assessment left in its two tables: "<awaErgProjekt> <awaErgWRRL>". A
/// calculation notes the first alone.
std::optional<std::string> DigestOfAssessment(store::Database& database, std::int32_t ID_TR, bool KAOnly) {
    const auto indices = DigestOfResult(database, "awaErgProjekt", ID_TR, KAOnly);
    const auto classes = DigestOfResult(database, "awaErgWRRL", ID_TR, KAOnly);
    if (!indices && !classes) return std::nullopt;
    return indices.value_or(std::string(NoRow)) + " " + classes.value_or(std::string(NoRow));
}

store::Value OrNull(const std::optional<std::string>& text) {
    return text ? store::Value(*text) : store::Value();
}

void Schreiben(store::Database& database, std::int32_t ID_TR, bool KAOnly, const Laufeintrag& eintrag) {
    const auto table = RowOf(database, "fx_Lauf", ID_TR, KAOnly);
    if (table->Eof()) {
        table->AddNew();
        table->Collect("ID", ID_TR);
        table->Collect("KAOnly", KAOnly);
    } else {
        table->Edit();
    }
    Eintragen(*table, eintrag);
}

/// What an assessment was made from: "<sample> <reference rows> <group>". The group stands at the end, since
/// it tells which reference rows to compare with.
std::string AssessmentInputs(const std::string& sample, const std::string& references,
                             const std::string& group) {
    return sample + " " + references + " " + group;
}

std::string GroupOf(const std::string& inputs) { return inputs.substr(inputs.rfind(' ') + 1); }

bool IsAssessment(const std::string& digests) { return digests.find(' ') != std::string::npos; }

}  // namespace

std::string_view LaufStandText(LaufStand stand) {
    switch (stand) {
        case LaufStand::Current:
            return "current";
        case LaufStand::OutOfDate:
            return "out of date";
        case LaufStand::Incomplete:
            return "incomplete";
        case LaufStand::Unknown:
            break;
    }
    return "unknown";
}

void LaufBeginnen(store::Database& database) { database.Execute("DELETE * FROM fx_Lauf;"); }

void LaufNotieren(store::Database& database, std::int32_t ID_TR) {
    const auto ergebnis = DigestOfResult(database, "awaErgProjekt", ID_TR, false);
    if (!ergebnis) return;
    Schreiben(database, ID_TR, false, {DigestOfInputs(database, ID_TR), *ergebnis, {}, {}});
}

void LaufNotieren(store::Database& database, std::int32_t ID_TR, const Error& error) {
    const auto ergebnis = DigestOfResult(database, "awaErgProjekt", ID_TR, false);
    Schreiben(database, ID_TR, false, {{}, OrNull(ergebnis), error.Number(), error.Description()});
}

void BewertungNotieren(store::Database& database, AssessmentDigests& digests, const AssessmentSite& site,
                       bool KAOnly, const std::string& sample) {
    const auto row = RowOf(database, "awaErgWRRL", site.ID_TR, KAOnly);
    if (row->Eof()) return;
    const store::Value& group = (*row)["Taxagruppe"];
    const std::string text = group.IsNull() ? std::string() : group.Text();
    Schreiben(database, site.ID_TR, KAOnly,
              {AssessmentInputs(sample, digests.OfReferences(site, text), text),
               OrNull(DigestOfAssessment(database, site.ID_TR, KAOnly)),
               {},
               {}});
}

void BewertungNotieren(store::Database& database, std::int32_t ID_TR, bool KAOnly, const Error& error) {
    Schreiben(database, ID_TR, KAOnly,
              {{}, OrNull(DigestOfAssessment(database, ID_TR, KAOnly)), error.Number(), error.Description()});
}

std::optional<LaufBefund> FehlschlagOhneZeile(store::Database& database, std::int32_t ID_TR) {
    const auto row = database.OpenRecordset(
        "SELECT Fehlernummer, Fehlertext FROM fx_Lauf WHERE (ID=" + store::NumberText(ID_TR) +
        ") AND (Ergebnis Is Null) AND (Fehlernummer Is Not Null) ORDER BY KAOnly;");
    if (row->Eof()) return std::nullopt;
    return LaufBefund{LaufStand::Incomplete, (*row)["Fehlernummer"].I4(), (*row)["Fehlertext"].Text()};
}

struct Laufpruefung::Notiz {
    std::string Eingaben;
    std::string Ergebnis;
    std::optional<std::int32_t> Fehlernummer;
    std::string Fehlertext;
};

Laufpruefung::Laufpruefung(store::DatabasePtr database) : database_(std::move(database)) {}

std::optional<Laufpruefung::Notiz> Laufpruefung::Lesen(const store::Recordset& row) {
    const auto lauf = RowOf(*database_, "fx_Lauf", row["ID"].I4(), row["KAOnly"].Bool());
    if (lauf->Eof()) return std::nullopt;
    const auto text = [&](std::string_view field) {
        return (*lauf)[field].IsNull() ? std::string() : (*lauf)[field].Text();
    };
    Notiz notiz{text("Eingaben"), text("Ergebnis"), std::nullopt, text("Fehlertext")};
    if (!(*lauf)["Fehlernummer"].IsNull()) notiz.Fehlernummer = (*lauf)["Fehlernummer"].I4();
    return notiz;
}

LaufBefund Laufpruefung::Ergebnis(const store::Recordset& row) {
    const auto notiz = Lesen(row);
    // A row that is not the one noted came from somewhere else: the digest of its inputs says nothing of it.
    if (!notiz || notiz->Ergebnis.substr(0, notiz->Ergebnis.find(' ')) != DigestOfRow(row)) return {};
    return Befund(*notiz, row["ID"].I4());
}

LaufBefund Laufpruefung::Bewertung(const store::Recordset& row) {
    const auto notiz = Lesen(row);
    if (!notiz || !IsAssessment(notiz->Ergebnis)) return {};
    if (notiz->Ergebnis.substr(notiz->Ergebnis.find(' ') + 1) != DigestOfRow(row)) return {};
    return Befund(*notiz, row["ID"].I4());
}

LaufBefund Laufpruefung::Befund(const Notiz& notiz, std::int32_t ID_TR) {
    if (notiz.Fehlernummer) return {LaufStand::Incomplete, notiz.Fehlernummer, notiz.Fehlertext};
    const std::string inputs = IsAssessment(notiz.Ergebnis) ? Inputs(ID_TR, GroupOf(notiz.Eingaben))
                                                            : DigestOfInputs(*database_, ID_TR);
    return {inputs == notiz.Eingaben ? LaufStand::Current : LaufStand::OutOfDate, std::nullopt, {}};
}

std::string Laufpruefung::Inputs(std::int32_t ID_TR, const std::string& group) {
    try {
        if (!digests_) digests_.emplace(database_);
        if (!site_ || site_->ID_TR != ID_TR) {
            site_.reset();
            site_ = ReadAssessmentSite(database_, ID_TR);
            sample_ = digests_->OfSample(*site_);
        }
        return AssessmentInputs(sample_, digests_->OfReferences(*site_, group), group);
    } catch (const Error& error) {
        // The site cannot be assessed as it is now: whatever was assessed was another one.
        if (error.Number() != ErrorNumber::UnknownField) throw;
        return {};
    }
}

}  // namespace FX_Algen::cli
