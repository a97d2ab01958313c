// Reference species module: counts and sums from the frequency list, group and restriction of the assessment,
// and the class of the reference index.
#include <array>

#include "calc/Berechnung.h"
#include "calc/Summe32.h"
#include "store/Allgemein.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Nachschlag.h"
#include "wrrl/Referenzarten.h"
#include "wrrl/Referenzartenspur.h"
#include "wrrl/Schritte.h"
#include "wrrl/Verhaeltnis.h"

namespace FX_Algen {
namespace {

using wrrl::Aufruf;
using wrrl::Kasten;

constexpr std::int16_t ModusTaxaNKA = 8;
constexpr std::int16_t ModusAbundanzNKA = 4;
constexpr std::int16_t ModusSchalen = 11;

/// A column and the mode that gives its number.
struct Zaehlspalte {
    std::string_view Spalte;
    std::int16_t Modus;
    bool Referenzarten = false;  ///< the condition on the reference bioregions applies
};

constexpr std::array<Zaehlspalte, 6> Taxazahlen{{{"TaxazahlGesamt", 7},
                                                 {"TaxazahlArtniveau", 5},
                                                 {"TaxazahlRefart", 6, true},
                                                 {"TaxazahlGesamt_KA", 2},
                                                 {"TaxazahlArtniveau_KA", 9},
                                                 {"TaxazahlRefart_KA", 10, true}}};
constexpr std::array<Zaehlspalte, 6> Abundanzen{{{"AbundanzGesamt", 3},
                                                 {"AbundanzArtniveau", 1},
                                                 {"AbundanzRefart", 2, true},
                                                 {"AbundanzGesamt_KA", 7},
                                                 {"AbundanzArtniveau_KA", 5},
                                                 {"AbundanzRefart_KA", 6, true}}};

/// One call of the module on its row.
class Lauf {
public:
    Lauf(const store::DatabasePtr& database, const Aufruf& aufruf, std::string_view RefBioregion,
         ReferenceSpeciesTrace* spur)
        : database_(database), aufruf_(aufruf), RefBioregion_(RefBioregion), spur_(spur) {
        if (spur_ != nullptr) *spur_ = {};
        zeile_ = wrrl::Ergebniszeile(aufruf_, "SpeichernTaxa: ");
        zeile_->Edit();
    }

    /// Counts, sums, group and restriction; the row is updated.
    void Zaehlen() {
        for (const auto& spalte : Taxazahlen) {
            // The flag tells in the modes that read the findings alone: those of the assessment.
            Schreiben(spalte.Spalte,
                      Taxazahl(database_, aufruf_.ID_TR, spalte.Modus, true, Kriterium(spalte)));
        }
        for (const auto& spalte : Abundanzen)
            Schreiben(spalte.Spalte,
                      Abundanz_Summe(database_, aufruf_.ID_TR, spalte.Modus, Kriterium(spalte)));

        const auto taxaNKA = store::Value(Taxazahl(database_, aufruf_.ID_TR, ModusTaxaNKA, true)).I4();
        const auto abundanzNKA = calc::Gerundet32(Abundanz_Summe(database_, aufruf_.ID_TR, ModusAbundanzNKA));
        Notieren("TaxazahlArtniveauNKA", taxaNKA);
        Notieren("AbundanzArtniveauNKA", static_cast<double>(abundanzNKA));
        grund_ = wrrl::Gruppengrund(aufruf_.KAOnly, abundanzNKA, taxaNKA);
        Kasten(aufruf_, "strGruppe: ", Gruppe());

        Schreiben("KASchalenzahl", Taxazahl(database_, aufruf_.ID_TR, ModusSchalen, true));
        const auto abundanz = (*zeile_)["AbundanzArtniveau"].R8();
        const auto grenze = wrrl::Einschraenkungsgrenze(grund_);
        const bool bedingt = abundanz < grenze;
        Kasten(aufruf_, "bolBB: ", Allgemein::Bool_Text(bedingt));

        zeile_->Collect("TaxazahlArtniveauNKA", taxaNKA);
        zeile_->Collect("AbundanzArtniveauNKA", abundanzNKA);
        zeile_->Collect("Taxagruppe", Gruppe());
        zeile_->Collect("BedingtBewertbar", bedingt);
        // These values stay when the shares below cannot be computed.
        zeile_->Update();
        if (spur_ == nullptr) return;
        spur_->Reason = grund_;
        spur_->Taxagruppe = Gruppe();
        spur_->BedingtBewertbar = bedingt;
        spur_->RestrictionAbundance = abundanz;
        spur_->RestrictionBound = grenze;
        wrrl::NurFuerSpur(
            [&] { spur_->Taxa = wrrl::GezaehlteTaxa(aufruf_.Datenbank, aufruf_.ID_TR, RefBioregion_); });
    }

    /// Both shares of the reference species; the row is updated. Gives the reference index.
    float Anteile() {
        const auto zahlen = Referenzzahlen();
        const auto abundanz = wrrl::AbundanzTeil(grund_, zahlen);
        if (!abundanz) {
            const bool alle = grund_ == GroupReason::AllGroups;
            wrrl::DivisionDurchNull(aufruf_, alle ? "200 - (AbundanzGesamt - AbundanzArtniveau) is 0"
                                                  : "100 - (AbundanzGesamt_KA - AbundanzArtniveau_KA) is 0");
        }
        const auto anzahl = wrrl::AnzahlTeil(zahlen);
        zeile_->Edit();
        zeile_->Collect("RI_Abundanz", *abundanz);
        zeile_->Collect("RI_Anzahl", anzahl);
        zeile_->Update();
        const auto index = wrrl::Referenzindex(*abundanz, anzahl);
        if (spur_ != nullptr) {
            spur_->RI_Abundanz = *abundanz;
            spur_->RI_Anzahl = anzahl;
            spur_->Ratio.Index = index;
        }
        return index;
    }

