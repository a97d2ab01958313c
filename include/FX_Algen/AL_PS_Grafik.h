#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Store.h"
#include "FX_Algen/Value.h"

namespace FX_Algen {

/// Statements, titles, colours and legends for charts that the host draws.
///
/// As with `AL_PS`, set members store and return, and a value stays until it is set again.
class AL_PS_Grafik {
public:
    /// The project database.
    void CurrentDB(store::DatabasePtr value) noexcept { kontext_.CurrentDB = std::move(value); }
    /// Language base: 10000 German, 20000 English; below 10000 counts as German.
    void SprachID(std::int16_t value) noexcept { kontext_.SprachID = value; }
    /// Path of the project database.
    void DBName(std::string value) noexcept { kontext_.DBName = std::move(value); }
    /// Identifier of the scope, by `AktUebersicht`.
    void ProjektID(std::int32_t value) noexcept { kontext_.ProjektID = value; }
    /// The sub-habitat (`ID_TR`) of the dominance chart.
    void TeilraumID(std::int32_t value) noexcept { kontext_.TeilraumID = value; }
    /// Scope: "Projekt", "UStelle" or "Rechenmanager".
    void AktUebersicht(std::string value) noexcept { kontext_.AktUebersicht = std::move(value); }
    /// Distribution chart: 1 saprobic valences, 2 taxa per quality class.
    void Grafik_Verteilungsart(std::int16_t value) noexcept { kontext_.Grafik_Verteilungsart = value; }
    /// Label of a site: 0 or 1 station, date and site; 2 the display name of the site.
    void Grafik_Stellenbez(std::int16_t value) noexcept { kontext_.Grafik_Stellenbez = value; }
    /// The statement that yields the rows of the chart.
    std::string Grafik_SQL() const { return ergebnis_.Grafik_SQL; }
    /// Title of the chart.
    std::string Grafik_Standardtitel() const { return ergebnis_.Grafik_Standardtitel; }
    /// Number of bars per site.
    std::int16_t Grafik_Balkenanzahl() const { return ergebnis_.Grafik_Balkenanzahl; }
    /// Number of lines of the legend.
    std::int16_t Grafik_Legendenzeilen() const { return ergebnis_.Grafik_Legendenzeilen; }
    /// Colour number of bar `tmpwert`, 1 to `Grafik_Balkenanzahl`. Fails with 381 outside.
    store::Value Grafik_Balkenfarbe(std::int16_t tmpwert) const {
        return Eintrag("Grafik_Balkenfarbe", ergebnis_.Grafik_Balkenfarbe, tmpwert);
    }
    /// Legend text of bar `tmpwert`. Fails with 381 outside.
    store::Value Grafik_Legendentext(std::int16_t tmpwert) const {
        return Eintrag("Grafik_Legendentext", ergebnis_.Grafik_Legendentext, tmpwert);
    }
    /// Whether bar `tmpwert` is drawn with a pattern. Fails with 381 outside.
    store::Value Grafik_Balkenmuster(std::int16_t tmpwert) const {
        return Eintrag("Grafik_Balkenmuster", ergebnis_.Grafik_Balkenmuster, tmpwert);
    }
    /// Colour number of the pattern of bar `tmpwert`, 0 without one. Fails with 381 outside.
    store::Value Grafik_Balkenmusterfarbe(std::int16_t tmpwert) const {
        return Eintrag("Grafik_Balkenmusterfarbe", ergebnis_.Grafik_Balkenmusterfarbe, tmpwert);
    }
    /// Dominance chart: 1 all but diatoms, 2 diatoms.
    void Grafik_Algenart(std::int16_t value) noexcept { kontext_.Grafik_Algenart = value; }
    /// Number of taxa in the last dominance chart that had any.
    std::int16_t Grafik_Artenanzahl() const { return ergebnis_.Grafik_Artenanzahl; }
    /// Only taxa above this relative abundance, in percent.
    void Grafik_MaxDomWert(float value) noexcept { kontext_.Grafik_MaxDomWert = value; }
    /// Whether the frequency list is rebuilt first.
    void Grafik_ArtDomBerechnen(bool value) noexcept { kontext_.Grafik_ArtDomBerechnen = value; }
    /// Word in front of the name of the site.
    std::string Grafik_Res_Stellenbez() const { return ergebnis_.Grafik_Res_Stellenbez; }
    /// Window handle of the host form that carries the status bar. 0 or less: no progress form is shown.
    void Pbar_SBFormhWnd(std::int32_t value) noexcept { kontext_.Pbar_SBFormhWnd = value; }
    /// Left edge of the progress form, in that form's units.
    void Pbar_SBLeft(float value) noexcept { kontext_.Pbar_SBLeft = value; }
    /// Top edge of the progress form.
    void Pbar_SBTop(float value) noexcept { kontext_.Pbar_SBTop = value; }
    /// Width of the progress form.
    void Pbar_SBWidth(float value) noexcept { kontext_.Pbar_SBWidth = value; }
    /// Height of the progress form.
    void Pbar_SBHeight(float value) noexcept { kontext_.Pbar_SBHeight = value; }
    /// Suppresses nothing: the frequency list does not act on it.
    void SilentModus(bool value) noexcept { kontext_.SilentModus = value; }
    /// Shows intermediate values of the frequency list in blocking boxes.
    void DebugModus(bool value) noexcept { kontext_.DebugModus = value; }
    /// Whether the frequency list is built from the covers and taxa of the assessment.
    void IstWRRLBerechnung(bool value) noexcept { kontext_.IstWRRLBerechnung = value; }

