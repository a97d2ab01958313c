#include "fxalgen/record/Seston.h"

#include "fxalgen/record/Digest.h"
#include "fxalgen/record/Laufeintrag.h"

namespace FX_Algen::cli {

namespace {

constexpr std::string_view Findings =
    "FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS) "
    "LEFT JOIN sesArt ON sesArtPrStelle.ID_ART = sesArt.ID_ART ";

std::string OfTeilraum(std::int32_t ID_TR) {
    return std::string(Findings) + "WHERE sesPrStelle.ID_TR=" + store::NumberText(ID_TR);
}

store::RecordsetPtr RowOf(store::Database& database, std::string_view table, std::int32_t ID_TR) {
    return database.OpenRecordset("SELECT * FROM " + std::string(table) +
                                  " WHERE ID=" + store::NumberText(ID_TR) + ";");
}

/// Digest of the sub-habitat's result row; Null where it has none.
store::Value DigestOfResult(store::Database& database, std::int32_t ID_TR) {
    const auto row = RowOf(database, "sesErgProjekt", ID_TR);
    return row->Eof() ? store::Value() : store::Value(DigestOfRow(*row));
}

void Schreiben(store::Database& database, std::int32_t ID_TR, const Laufeintrag& eintrag) {
    const auto table = RowOf(database, "fx_LaufSeston", ID_TR);
    if (table->Eof()) {
        table->AddNew();
        table->Collect("ID", ID_TR);
    } else {
        table->Edit();
    }
    Eintragen(*table, eintrag);
}

LaufBefund Fehlschlag(const store::Recordset& note) {
    return {LaufStand::Incomplete, note["Fehlernummer"].I4(), note["Fehlertext"].Text()};
}

}  // namespace

std::set<std::int32_t> TeilraeumeMitSeston(store::Database& database) {
    std::set<std::int32_t> ids;
    const auto rows = database.OpenRecordset(
        "SELECT DISTINCT sesPrStelle.ID_TR FROM sesPrStelle INNER JOIN sesArtPrStelle "
        "ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS WHERE sesPrStelle.ID_TR Is Not Null;");
    for (; !rows->Eof(); rows->MoveNext()) ids.insert((*rows)["ID_TR"].I4());
    return ids;
}

bool IstSestonBeprobt(store::Database& database, std::int32_t ID_TR) {
    const auto any = [&](std::string_view table) {
        return !database
                    .OpenRecordset("SELECT ID_TR FROM " + std::string(table) +
                                   " WHERE ID_TR=" + store::NumberText(ID_TR) + ";")
                    ->Eof();
    };
    return any("sesPrStelle") || any("sesTeilraum");
}

std::optional<double> AnteilMitSaprobiewert(store::Database& database, std::int32_t ID_TR) {
    const auto rows =
        database.OpenRecordset("SELECT sesArtPrStelle.Abundanz, sesArt.W_SI " + OfTeilraum(ID_TR) +
                               " AND sesArtPrStelle.Abundanz>0 AND sesArt.ID_ART Is Not Null;");
    double all = 0;
    double rated = 0;
    for (; !rows->Eof(); rows->MoveNext()) {
        const double abundance = (*rows)["Abundanz"].R8();
        const store::Value& value = (*rows)["W_SI"];
        all += abundance;
        if (!value.IsNull() && value.R8() > 0) rated += abundance;
    }
    if (all == 0) return std::nullopt;
    return rated / all * 100;
}

std::string DigestOfSeston(store::Database& database, std::int32_t ID_TR) {
    Digest digest;
    AddRows(digest, database,
            "SELECT sesArtPrStelle.ID_PS, sesArtPrStelle.ID_ART, sesArtPrStelle.CF, sesArtPrStelle.Abundanz, "
            "sesArt.ID_ART AS HatTaxon, sesArt.W_SI, sesArt.W_O, sesArt.W_B, sesArt.W_A, sesArt.W_P " +
                OfTeilraum(ID_TR) +
                " ORDER BY sesArtPrStelle.ID_PS, sesArtPrStelle.ID_ART, sesArtPrStelle.CF;");
    return digest.Text();
}

void SestonLaufBeginnen(store::Database& database) { database.Execute("DELETE * FROM fx_LaufSeston;"); }

void SestonNotieren(store::Database& database, std::int32_t ID_TR, const std::string& inputs) {
    const store::Value ergebnis = DigestOfResult(database, ID_TR);
    if (!ergebnis.IsNull()) Schreiben(database, ID_TR, {inputs, ergebnis, {}, {}});
}

void SestonNotieren(store::Database& database, std::int32_t ID_TR, const Error& error) {
    Schreiben(database, ID_TR, {{}, DigestOfResult(database, ID_TR), error.Number(), error.Description()});
}

LaufBefund SestonBefund(store::Database& database, const store::Recordset& row) {
    const std::int32_t ID_TR = row["ID"].I4();
    const auto note = RowOf(database, "fx_LaufSeston", ID_TR);
    // A row that is not the one noted came from somewhere else: the digest of its inputs says nothing of it.
    if (note->Eof() || (*note)["Ergebnis"] != store::Value(DigestOfRow(row))) return {};
    if (!(*note)["Fehlernummer"].IsNull()) return Fehlschlag(*note);
    const bool same = (*note)["Eingaben"] == store::Value(DigestOfSeston(database, ID_TR));
    return {same ? LaufStand::Current : LaufStand::OutOfDate, std::nullopt, {}};
}

std::optional<LaufBefund> SestonFehlschlagOhneZeile(store::Database& database, std::int32_t ID_TR) {
    const auto note = RowOf(database, "fx_LaufSeston", ID_TR);
    if (note->Eof() || (*note)["Fehlernummer"].IsNull() || !(*note)["Ergebnis"].IsNull()) return std::nullopt;
    return Fehlschlag(*note);
}

}  // namespace FX_Algen::cli
