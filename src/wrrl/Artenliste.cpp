// The frequency list of a scope: reads findings, covers and stands of each sub-habitat, has the cells
// computed, and writes the table.
#include "wrrl/Artenliste.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Error.h"
#include "calc/Abfragen.h"
#include "calc/Lesen.h"
#include "calc/Schritte.h"
#include "store/KeptRows.h"
#include "wrrl/ArtenlisteAbfragen.h"
#include "wrrl/ArtenlisteSpalte.h"
#include "wrrl/ArtenlisteTabelle.h"
#include "wrrl/Fortschrittsanzeige.h"

namespace FX_Algen {
namespace {

using namespace artenliste;
using store::NumberText;
using store::Value;

/// A sub-habitat of the scope with the covers of the variant in use.
struct Teilraum {
    std::int32_t ID_TR = 0;
    Value DG_Gesamt;
    Value DG_MA;
};

std::optional<double> Zahl(const Value& wert) {
    if (wert.IsNull()) return std::nullopt;
    return wert.R8();
}

/// Reads the rows of a statement; `lies` makes a row of the recordset's current one.
template <class Lies>
auto LiesAlle(store::Database& database, const std::string& abfrage, Lies lies) {
    std::vector<decltype(lies(std::declval<const store::Recordset&>()))> alle;
    const auto zeilen = database.OpenRecordset(abfrage);
    for (; !zeilen->Eof(); zeilen->MoveNext()) alle.push_back(lies(*zeilen));
    zeilen->Close();
    return alle;
}

/// Each sub-habitat once, in the order of the keys, however many sampling sites it has.
std::vector<Teilraum> LiesTeilraeume(const Listenauftrag& auftrag) {
    enum Felder : std::size_t { ID_TR, DG_Gesamt, DG_MA, DG_Gesamt_WRRL, DG_MA_WRRL };
    const bool wrrl = auftrag.IstWRRLBerechnung;
    auto alle = LiesAlle(calc::Vorhanden(auftrag.Datenbank, "Artenliste_Haeufigkeit"),
                         abfragen::Teilraeume(auftrag), [wrrl](const store::Recordset& zeile) {
                             return Teilraum{zeile[ID_TR].I4(), zeile[wrrl ? DG_Gesamt_WRRL : DG_Gesamt],
                                             zeile[wrrl ? DG_MA_WRRL : DG_MA]};
                         });
    const auto vor = [](const Teilraum& a, const Teilraum& b) { return a.ID_TR < b.ID_TR; };
    const auto gleich = [](const Teilraum& a, const Teilraum& b) { return a.ID_TR == b.ID_TR; };
    std::stable_sort(alle.begin(), alle.end(), vor);
    alle.erase(std::unique(alle.begin(), alle.end(), gleich), alle.end());
    return alle;
}

std::vector<Taxon> LiesTaxa(store::Database& database, const std::string& abfrage) {
    enum Felder : std::size_t { ID_Art, CF, RF_Kieselalge };
    return LiesAlle(database, abfrage, [](const store::Recordset& zeile) {
        // A flag takes any number other than 0 for true; a group without a position is no diatom.
        const auto& folge = zeile[RF_Kieselalge];
        return Taxon{zeile[ID_Art].I4(), zeile[CF].Bool(), !folge.IsNull() && folge.Bool()};
    });
}

/// Taxa of the scope. They are asked for again with each of its sub-habitats and cost a walk over all of its
/// findings, so they are kept while nothing changes. The condition of a selection may look at anything,
/// results included, and is asked each time.
Liste LeereListe(const Listenauftrag& auftrag, std::size_t spalten) {
    auto& db = *auftrag.Datenbank;
    const auto abfrage = abfragen::Taxa(auftrag);
    if (auftrag.AktUebersicht == "Rechenmanager") return {LiesTaxa(db, abfrage), spalten};
    const auto taxa = store::KeptRows<std::vector<Taxon>>(*db.SharedConnection(), abfrage,
                                                          [&] { return LiesTaxa(db, abfrage); });
    return {*taxa, spalten};
}

std::vector<Fund> LiesFunde(store::Database& database, std::int32_t ID_TR) {
    return LiesAlle(database, abfragen::Funde(ID_TR), [](const store::Recordset& zeile) {
        const auto& maAlsMi = zeile["MAalsMI"];
        return Fund{zeile["ID_PS"].I4(),  zeile["ID_ART"].I4(),
                    zeile["CF"].Bool(),   maAlsMi.IsNull() ? std::nullopt : std::optional(maAlsMi.Bool()),
                    Zahl(zeile["DG_MA"]), Zahl(zeile["Schalen_KA"])};
    });
}

std::vector<Bestand> LiesBestaende(store::Database& database, std::int32_t ID_TR, bool wrrl) {
    enum Felder : std::size_t { ID_TR_MI, DG_MI, DG_MI_WRRL };
    return LiesAlle(database, calc::abfragen::Bestaende(ID_TR), [wrrl](const store::Recordset& zeile) {
        return Bestand{zeile[ID_TR_MI].I4(), Zahl(zeile[wrrl ? DG_MI_WRRL : DG_MI])};
    });
}

std::vector<Bestandsart> LiesBestandsarten(store::Database& database, std::int32_t ID_TR) {
    enum Felder : std::size_t { ID_TR_MI, ID_Art, CF, DG_MI };
    return LiesAlle(database, abfragen::Bestandsarten(ID_TR), [](const store::Recordset& zeile) {
        return Bestandsart{zeile[ID_TR_MI].I4(), zeile[ID_Art].I4(), zeile[CF].Bool(), zeile[DG_MI].R8()};
    });
}

/// The sum of counted valves; none where it is Null.
std::optional<double> LiesSchalensumme(store::Database& database, std::int32_t ID_TR, bool wrrl) {
    const auto zeilen = database.OpenRecordset(calc::abfragen::Schalensumme(ID_TR, wrrl));
    const auto summe = zeilen->Eof() ? std::nullopt : Zahl((*zeilen)[std::size_t{0}]);
    zeilen->Close();
    return summe;
}

/// Where a taxon stands, for a finding that has no row in the list.
struct Einordnung {
    std::optional<std::int32_t> ID_GRGR;
    bool IstKA = false;
    bool HatWerte = false;
    bool Benthisch = false;
};

Einordnung LiesEinordnung(store::Database& database, std::int32_t ID_Art) {
    Einordnung ort;
    const auto gruppe = database.OpenRecordset(abfragen::Grossgruppe(ID_Art));
    if (!gruppe->Eof()) {
        const auto& folge = (*gruppe)["RF_Kieselalge"];
        ort.ID_GRGR = (*gruppe)["ID_GRGR"].I4();
        ort.IstKA = !folge.IsNull() && folge.Bool();
    }
    gruppe->Close();
    const auto werte = database.OpenRecordset(abfragen::Lebensform(ID_Art));
    ort.HatWerte = !werte->Eof();
    ort.Benthisch = ort.HatWerte && (*werte)[std::size_t{0}] == Value(1);
    werte->Close();
    return ort;
}

NotListed Grund(const Einordnung& ort, bool wrrl) {
    constexpr std::int32_t ersteFremde = 132;
    if (!ort.ID_GRGR) return NotListed::NoTaxonomy;
    if (!wrrl) return NotListed::OutOfScope;
    if (!ort.HatWerte) return NotListed::NoRatings;
    if (!ort.Benthisch) return NotListed::OtherLebensform;
    if (*ort.ID_GRGR >= ersteFremde) return NotListed::OtherMajorGroup;
    return NotListed::OutOfScope;
}

/// Shows the debug boxes of the findings and notes their road, where either is asked for.
class Zeuge final : public Beobachter {
public:
    Zeuge(const Listenauftrag& auftrag, FrequencyColumn* spur) : auftrag_(auftrag), spur_(spur) {}

