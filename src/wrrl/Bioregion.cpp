#include "wrrl/Bioregion.h"

#include <vector>

#include "calc/Lesen.h"
#include "store/Allgemein.h"

namespace FX_Algen {
namespace {

constexpr std::string_view Trenner = ", ";

std::string OhneBlanks(const std::string& text) {
    const auto erstes = text.find_first_not_of(' ');
    if (erstes == std::string::npos) return {};
    return text.substr(erstes, text.find_last_not_of(' ') - erstes + 1);
}

/// The `Kurzzeichen` of an element: without the digit of its altitude step.
std::string OhneZiffer(const std::string& element) {
    const bool ziffer = !element.empty() && element.back() >= '0' && element.back() <= '9';
    return ziffer ? element.substr(0, element.size() - 1) : element;
}

std::string Name(const store::Value& bezeichnung) {
    return bezeichnung.IsNull() ? std::string() : bezeichnung.Text();
}

}  // namespace

std::string GetBioregion_Kurzzeichen(const store::DatabasePtr& database, std::string_view RefBioregionen) {
    auto& db = calc::Vorhanden(database, "GetBioregion_Kurzzeichen");
    std::vector<std::string> elemente;
    if (Allgemein::Liste_Teilen(RefBioregionen, ",", Allgemein::Vergleich::Binaer, elemente) < 1) return {};
    const auto bioregionen =
        db.OpenRecordset("SELECT Bezeichnung, Kurzzeichen FROM AL_Bioregion WHERE Kurzzeichen <>'';");
    std::string liste;
    for (const auto& stueck : elemente) {
        const auto element = OhneBlanks(stueck);
        bioregionen->FindFirst("Kurzzeichen='" + OhneZiffer(element) + "'");
        const bool gefunden = !bioregionen->NoMatch();
        liste += gefunden ? Name((*bioregionen)["Bezeichnung"]) + " (" + element + ")" : element;
        liste += Trenner;
    }
    bioregionen->Close();
    return liste.substr(0, liste.size() - Trenner.size());
}

}  // namespace FX_Algen