    /// Prepares the distribution chart that `Grafik_Verteilungsart` selects: `Grafik_SQL` yields a row for
    /// each sampling site marked for display with a result of its sub-habitat, with the label `Stelle` and
    /// the values `Wert1` to `Wert10` as the result table holds them (Null where it holds none; the text "0"
    /// beyond `Grafik_Balkenanzahl`); title, bars and legend go with it. A sub-habitat with two results has
    /// two rows a site. The statement is not opened: where `Grafik_Stellenbez` is none of its numbers, the
    /// store rejects it with 3075.
    ///
    /// Any other `Grafik_Verteilungsart` leaves all outputs as they were, and so does a failure: 326 where
    /// the string table has no text under `SprachID`, 6 where the numbers add up to more than 16 bits.
    void Grafik_Verteilung_Init();
    /// Prepares the dominance chart of `TeilraumID` for the group that `Grafik_Algenart` selects:
    /// `Grafik_SQL` yields the taxa above `Grafik_MaxDomWert` percent as `Taxa` and `Wert`, the most abundant
    /// last; a taxon noted with and without cf. comes twice. `Grafik_Artenanzahl` is their number and stays
    /// as it was where there is none.
    ///
    /// With `Grafik_ArtDomBerechnen` the frequency list of the scope is rebuilt first; else the one of an
    /// earlier call serves. All outputs stay as they were where the list cannot be built, for any other
    /// `Grafik_Algenart`, and on a failure: 3078 without a list, 3061 where the list has no column of the
    /// sub-habitat, 326 or 6 where a text is missing. Shows the progress form meanwhile.
    void Grafik_ArtenDom_Init();

private:
    using Liste = std::vector<store::Value>;

    /// What the host set.
    struct Kontext {
        store::DatabasePtr CurrentDB;
        std::int16_t SprachID = 0;
        std::string DBName;
        std::int32_t ProjektID = 0;
        std::int32_t TeilraumID = 0;
        std::string AktUebersicht;
        std::int16_t Grafik_Verteilungsart = 0;
        std::int16_t Grafik_Stellenbez = 0;
        std::int16_t Grafik_Algenart = 0;
        float Grafik_MaxDomWert = 0;
        bool Grafik_ArtDomBerechnen = false;
        std::int32_t Pbar_SBFormhWnd = 0;
        float Pbar_SBLeft = 0;
        float Pbar_SBTop = 0;
        float Pbar_SBWidth = 0;
        float Pbar_SBHeight = 0;
        bool SilentModus = false;
        bool DebugModus = false;
        bool IstWRRLBerechnung = false;
    };
    /// What operations leave behind for the host.
    struct Ergebnis {
        std::string Grafik_SQL;
        std::string Grafik_Standardtitel;
        std::int16_t Grafik_Balkenanzahl = 0;
        std::int16_t Grafik_Legendenzeilen = 0;
        Liste Grafik_Balkenfarbe;
        Liste Grafik_Legendentext;
        Liste Grafik_Balkenmuster;
        Liste Grafik_Balkenmusterfarbe;
        std::int16_t Grafik_Artenanzahl = 0;
        std::string Grafik_Res_Stellenbez;
    };

    void SprachID_Anheben() noexcept;
    static store::Value Eintrag(const char* member, const Liste& liste, std::int16_t tmpwert);

    Kontext kontext_;
    Ergebnis ergebnis_;
};

}  // namespace FX_Algen