    void Gesucht(const Fund& fund) override {
        if (auftrag_.DebugModus) calc::Meldung("strSQL: " + abfragen::Listenzeile(fund.ID_Art, fund.CF));
    }

    void NichtGelistet(const Fund& fund) override {
        if (spur_ == nullptr) return;
        const auto ort = LiesEinordnung(*auftrag_.Datenbank, fund.ID_Art);
        auto& eintrag = Eintrag(fund, ort.IstKA);
        eintrag.LeftOut = Grund(ort, auftrag_.IstWRRLBerechnung);
    }

    void Gerechnet(const Fund& fund, const Listenzeile& zeile, const Schritt& schritt) override {
        if (auftrag_.DebugModus && !zeile.IstKA) {
            if (schritt.Zugewiesen) calc::Meldung("Makro: " + NumberText(*schritt.Zugewiesen));
            if (schritt.Mischbestaende)
                calc::Meldung("Mikro: " + NumberText(schritt.Zelle) + " DG-MIGesamt" +
                              NumberText(schritt.DG_MIGesamt));
        }
        if (spur_ == nullptr) return;
        auto& eintrag = Eintrag(fund, zeile.IstKA);
        eintrag.Assigned = schritt.Zugewiesen;
        eintrag.FromStands = schritt.Anteile;
        eintrag.Cell = schritt.Zelle;
    }

private:
    ListedFinding& Eintrag(const Fund& fund, bool istKA) {
        auto& eintrag = spur_->Findings.emplace_back();
        eintrag.ID_PS = fund.ID_PS;
        eintrag.ID_ART = fund.ID_Art;
        eintrag.CF = fund.CF;
        eintrag.IsDiatom = istKA;
        eintrag.Abundance = istKA ? fund.Schalen_KA : fund.DG_MA;
        return eintrag;
    }

    const Listenauftrag& auftrag_;
    FrequencyColumn* spur_;
};

/// The sum of valves as it goes from sub-habitat to sub-habitat: where none counts, that of the one before
/// stays.
struct Schalensumme {
    double Wert = 0;
    bool Uebernommen = false;
    bool IstErste = true;

