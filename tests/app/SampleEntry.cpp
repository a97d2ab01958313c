#include "SampleEntry.h"

#include <algorithm>

#include "FX_Algen/Texts.h"
#include "FX_Algen/Value.h"

namespace FX_Algen::cli {

using rpc::Json;

void SampleEntry::Act(const std::string& control, const std::string& action, const Json& more) {
    ActOn(form_, control, action, more);
}

void SampleEntry::ActOn(const std::string& form, const std::string& control, const std::string& action,
                        const Json& more) {
    EXPECT_TRUE(talk_.Act(form, control, action, more))
        << form << "." << control << " " << action << " " << more << ": " << talk_.Reason();
}

std::string SampleEntry::Typed(double number) const {
    auto text = store::NumberText(number);
    if (language_ == 10000) std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::string SampleEntry::Head(std::int16_t number) const { return FX_Algen::Text(number, language_); }

void SampleEntry::Open(const std::string& path, const Json& members, const std::string& operation) {
    const auto database = talk_.Result("database.open", {{"path", path}})["database"];
    const auto object = talk_.Result("object.create", {{"class", "AL_PS"}})["object"];
    Json all{{"CurrentWS", {{"workspace", 1}}},
             {"CurrentDB", {{"database", database}}},
             {"SprachID", language_},
             {"DBName", path}};
    for (const auto& [name, value] : members.items()) all[name] = value;
    talk_.Result("object.set", {{"object", object}, {"members", all}});
    talk_.Result("object.call", {{"object", object}, {"operation", operation}});
    // An answer left over would meet another question.
    talk_.Result("dialog.answers", {{"answers", Json::array()}});
    const auto open = talk_.Result("form.list");
    ASSERT_EQ(open.size(), 1U) << open;
    form_ = open[0]["form"].get<std::string>();
}

void SampleEntry::OpenAlgae(const std::string& path, std::int32_t ID_TR, const std::string& PSBez) {
    talk_.Result("dialog.answers", {{"answers", {"Yes"}}});
    Open(path, {{"TeilraumID", ID_TR}, {"PSBez", PSBez}, {"CanEdit", true}, {"AnzeigeVersion40", true}},
         "Probenstelle_Show");
}

void SampleEntry::OpenSeston(const std::string& path, std::int32_t ID_TR) {
    talk_.Result("dialog.answers", {{"answers", {"Yes"}}});
    Open(path, {{"TeilraumID", ID_TR}}, "ProbenstelleSeston_Show");
}

void SampleEntry::Covers(const EnteredCovers& covers) {
    for (const auto& [field, number] : covers) Act(field, "set", {{"text", Typed(number)}});
}

namespace {

/// The first column with a head that reads so; none: -1.
int ColumnOf(const Json& grid, const std::string& head) {
    const int fixed = grid["fixedRows"].get<int>();
    for (int col = 0; col < grid["cols"].get<int>(); ++col) {
        for (int row = 0; row < fixed; ++row)
            if (grid["cells"][static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] == head)
                return col;
    }
    ADD_FAILURE() << "no column '" << head << "'";
    return -1;
}

/// The row below the heads whose cell in the column reads so; none: -1.
int RowOf(const Json& grid, int col, const std::string& text) {
    for (int row = grid["fixedRows"].get<int>(); row < grid["rows"].get<int>(); ++row)
        if (grid["cells"][static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] == text) return row;
    ADD_FAILURE() << "no row '" << text << "'";
    return -1;
}

}  // namespace

int SampleEntry::TaxonColumn(const std::string& head) { return ColumnOf(Taxa(), head); }

void SampleEntry::StandCell(const std::string& name, const std::string& head, const std::string& text) {
    const auto grid = talk_.Control(form_, "vsfgAlgenTL_MI");
    const int row = RowOf(grid, ColumnOf(grid, Head(2026)), name);
    Act("vsfgAlgenTL_MI", "cell", {{"row", row}, {"col", ColumnOf(grid, head)}, {"text", text}});
}

void SampleEntry::AddStand(const EnteredStand& stand) {
    Act("cmdAlgenMI_Hinzufuegen", "click");
    StandCell("<NEU>", Head(2026), stand.MI_Bez);
    StandCell(stand.MI_Bez, Head(2034), Typed(stand.DG_MI));
    StandCell(stand.MI_Bez, Head(2053), Typed(stand.DG_MI_WRRL));
    StandCell(stand.MI_Bez, Head(2035), Typed(stand.SD_MI));
    StandCell(stand.MI_Bez, Head(2036), Typed(stand.RF_MI));
}

void SampleEntry::PickTaxon(const std::string& Gattung, const std::string& Art) {
    Act("cmdArtNeu", "click");
    ActOn("frmArtAuswahl", "cboGattung", "set", {{"entry", Gattung}});
    ActOn("frmArtAuswahl", "cboArt", "set", {{"entry", Art}});
    ActOn("frmArtAuswahl", "cmdArtAuswahl(0)", "click");
}

void SampleEntry::TaxonCell(int row, const std::string& head, double number) {
    if (number == 0) return;
    Act("vsfgAlgenArt", "cell", {{"row", row}, {"col", TaxonColumn(head)}, {"text", Typed(number)}});
}

void SampleEntry::CheckCF(int row) {
    Act("vsfgAlgenArt", "cell", {{"row", row}, {"col", TaxonColumn(Head(2044))}, {"value", true}});
}

void SampleEntry::AddTaxon(const EnteredTaxon& taxon) {
    PickTaxon(taxon.Gattung, taxon.Art);
    // The picker leaves the cursor on the new taxon.
    const int row = Row();
    if (taxon.CF) CheckCF(row);
    TaxonCell(row, Head(2033), taxon.DG_MA);
    TaxonCell(row, Head(2038), taxon.SD_MA);
    for (const auto& share : taxon.Shares) TaxonCell(row, share.Stand, share.Percent);
    TaxonCell(row, Head(2024), taxon.Schalen_KA);
    TaxonCell(row, Head(2090), taxon.DG_MP);
}

void SampleEntry::AddSestonTaxon(const EnteredTaxon& taxon, double Abundanz, const std::string& Zusatz) {
    PickTaxon(taxon.Gattung, taxon.Art);
    const int row = Row();
    if (taxon.CF) CheckCF(row);
    TaxonCell(row, Head(2300), Abundanz);
    if (!Zusatz.empty())
        Act("vsfgAlgenArt", "cell", {{"row", row}, {"col", TaxonColumn(Head(2301))}, {"text", Zusatz}});
}

void SampleEntry::CloseSheet() {
    Act("cmdPrStelle(4)", "click");
    EXPECT_EQ(talk_.Result("form.list"), Json::array());
}

}  // namespace FX_Algen::cli
