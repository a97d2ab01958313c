// Pre-check of an assessment: whether the reference tables hold the expected values that it needs.
#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/Summe32.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Nachschlag.h"
#include "wrrl/Referenzarten.h"
#include "wrrl/Schritte.h"

namespace FX_Algen {
namespace {

using wrrl::Aufruf;

std::string_view Gruppe(const store::DatabasePtr& database, const Aufruf& aufruf) {
    const auto taxa = store::Value(Taxazahl(database, aufruf.ID_TR, 8, true)).I4();
    wrrl::Kasten(aufruf, "lngTaxaArtNiveauNKA: ", store::NumberText(taxa));
    const auto abundanz = calc::Gerundet32(Abundanz_Summe(database, aufruf.ID_TR, 4));
    wrrl::Kasten(aufruf, "sngAbundanzArtNiveauNKA: ", store::NumberText(abundanz));
    // The first run of a sub-habitat is meant, whatever the host asks next.
    const auto gruppe = wrrl::Gruppentext(wrrl::Gruppengrund(false, abundanz, taxa));
    wrrl::Kasten(aufruf, "strGruppe: ", gruppe);
    return gruppe;
}

bool HatErwartetenWert(const Aufruf& aufruf, const wrrl::Bezugstabellen& tabellen, std::string_view gruppe,
                       const wrrl::Nachschlag& nachKlasse, std::string_view labelKlasse,
                       std::string_view labelWert) {
    wrrl::Kasten(aufruf, labelKlasse, nachKlasse.Anweisung);
    const auto klasse = wrrl::Nachschlagen(aufruf, nachKlasse, wrrl::KeineReferenzklasse(tabellen), nullptr);
    const auto nachWert = wrrl::NachErwartetemWert(tabellen, gruppe, klasse);
    wrrl::Kasten(aufruf, labelWert, nachWert.Anweisung);
    return wrrl::Vorhanden(aufruf.Datenbank, nachWert);
}

}  // namespace

bool Pruefung_Referenzwerte(const store::DatabasePtr& database, std::int32_t ID, std::int32_t BioregionID,
                            std::int16_t Hoehenstufe, bool DebugModus) try {
    constexpr std::string_view routine = "Pruefung_Referenzwerte";
    const Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, DebugModus, false};
    const auto gruppe = Gruppe(database, aufruf);
    const auto hatWert = [&](const wrrl::Bezugstabellen& tabellen, std::string_view labelKlasse,
                             std::string_view labelWert) {
        return HatErwartetenWert(aufruf, tabellen, gruppe,
                                 wrrl::NachReferenzklasse(tabellen, BioregionID, Hoehenstufe), labelKlasse,
                                 labelWert);
    };
    // All three are asked whatever the first ones answer: a host in debug mode sees every statement.
    const bool trophie = hatWert(wrrl::TrophieTabellen, "TGZK: ", "TI_EW: ");
    const bool saprobie = hatWert(wrrl::SaprobieTabellen, "SGZK: ", "SI_EW: ");
    const bool referenz = hatWert(wrrl::ReferenzTabellen, "Biotyp: ", "RI_EW: ");
    return trophie && saprobie && referenz;
} catch (const Error&) {
    return false;
}

}  // namespace FX_Algen