    void Weiter(std::optional<double> summe) {
        Uebernommen = !summe && !IstErste;
        Wert = summe.value_or(Wert);
        IstErste = false;
    }
};

/// One sub-habitat: its column of the list. False where a Null stopped it.
bool Spalte(const Listenauftrag& auftrag, const Teilraum& teilraum, Schalensumme& schalen, Liste& liste,
            std::size_t spalte, FrequencyColumn* spur) {
    auto& db = *auftrag.Datenbank;
    const bool wrrl = auftrag.IstWRRLBerechnung;
    if (spur != nullptr) *spur = {};

    Spaltendaten daten;
    schalen.Weiter(LiesSchalensumme(db, teilraum.ID_TR, wrrl));
    daten.Summe_KA = schalen.Wert;
    daten.DG_Gesamt = teilraum.DG_Gesamt.R4();
    const float DG_MA = teilraum.DG_MA.R4();
    if (spur != nullptr) {
        spur->ValveSum = schalen.Wert;
        spur->ValveSumCarried = schalen.Uebernommen;
        spur->DG_Gesamt = daten.DG_Gesamt;
        spur->DG_MA = DG_MA;
    }
    if (auftrag.DebugModus)
        calc::Meldung("TLR: " + NumberText(teilraum.ID_TR) + " DG-Gesamt: " + NumberText(daten.DG_Gesamt) +
                      " DG-MA: " + NumberText(DG_MA));

    daten.Funde = LiesFunde(db, teilraum.ID_TR);
    if (daten.DG_Gesamt > 0) {
        daten.Bestaende = LiesBestaende(db, teilraum.ID_TR, wrrl);
        daten.Bestandsarten = LiesBestandsarten(db, teilraum.ID_TR);
    }
    Zeuge zeuge(auftrag, spur);
    return SpalteFuellen(liste, spalte, daten, zeuge);
}

/// Fills column after column. False on a failure; what was computed until then counts.
bool Fuellen(const Listenauftrag& auftrag, const std::vector<Teilraum>& teilraeume, Liste& liste,
             const Fortschrittsanzeige& anzeige, FrequencyColumn* spur) try {
    Schalensumme schalen;
    for (std::size_t i = 0; i < teilraeume.size(); ++i) {
        if (!Spalte(auftrag, teilraeume[i], schalen, liste, i, spur)) return false;
        anzeige.Erledigt(i + 1, teilraeume.size());
    }
    return true;
} catch (const Error&) {
    return false;
}

/// Path by which the table is dropped and made.
std::string Pfad(const Listenauftrag& auftrag) {
    return auftrag.DBName.empty() && auftrag.Datenbank ? auftrag.Datenbank->Name() : auftrag.DBName;
}

/// Sub-habitats of the scope; none where they cannot be read.
std::optional<std::vector<Teilraum>> TeilraeumeOderKeine(const Listenauftrag& auftrag) try {
    return LiesTeilraeume(auftrag);
} catch (const Error&) {
    return std::nullopt;
}

bool Aufbauen(const Listenauftrag& auftrag, const Fortschrittsanzeige& anzeige, FrequencyColumn* spur) {
    const Listentabelle tabelle(Pfad(auftrag));
    // The condition of a selection may look at the list, and must not find the rows of the last call there.
    if (auftrag.AktUebersicht == "Rechenmanager" && !tabelle.NeuErstellen({})) return false;
    const auto teilraeume = TeilraeumeOderKeine(auftrag);
    std::vector<std::int32_t> schluessel;
    if (teilraeume)
        for (const auto& teilraum : *teilraeume) schluessel.push_back(teilraum.ID_TR);
    // The table is made with all of its columns at once, since each one added later costs as much as that.
    // Where the sub-habitats cannot be read, or there is none, it has the first four.
    if (!tabelle.NeuErstellen(schluessel)) return false;
    // In another database they would come on top of the rows of an older list.
    if (schluessel.empty() || !tabelle.LiegtIn(auftrag.Datenbank)) return false;

    auto liste = LeereListe(auftrag, schluessel.size());
    bool fertig = false;
    try {
        fertig = Fuellen(auftrag, *teilraeume, liste, anzeige, spur);
    } catch (...) {
        // A failure of the display leaves the call; the table stays as far as it got.
        Listentabelle::Schreiben(auftrag.Datenbank, liste, schluessel);
        throw;
    }
    Listentabelle::Schreiben(auftrag.Datenbank, liste, schluessel);
    return fertig;
}

}  // namespace

bool Artenliste_Haeufigkeit(const Listenauftrag& auftrag, FrequencyColumn* spur) {
    Fortschrittsanzeige anzeige;
    try {
        anzeige.Zeigen(auftrag.Balken);
        return Aufbauen(auftrag, anzeige, spur);
    } catch (const Error&) {
        return false;
    }
}

}  // namespace FX_Algen
