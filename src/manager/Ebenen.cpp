#include "manager/Ebenen.h"

#include <array>
#include <string>

#include "store/TextOrder.h"

namespace FX_Algen::manager {
namespace {

struct Form {
    Ebene Wert;
    std::string_view RechManEbene;
    std::string_view Tabelle;
    std::string_view Schluessel;
    std::string_view Abwaerts;  ///< condition that joins the next level
};

constexpr std::array<Form, 5> Formen = {{
    {Ebene::Projekt, "Projekt", "Projekt", "Projekt.ID_PRJ", "Projekt.ID_PRJ = Abschnitt.ID_PRJ"},
    {Ebene::Abschnitt, "Abschnitt", "Abschnitt", "Abschnitt.ID_AB", "Abschnitt.ID_AB = UnvUStelle.ID_AB"},
    {Ebene::UnvUStelle, "UnvU-Stelle", "UnvUStelle", "UnvUStelle.ID_UUS",
     "UnvUStelle.ID_UUS = VerUStelle.ID_UUS"},
    {Ebene::VerUStelle, "VerU-Stelle", "VerUStelle", "VerUStelle.ID_VUS",
     "VerUStelle.ID_VUS = Teilraum.ID_VUS"},
    {Ebene::Teilraum, "Teilraum", "Teilraum", "Teilraum.ID_TR", {}},
}};

const Form& FormVon(Ebene ebene) { return Formen[static_cast<std::size_t>(ebene)]; }

Ebene Darunter(Ebene ebene) { return Formen[static_cast<std::size_t>(ebene) + 1].Wert; }

Verbund Weiter(Verbund verbund, Ebene ebene) {
    for (; ebene != Ebene::Teilraum; ebene = Darunter(ebene))
        verbund = verbund.Mit(Tabelle(Darunter(ebene)), FormVon(ebene).Abwaerts);
    return verbund;
}

/// From `von` down to `ebene` with the members of the selections.
Verbund BisListe(Ebene von, Ebene ebene) {
    const Verbund kopf(Tabelle(von));
    if (von != ebene) return kopf.Mit(BisListe(Darunter(von), ebene), FormVon(von).Abwaerts);
    return kopf.Mit("RechenProjektListe", std::string(Schluessel(von)) + " = RechenProjektListe.ID_Ebene");
}

}  // namespace

std::string_view Tabelle(Ebene ebene) { return FormVon(ebene).Tabelle; }
std::string_view Schluessel(Ebene ebene) { return FormVon(ebene).Schluessel; }

std::optional<Ebene> EbeneDer(store::Database& database, std::int32_t ID_RechMan) {
    const auto zeile = database.OpenRecordset(
        "SELECT RechManEbene FROM RechenProjekt WHERE ID_RechMan=" + store::NumberText(ID_RechMan) + ";");
    const auto text = zeile->Eof() ? store::Value() : (*zeile)["RechManEbene"];
    zeile->Close();
    if (text.IsNull()) return std::nullopt;
    for (const auto& form : Formen) {
        if (store::CompareCaseBlind(form.RechManEbene, text.Text()) == 0) return form.Wert;
    }
    return std::nullopt;
}

Verbund Pfad(Ebene von) { return Weiter(Verbund(Tabelle(von)), von); }

Verbund PfadMitListe(Ebene von, Ebene ebene) { return Weiter(BisListe(von, ebene), ebene); }

Verbund ListeMit(const Verbund& teilraeume) {
    return Verbund("RechenProjektListe").Mit(teilraeume, "RechenProjektListe.ID_Ebene = Teilraum.ID_TR");
}

}  // namespace FX_Algen::manager
