// Overall class of an assessment, from the classes that the three modules left in the row.
#include <optional>

#include "wrrl/Auswertung.h"
#include "wrrl/Gesamtklasse.h"
#include "wrrl/Nachschlag.h"
#include "wrrl/Schritte.h"

namespace FX_Algen {
namespace {

using wrrl::Klassenspalten;

std::string Zahl(std::int16_t zahl) { return store::NumberText(static_cast<std::int32_t>(zahl)); }

/// Name of a class; `ID_TR` is the sub-habitat that a failure tells.
std::string Name(store::Database& database, std::string_view routine, std::int16_t zahl,
                 std::optional<std::int32_t> ID_TR) {
    calc::NullStelle stelle;
    stelle.Tabelle = "awaWRRL_Klasse";
    stelle.Feld = "Bezeichnung";
    stelle.Schluessel = "Klassenzahl=" + Zahl(zahl);
    stelle.Anweisung = "SELECT * FROM awaWRRL_Klasse WHERE " + stelle.Schluessel + ";";
    const auto zeilen = database.OpenRecordset(stelle.Anweisung);
    std::string name = "n.v.";
    if (!zeilen->Eof()) {
        const auto& bezeichnung = (*zeilen)[stelle.Feld];
        if (bezeichnung.IsNull()) {
            if (ID_TR) calc::NullFehler({database, routine, *ID_TR}, stelle);
            throw calc::NullImWert(
                routine, "Invalid use of Null: awaWRRL_Klasse.Bezeichnung is Null for " + stelle.Schluessel,
                stelle);
        }
        name = bezeichnung.Text();
    }
    zeilen->Close();
    return name;
}

}  // namespace

std::string WRRL_Klassenname(const store::DatabasePtr& database, std::int16_t Klassenzahl) {
    constexpr std::string_view routine = "WRRL_Klassenname";
    return Name(calc::Vorhanden(database, routine), routine, Klassenzahl, std::nullopt);
}

void AuswertungWRRL_Gesamtbewertung(const store::DatabasePtr& database, std::int32_t ID, bool DebugModus,
                                    bool KAOnly, OverallTrace* spur) {
    constexpr std::string_view routine = "AuswertungWRRL_Gesamtbewertung";
    const wrrl::Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, DebugModus, KAOnly};
    OverallTrace eigen;
    OverallTrace& lauf = spur != nullptr ? *spur : eigen;
    lauf = {};

    const auto zeile = wrrl::Ergebniszeile(aufruf, "SpeichernTaxa: ");
    for (std::size_t i = 0; i < Klassenspalten.size(); ++i)
        lauf.Classes[i] = wrrl::Klassenspalte(aufruf, *zeile, std::string(Klassenspalten[i]));

    const auto schlechteste = wrrl::SchlechtesteKlasse(lauf.Classes);
    const std::string spalte(Klassenspalten[schlechteste.Modul]);
    lauf.WorstCase = lauf.OEZK = schlechteste.Klasse;
    lauf.Count = schlechteste.Anzahl;
    lauf.Deciding = static_cast<AssessmentModule>(schlechteste.Modul);
    const auto label = std::string(routine) + ": ";
    const auto mitID = label + store::NumberText(ID);
    wrrl::Kasten(aufruf, mitID + ", worstcase: ", Zahl(lauf.WorstCase));
    wrrl::Kasten(aufruf, mitID + ", Anzahl worstcase: ", Zahl(lauf.Count) + " / " + spalte);

    if (schlechteste.Anzahl == 1) {
        lauf.Raised = wrrl::Klassenspalte(aufruf, *zeile, spalte + "3");
        lauf.OEZK = wrrl::Abgemildert(schlechteste.Klasse, *lauf.Raised);
        lauf.Softened = lauf.OEZK != schlechteste.Klasse;
    }
    wrrl::Kasten(aufruf, label, Zahl(lauf.OEZK));

    const auto klassenname = [&](std::int16_t zahl) { return Name(aufruf.Datenbank, routine, zahl, ID); };
    zeile->Edit();
    zeile->Collect("OEZK", lauf.OEZK);
    lauf.OEZK_Klasse = klassenname(lauf.OEZK);
    zeile->Collect("OEZK_Klasse", lauf.OEZK_Klasse);
    for (std::size_t i = 0; i < Klassenspalten.size(); ++i) {
        lauf.ClassNames[i] = klassenname(lauf.Classes[i]);
        zeile->Collect(std::string(Klassenspalten[i]) + "_Klasse", lauf.ClassNames[i]);
    }
    zeile->Update();
    zeile->Close();
    lauf.Done = true;
}

}  // namespace FX_Algen