    /// From the reference index to the classes; the row is updated.
    void Bewerten(float index, std::int32_t BioregionID, std::int16_t Hoehenstufe) {
        const auto& tabellen = wrrl::ReferenzTabellen;
        zeile_->Edit();
        const auto nachTyp = wrrl::NachReferenzklasse(tabellen, BioregionID, Hoehenstufe);
        Kasten(aufruf_, "Biotyp: ", nachTyp.Anweisung);
        const auto typ = wrrl::Nachschlagen(aufruf_, nachTyp, wrrl::KeineReferenzklasse(tabellen),
                                            spur_ != nullptr ? &spur_->Type : nullptr);

        const auto nachWert = wrrl::NachErwartetemWert(tabellen, Gruppe(), typ);
        Kasten(aufruf_, "RI_EW: ", nachWert.Anweisung);
        const auto erwartet =
            calc::Gerundet32(wrrl::Nachschlagen(aufruf_, nachWert, wrrl::KeinErwarteterWert,
                                                spur_ != nullptr ? &spur_->ExpectedValue : nullptr)
                                 .R8());
        if (spur_ != nullptr) spur_->Ratio.ExpectedValue = erwartet;

        const auto verhaeltnis = wrrl::AnteilAmErwarteten(index, erwartet);
        if (!verhaeltnis) {
            wrrl::DivisionDurchNull(aufruf_, "the expected value " + nachWert.Tabelle + "." +
                                                 nachWert.Spalte + " is 0 for " + nachWert.Bedingung);
        }
        const auto EQR = verhaeltnis->EQR;
        if (spur_ != nullptr) {
            spur_->Ratio.Unrounded = verhaeltnis->Ungerundet;
            spur_->Ratio.BeforeCap = verhaeltnis->Gerundet;
            spur_->Ratio.EQR = EQR;
            wrrl::NurFuerSpur([&] {
                spur_->Ratio.AllBounds = wrrl::AlleGrenzen(aufruf_.Datenbank, tabellen, Gruppe(), typ);
            });
        }

        const auto nachOEZK = wrrl::NachKlasse(tabellen, Gruppe(), typ, EQR);
        Kasten(aufruf_, "OEZK: ", nachOEZK.Anweisung);
        const auto OEZK = wrrl::KlasseNachschlagen(aufruf_, nachOEZK, EQR,
                                                   spur_ != nullptr ? &spur_->Ratio.Class : nullptr);
        zeile_->Collect("Bioregionstyp", typ);
        zeile_->Collect("RI_EW", erwartet);
        zeile_->Collect("RI_EQR", EQR);
        zeile_->Collect("RI_OEZK", OEZK);

        const auto angehoben = wrrl::Angehoben(EQR);
        const auto nachOEZK3 = wrrl::NachKlasse(tabellen, Gruppe(), typ, angehoben);
        Kasten(aufruf_, "OEZK3: ", nachOEZK3.Anweisung);
        zeile_->Collect("RI_OEZK3",
                        wrrl::KlasseNachschlagen(aufruf_, nachOEZK3, angehoben,
                                                 spur_ != nullptr ? &spur_->Ratio.Raised : nullptr));
        zeile_->Update();
        zeile_->Close();
        if (spur_ != nullptr) spur_->Done = true;
    }

    std::string Gruppe() const { return std::string(wrrl::Gruppentext(grund_)); }

private:
    std::string_view Kriterium(const Zaehlspalte& spalte) const {
        return spalte.Referenzarten ? RefBioregion_ : std::string_view();
    }
    void Notieren(std::string_view spalte, double ergebnis) {
        if (spur_ != nullptr) spur_->Counts.push_back({std::string(spalte), ergebnis});
    }
    void Schreiben(std::string_view spalte, double ergebnis) {
        zeile_->Collect(spalte, ergebnis);
        Notieren(spalte, ergebnis);
    }
    wrrl::Referenzzahlen Referenzzahlen() const {
        const std::string_view endung = grund_ == GroupReason::AllGroups ? "" : "_KA";
        const auto wert = [&](std::string_view spalte) {
            return (*zeile_)[std::string(spalte).append(endung)].R8();
        };
        return {wert("AbundanzRefart"), wert("AbundanzGesamt"), wert("AbundanzArtniveau"),
                wert("TaxazahlRefart"), wert("TaxazahlArtniveau")};
    }

    const store::DatabasePtr& database_;
    const Aufruf& aufruf_;
    std::string_view RefBioregion_;
    ReferenceSpeciesTrace* spur_;
    store::RecordsetPtr zeile_;
    GroupReason grund_ = GroupReason::DiatomsAsked;
};

}  // namespace

std::string AuswertungWRRL_Referenzarten(const store::DatabasePtr& database, std::int32_t ID,
                                         std::int32_t BioregionID, std::int16_t Hoehenstufe,
                                         std::string_view RefBioregion, bool DebugModus, bool KAOnly,
                                         ReferenceSpeciesTrace* spur) {
    constexpr std::string_view routine = "AuswertungWRRL_Referenzarten";
    const Aufruf aufruf{{calc::Vorhanden(database, routine), routine, ID}, DebugModus, KAOnly};
    Lauf lauf(database, aufruf, RefBioregion, spur);
    lauf.Zaehlen();
    const auto index = lauf.Anteile();
    lauf.Bewerten(index, BioregionID, Hoehenstufe);
    return lauf.Gruppe();
}

}  // namespace FX_Algen
