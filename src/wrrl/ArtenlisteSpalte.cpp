// Cells of the frequency list. All of the arithmetic is that of 64-bit floats in the order in which the
// formulas are written; only the total cover came from a 32-bit one.
#include "wrrl/ArtenlisteSpalte.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace FX_Algen::artenliste {
namespace {

void Kieselalge(const Spaltendaten& daten, const Fund& fund, Schritt& schritt) {
    if (!(daten.Summe_KA > 0)) return;
    if (!fund.Schalen_KA) {
        schritt.Gescheitert = true;
        return;
    }
    schritt.Zugewiesen = *fund.Schalen_KA / daten.Summe_KA * 100;
    schritt.Zelle = *schritt.Zugewiesen;
}

void Bestandsanteile(const Spaltendaten& daten, const Fund& fund, Schritt& schritt) {
    const double gesamt = daten.DG_Gesamt;
    for (const auto& bestand : daten.Bestaende) {
        // The share of a stand is worked out before its taxa are looked at.
        if (!bestand.DG_MI) {
            schritt.Gescheitert = true;
            return;
        }
        const double anteil = *bestand.DG_MI / gesamt * 100;
        for (const auto& art : daten.Bestandsarten) {
            if (art.ID_TR_MI != bestand.ID_TR_MI || art.ID_Art != fund.ID_Art || art.CF != fund.CF) continue;
            const double dazu = art.DG_MI * anteil / 100;
            schritt.DG_MIGesamt += dazu;
            schritt.Anteile.push_back({bestand.ID_TR_MI, anteil, art.DG_MI, dazu});
        }
    }
    schritt.Mischbestaende = true;
    schritt.Zelle += schritt.DG_MIGesamt;
}

void AndereAlge(const Spaltendaten& daten, const Fund& fund, Schritt& schritt) {
    if (!(daten.DG_Gesamt > 0)) return;
    if (fund.DG_MA && *fund.DG_MA > 0) {
        schritt.Zugewiesen = *fund.DG_MA / daten.DG_Gesamt * 100;
        schritt.Zelle = *schritt.Zugewiesen;
    }
    Bestandsanteile(daten, fund, schritt);
}

std::pair<std::int32_t, bool> Schluessel(const Listenzeile& zeile) { return {zeile.ID_Art, zeile.CF}; }

}  // namespace

Schritt Fundschritt(const Spaltendaten& daten, const Fund& fund, bool IstKA, double zelle) {
    Schritt schritt;
    schritt.Zelle = zelle;
    if (IstKA)
        Kieselalge(daten, fund, schritt);
    else
        AndereAlge(daten, fund, schritt);
    if (schritt.Gescheitert) schritt.Zelle = zelle;
    return schritt;
}

Liste::Liste(const std::vector<Taxon>& taxa, std::size_t spalten)
    : spalten_(spalten), zellen_(taxa.size() * spalten, 0.0), folge_(taxa.size()) {
    zeilen_.reserve(taxa.size());
    for (const auto& taxon : taxa) zeilen_.push_back({taxon.ID_Art, taxon.CF, taxon.IstKA, false});
    std::iota(folge_.begin(), folge_.end(), std::size_t{0});
    std::stable_sort(folge_.begin(), folge_.end(), [this](std::size_t a, std::size_t b) {
        return Schluessel(zeilen_[a]) < Schluessel(zeilen_[b]);
    });
}

std::optional<std::size_t> Liste::Suchen(std::int32_t ID_Art, bool CF) const {
    const auto gesucht = std::pair(ID_Art, CF);
    const auto ort = std::lower_bound(folge_.begin(), folge_.end(), gesucht,
                                      [this](std::size_t zeile, const std::pair<std::int32_t, bool>& key) {
                                          return Schluessel(zeilen_[zeile]) < key;
                                      });
    if (ort == folge_.end() || Schluessel(zeilen_[*ort]) != gesucht) return std::nullopt;
    return *ort;
}

bool SpalteFuellen(Liste& liste, std::size_t spalte, const Spaltendaten& daten, Beobachter& beobachter) {
    for (const auto& fund : daten.Funde) {
        beobachter.Gesucht(fund);
        const auto ort = liste.Suchen(fund.ID_Art, fund.CF);
        if (!ort) {
            beobachter.NichtGelistet(fund);
            continue;
        }
        auto& zeile = liste.Zeile(*ort);
        auto& zelle = liste.Zelle(*ort, spalte);
        const auto schritt = Fundschritt(daten, fund, zeile.IstKA, zelle);
        beobachter.Gerechnet(fund, zeile, schritt);
        if (schritt.Gescheitert) return false;
        zeile.MAalsMI = fund.MAalsMI;
        zelle = schritt.Zelle;
    }
    return true;
}

}  // namespace FX_Algen::artenliste
