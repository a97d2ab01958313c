#pragma once

#include <string>
#include <vector>

#include "Dialogue.h"
#include "FX_Algen/Store.h"

namespace FX_Algen::cli {

/// A share of a taxon in a mixed stand.
struct EnteredShare {
    std::string Stand;
    double Percent = 0;
};

/// A taxon as it stands on a field sheet.
struct EnteredTaxon {
    std::string Gattung;
    std::string Art;
    bool CF = false;
    double DG_MA = 0, SD_MA = 0, Schalen_KA = 0, DG_MP = 0;
    std::vector<EnteredShare> Shares;
};

/// A mixed stand as it stands on a field sheet.
struct EnteredStand {
    std::string MI_Bez;
    double DG_MI = 0, DG_MI_WRRL = 0, SD_MI = 0, RF_MI = 0;
};

/// The covers of a sub-habitat: a field of the sheet, a number.
using EnteredCovers = std::vector<std::pair<std::string, double>>;

/// A person at the sheet of a sub-habitat: does what a person does, control by control, over the bridge. What
/// the sheet does not take is a failure of the test.
class SampleEntry {
public:
    /// `language`: 10000 or 20000; numbers are typed with its decimal mark.
    SampleEntry(Dialogue& talk, std::int16_t language) : talk_(talk), language_(language) {}

    /// Opens the database and the algae sheet of the sub-habitat, which is made there.
    void OpenAlgae(const std::string& path, std::int32_t ID_TR, const std::string& PSBez);
    /// The same with the seston sheet.
    void OpenSeston(const std::string& path, std::int32_t ID_TR);
    void Covers(const EnteredCovers& covers);
    void AddStand(const EnteredStand& stand);
    void AddTaxon(const EnteredTaxon& taxon);
    void AddSestonTaxon(const EnteredTaxon& taxon, double Abundanz, const std::string& Zusatz);
    /// Saves and closes the sheet with its own button.
    void CloseSheet();

    /// The number as a person types it in the language.
    std::string Typed(double number) const;
    /// The list of taxa.
    rpc::Json Taxa() { return talk_.Control(form_, "vsfgAlgenArt"); }
    const std::string& Form() const { return form_; }
    /// The row of the list in which the cursor stands.
    int Row() { return Taxa()["row"].get<int>(); }
    /// The text with the number in the language of the sheet, as heads of columns have it.
    std::string Head(std::int16_t number) const;
    /// The column of the list of taxa with the head.
    int TaxonColumn(const std::string& head);
    void Act(const std::string& control, const std::string& action,
             const rpc::Json& more = rpc::Json::object());
    void PickTaxon(const std::string& Gattung, const std::string& Art);

private:
    void Open(const std::string& path, const rpc::Json& members, const std::string& operation);
    void ActOn(const std::string& form, const std::string& control, const std::string& action,
               const rpc::Json& more = rpc::Json::object());
    void TaxonCell(int row, const std::string& head, double number);
    void StandCell(const std::string& name, const std::string& head, const std::string& text);
    void CheckCF(int row);

    Dialogue& talk_;
    std::int16_t language_;
    std::string form_;
};

}  // namespace FX_Algen::cli
