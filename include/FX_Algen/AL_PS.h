#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "FX_Algen/Store.h"
#include "FX_Algen/Value.h"

namespace FX_Algen {

/// Calculation, assessment, sheets, reports and exports of algae samples.
///
/// A host sets its context into an instance and calls one operation at a time. Set members store and
/// return, nothing is checked before an operation uses it, and a value stays until it is set again: the
/// instance never forgets. Results come back in rows of the shared database, in get members of the same
/// instance, or as a return value. Failures are thrown as `Error`; rows written until then stay. Before an
/// operation begins, the sheets that are open save their rows.
///
/// Order of calls: always `CurrentDB`, then `SprachID`. For the calculation set `IstWRRLBerechnung`,
/// `ValenzGewicht` and `DebugModus`, call `Berechnung_Init` once, then for each sub-habitat set
/// `TeilraumID` and call `Berechnung_Execute`. For the assessment set `AktUebersicht` and `ProjektID`
/// besides, call `Berechnung_WRRLInit` once, then for each sub-habitat set `TeilraumID`, `BioregionID`,
/// `Hoehenstufe`, `RefBioregion` and call `Berechnung_WRRL` with `KAOnly` false and, where wanted, again with
/// `KAOnly` true. Calls on one thread must not overlap.
class AL_PS {
public:
    // ---- context and flags, set by the host -------------------------------------------------------------

    /// Workspace; handed to the sheets.
    void CurrentWS(store::WorkspacePtr value) noexcept { kontext_.CurrentWS = std::move(value); }
    /// The project database: all tables of projects, samples, catalogue, results and reference data.
    /// Used by nearly every operation; to be set first.
    void CurrentDB(store::DatabasePtr value) noexcept { kontext_.CurrentDB = std::move(value); }
    /// Path of that database; handed to sheets and to the frequency list.
    void DBName(std::string value) noexcept { kontext_.DBName = std::move(value); }
    /// Language base: 10000 German, 20000 English. An operation that needs a text raises a value below
    /// 10000 to 10000, and that stays, so a host that never sets a language gets German.
    void SprachID(std::int16_t value) noexcept { kontext_.SprachID = value; }
    /// Window handle of the host's main window, issued by the display port; 0 = none. Sheets are its
    /// children.
    void FX_MainWnd(std::int32_t value) noexcept { kontext_.FX_MainWnd = value; }
    /// The current sub-habitat (`ID_TR`), the unit of calculation. `Get_WRRLErgRecordset` reads it as
    /// `ID_VUS` where `WRRLErgAuswahlAnzeige` is 2 and `IstWRRLBerechnung` false.
    void TeilraumID(std::int32_t value) noexcept { kontext_.TeilraumID = value; }
    /// Identifier of the current scope; its meaning follows `AktUebersicht`.
    void ProjektID(std::int32_t value) noexcept { kontext_.ProjektID = value; }
    /// Scope of overviews: "Projekt" (`ProjektID` is `Abschnitt.ID_PRJ`), "UStelle" (`VerUStelle.ID_UUS`) or
    /// "Rechenmanager" (an `ID_RechMan`). With any other text the operations over a scope build no query.
    void AktUebersicht(std::string value) noexcept { kontext_.AktUebersicht = std::move(value); }
    /// Text appended as it stands to the WHERE clause of scope queries; narrows which taxa are counted and
    /// listed, never the index calculation.
    void TaxaAuswahl(std::string value) noexcept { kontext_.TaxaAuswahl = std::move(value); }
    /// Name of the calculation-manager selection, printed in heads of reports and exports.
    void RechPrjName(std::string value) noexcept { kontext_.RechPrjName = std::move(value); }
    /// Shows intermediate values in blocking boxes. Never to be set in unattended runs with a display that
    /// waits for a person.
    void DebugModus(bool value) noexcept { kontext_.DebugModus = value; }
    /// Handed to the frequency list. Suppresses no message and no debug box.
    void SilentModus(bool value) noexcept { kontext_.SilentModus = value; }
    /// Handed to the saprobic and seston calculation; changes no result.
    void ValenzGewicht(bool value) noexcept { kontext_.ValenzGewicht = value; }
    /// Selects the assessment variant of the calculation; written to `awaErgProjekt.IstWRRL`.
    void IstWRRLBerechnung(bool value) noexcept { kontext_.IstWRRLBerechnung = value; }
    /// Read by `Berechnung_WRRL` alone: calculate from counted diatom valves only.
    void KAOnly(bool value) noexcept { kontext_.KAOnly = value; }
    /// Read by the taxa list exports of a sub-habitat.
    void IstWGEV07(bool value) noexcept { kontext_.IstWGEV07 = value; }
    /// Bioregion of the site, for `Berechnung_WRRL` and `Pruefung_WRRL`.
    void BioregionID(std::int32_t value) noexcept { kontext_.BioregionID = value; }
    /// Altitude step of the site, for the same.
    void Hoehenstufe(std::int16_t value) noexcept { kontext_.Hoehenstufe = value; }
    /// Condition over the columns of `awaRefArt_TypB` for `Berechnung_WRRL`, empty for none; kept in
    /// `awaErgWRRL.SQL_RefBioregion` and used by `SetReport_TaxalisteWRRL`.
    void RefBioregion(std::string value) noexcept { kontext_.RefBioregion = std::move(value); }
    /// Display mode 0 to 3 of `Get_WRRLErgRecordset`.
    void WRRLErgAuswahlAnzeige(std::int16_t value) noexcept { kontext_.WRRLErgAuswahlAnzeige = value; }
    /// Catalogue id of the sister assessment system; handed to the sheets.
    void QOVAKatalogID(std::int16_t value) noexcept { kontext_.QOVAKatalogID = value; }
    /// Name of the current user; handed to the sheets.
    void AktBenutzer(std::string value) noexcept { kontext_.AktBenutzer = std::move(value); }
    /// Label of the sampling site; handed to the algae sheet.
    void PSBez(std::string value) noexcept { kontext_.PSBez = std::move(value); }
    /// Whether the algae sheet may change data.
    void CanEdit(bool value) noexcept { kontext_.CanEdit = value; }
    /// Handed to the algae sheet; in the evaluation report it selects `awaAuswertung_IndicesV40.rpt`.
    void AnzeigeVersion40(bool value) noexcept { kontext_.AnzeigeVersion40 = value; }
    /// Another form of the query in the overall taxa list report and export.
    void TLmitGG(bool value) noexcept { kontext_.TLmitGG = value; }
    /// Restricts frequency list and assessment export to sub-habitats that are marked for display.
    void USTAuswahl(bool value) noexcept { kontext_.USTAuswahl = value; }
    /// The report database, which holds the `rpt_*` tables.
    void ReportDB(store::DatabasePtr value) noexcept { kontext_.ReportDB = std::move(value); }
    /// Stored; read by no operation.
    void ProjektDB(store::DatabasePtr value) noexcept { kontext_.ProjektDB = std::move(value); }
    /// Path of the report database.
    void ReportDBName(std::string value) noexcept { kontext_.ReportDBName = std::move(value); }
    /// Selects the evaluation report, 0 to 11.
    void ReportIndex(std::int16_t value) noexcept { kontext_.ReportIndex = value; }
    /// Folder for spreadsheet exports.
    void ExportPfad(std::string value) noexcept { kontext_.ExportPfad = std::move(value); }
    /// Stored; read by no operation.
    void ExtensionWord(std::string value) noexcept { kontext_.ExtensionWord = std::move(value); }
    /// File extension of spreadsheet exports.
    void ExtensionExcel(std::string value) noexcept { kontext_.ExtensionExcel = std::move(value); }
    /// Select list of the pivot exports.
    void ExportInfo_PivotSelect(std::string value) noexcept {
        kontext_.ExportInfo_PivotSelect = std::move(value);
    }
    /// GROUP BY list of the pivot exports.
    void ExportInfo_PivotGroup(std::string value) noexcept {
        kontext_.ExportInfo_PivotGroup = std::move(value);
    }
    /// ORDER BY list of the pivot exports.
    void ExportInfo_PivotOrder(std::string value) noexcept {
        kontext_.ExportInfo_PivotOrder = std::move(value);
    }
    /// First heading of exports.
    void ExportInfo_Ueberschrift1(std::string value) noexcept {
        kontext_.ExportInfo_Ueberschrift1 = std::move(value);
    }
    /// Second heading of exports.
    void ExportInfo_Ueberschrift2(std::string value) noexcept {
        kontext_.ExportInfo_Ueberschrift2 = std::move(value);
    }
    /// Extra columns of exports, comma separated.
    void ExportInfo_Zusatzspalten(std::string value) noexcept {
        kontext_.ExportInfo_Zusatzspalten = std::move(value);
    }
    /// String number, without the language, for `Get_ResString`.
    void ResID(std::int16_t value) noexcept { kontext_.ResID = value; }
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

    // ---- read back by the host ------------------------------------------------------------------------

    /// Heading to show while looping over the sub-habitats: set by `Berechnung_Init`,
    /// `Berechnung_InitSeston` and `Berechnung_WRRLInit`, and by nothing else.
    std::string Berechnung_Statustext() const { return ergebnis_.Berechnung_Statustext; }
    /// File name of the report template, from the report operations.
    std::string ReportName() const { return ergebnis_.ReportName; }
    /// Title of the report window, from the same.
    std::string ReportCaption() const { return ergebnis_.ReportCaption; }
    /// Name of the label table of that report.
    std::string ReportLblTabelle() const { return ergebnis_.ReportLblTabelle; }
    /// Name of the table with its string numbers.
    std::string ReportResTabelle() const { return ergebnis_.ReportResTabelle; }
    /// Name of its data table.
    std::string ReportDataTabelle() const { return ergebnis_.ReportDataTabelle; }
    /// Outcome of the last `Export_*` operation, or the verdict of `Pruefung_WRRL`.
    bool ExportIsOK() const { return ergebnis_.ExportIsOK; }
    /// Text found by `Get_ResString`.
    std::string ResString() const { return ergebnis_.ResString; }
    /// Version found by `Get_Version`.
    std::string Version() const { return ergebnis_.Version; }
    /// Result opened by `Get_WRRLErgRecordset`; none before.
    store::RecordsetPtr WRRLErgRecordset() const { return ergebnis_.WRRLErgRecordset; }

    // ---- operations -----------------------------------------------------------------------------------

    /// Shows the algae sampling-site sheet of `TeilraumID` as a child of `FX_MainWnd` and returns at once; the
    /// sheet lives on and writes to the database by itself. A sub-habitat without sampling site asks whether
    /// to create it; where the person does not want that, no sheet stays open and the call does not fail. The
    /// sheet is open once on a thread: a second call saves it and gives it the sub-habitat of this one; where
    /// it cannot be saved, it stays as it is and comes to the front. Fails with 3343 without a database, and
    /// with what the store answers while the site is read.
    void Probenstelle_Show();
    /// The same with the seston sheet, which takes no `PSBez`, `CanEdit` and `AnzeigeVersion40`.
    void ProbenstelleSeston_Show();
    /// Saves and closes the algae sheet; nothing where none is open. Where it cannot be saved, the person is
    /// asked whether to close it without.
    void Probenstelle_Unload();
    /// Calculates the indices of `TeilraumID` into its row of `awaErgProjekt`. A sub-habitat without a row in
    /// `awaTeilraum` is not calculated and leaves no row. Fails with 3022 where the sub-habitat was
    /// calculated since the last `Berechnung_Init`, with 94 on a Null in the arithmetic; the row then stays
    /// as far as it is filled.
    void Berechnung_Execute();
    /// Calculates the seston indices of `TeilraumID` into its row of `sesErgProjekt`; without findings the row
    /// holds zeros. Fails with 3022 where the sub-habitat was calculated since the last
    /// `Berechnung_InitSeston`, with 94 on a Null in the arithmetic, with 6 where a sum leaves its range; the
    /// row then stays with its key only.
    void Berechnung_ExecuteSeston();
    /// Empties `awaErgProjekt` and sets `Berechnung_Statustext`. To be called once before a run.
    void Berechnung_Init();
    /// Empties `sesErgProjekt` and sets `Berechnung_Statustext`. To be called once before a seston run.
    void Berechnung_InitSeston();
    /// Whether the assessment holds a diatom-only result already: true or false. The argument is ignored, the
    /// answer is that for `TeilraumID`.
    store::Value CheckIstKA(std::int32_t lngID_TLR);
    /// Assesses the ecological status of `TeilraumID` into its rows (`ID`, `KAOnly`) of `awaErgProjekt` and
    /// `awaErgWRRL`: rebuilds the frequency list, calculates saprobic and trophic index in the variant of
    /// `IstWRRLBerechnung`, rates the reference species, the trophic and the saprobic index against the
    /// values expected at `BioregionID` and `Hoehenstufe`, and takes the worst class. `RefBioregion` is a
    /// condition over the columns of `awaRefArt_TypB`, empty for none.
    ///
    /// To be called once with `KAOnly` false and, where it is wanted, once more with `KAOnly` true, which
    /// adds the assessment of the diatoms alone, unless the first call came to it already. Does nothing for a
    /// sub-habitat without row in `awaTeilraum`. A missing reference row is no failure: its marker is stored
    /// ("-", -1). Fails with 3022 where the rows exist, with 94 where a value is Null that the arithmetic
    /// needs, with 11 where a divisor is 0, and with 3075 where `RefBioregion` holds a quote; what was
    /// written until then stays.
    void Berechnung_WRRL();
    /// Empties `awaErgProjekt` and `awaErgWRRL` and sets `Berechnung_Statustext`, the same heading as of
    /// `Berechnung_Init`. To be called once before a loop of assessments.
    void Berechnung_WRRLInit();
    /// Rebuilds the frequency list `awaArtenlisteHaeufigkeit` of the scope (`AktUebersicht`, `ProjektID`,
    /// `USTAuswahl`): a row for each taxon, a column `A<ID_TR>` for each sub-habitat that has covers and a
    /// sampling site, in the cells the relative abundance in percent. With `IstWRRLBerechnung` from the
    /// covers and taxa of the assessment. `DBName` is the path by which the table is dropped and made; empty:
    /// that of `CurrentDB`. Shows the progress form meanwhile. A failure is not told: the table then stays as
    /// far as it got, and where it cannot be dropped or made a box says so.
    void Berechnung_WRRLArtenliste();
    /// The same with the column of `TeilraumID` alone where `AktUebersicht` is "Projekt"; the rows are the
    /// taxa of the whole scope even so. With another scope like `Berechnung_WRRLArtenliste`.
    void Berechnung_WRRLArtenlisteTLR();
    /// Looks up the text with number `ResID` + `SprachID` and stores it in `ResString`. Fails with 6 where
    /// the sum exceeds 16 bits and with 326 where there is no such text.
    void Get_ResString();
    /// Stores the version of the module in `Version`: "<major>.<minor>-<letter>", the letter a for revision
    /// 0, b for 1 and so on.
    void Get_Version();
    /// Fills the tables of the evaluation report that `ReportIndex` selects. Fails with 445.
    void SetReportData_Auswertung();
    /// Exports the overall taxa list with frequencies. Fails with 445.
    void Export_Taxaliste_GesamtHaeuf();
    /// Exports the overall taxa list. Fails with 445.
    void Export_Taxaliste_Gesamt();
    /// Exports the taxa list of a sub-habitat. Fails with 445.
    void Export_Taxaliste_TLR();
    /// Frequency value of one taxon at one site. The three last arguments take the results. Fails with 445.
    bool Export_TLG_Taxadaten(std::int16_t intID_Art, std::int32_t lngID_PS, std::int32_t lngID_TR,
                              bool bolCF, std::int16_t intAlgenart, float sngDG_G, std::int16_t intSummeKA,
                              double& dblAbundanz, double& dblDominanz, double& dblMP);
    /// Number of taxa in the findings over a comma-separated list of `ID_TR`. A taxon counts once, with and
    /// without `CF`; mixed stands do not count. 0 where nothing was found. Fails with 3075 on an empty list,
    /// with 6 above 32767 taxa.
    std::int16_t GesamttaxazahlTLR(const std::string& strSQL_TLR);
    /// Number of taxa in the findings of the scope, counted in the same way. `TaxaAuswahl` narrows "Projekt"
    /// and "UStelle" and may name tables from `Abschnitt` (`VerUStelle`) down to `awaArtPrStelle`. A stored
    /// selection counts where there are covers. Fails with 3075 where `AktUebersicht` is no scope or there is
    /// no stored selection with a level and a condition.
    std::int16_t Gesamttaxazahl();
    /// Number of seston taxa of the scope, in the same way down to `sesArtPrStelle`, with or without covers.
    /// A stored selection of visits ("VerU-Stelle") fails with 3061.
    std::int16_t GesamttaxazahlSeston();
    /// Exports the dominances of the scope. Fails with 445.
    void Export_ArtDom();
    /// Exports the evaluation. Fails with 445.
    void Export_Auswertung();
    /// Exports the saprobic valences. Fails with 445.
    void Export_Auswertung_Sap();
    /// Exports the numbers of taxa by quality class. Fails with 445.
    void Export_Auswertung_SapAnzahl();
    /// Exports the assessment. Fails with 445.
    void Export_Auswertung_WRRL();
    /// Exports the evaluation after Wegl. Fails with 445.
    void Export_Auswertung_Wegl();
    /// Exports the seston evaluation. Fails with 445.
    void Export_Auswertung_Seston();
    /// Translates the labels of the report prepared last. Fails with 445.
    void SetReport_Label();
    /// Prepares the overall taxa list report. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteGesamt();
    /// Prepares the overall taxa list report with frequencies. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteGesamtHaeuf();
    /// Prepares the overall seston taxa list report. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteGesamtSeston();
    /// Prepares the report of seston taxa with ratings. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteEinstufungSeston();
    /// Prepares the taxa list report of a sub-habitat. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteTLR();
    /// Prepares the macroalgae report. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteMakroalgen();
    /// Prepares the taxa list report of the assessment. The result may be Null. Fails with 445.
    store::Value SetReport_TaxalisteWRRL();
    /// Puts the number of taxa of a sub-habitat into the labels. Fails with 445.
    bool SetReportTLRTaxazahl();
    /// Puts the number of taxa of the scope into the labels. Fails with 445.
    bool SetReportGesamtTaxazahl();
    /// Puts the number of seston taxa of the scope into the labels. Fails with 445.
    bool SetReportGesamtTaxazahlSeston();
    /// Readable form of a comma-separated list of reference bioregions: "Kalkalpen (K1), X" of "K1,X" where
    /// `AL_Bioregion` has K and not X. Fails with 3075 on a single apostrophe in the list.
    std::string GetBioregion_Kurzzeichen(const std::string& strKurzzeichen);
    /// Opens the assessment results with the names of their places as `WRRLErgRecordset`, a row for each
    /// result and each sampling site of its sub-habitat: those of marked sampling sites
    /// (`WRRLErgAuswahlAnzeige` 0), all (1), those of `TeilraumID` (2), those of marked sub-habitats (3).
    /// Fails with 3075 where there is no such mode; the former result then stays.
    void Get_WRRLErgRecordset();
    /// Exports the macroalgae list of a sub-habitat. Fails with 445.
    void Export_Taxaliste_TLRMakroalge();
    /// Fills the tables of the seston evaluation report. Fails with 445.
    void SetReportData_AuswertungSeston();
    /// Whether the reference tables hold the three expected values that the first assessment of `TeilraumID`
    /// needs, at `BioregionID` and `Hoehenstufe`; the verdict is stored in `ExportIsOK`. The frequency list
    /// must hold the column of the sub-habitat: `Berechnung_WRRLArtenlisteTLR` comes before; without it the
    /// answer is that for the diatoms alone. `KAOnly` is not read. Any failure of the store gives false.
    void Pruefung_WRRL();

private:
    /// What the host set.
    struct Kontext {
        store::WorkspacePtr CurrentWS;
        store::DatabasePtr CurrentDB;
        std::string DBName;
        std::int16_t SprachID = 0;
        std::int32_t FX_MainWnd = 0;
        std::int32_t TeilraumID = 0;
        std::int32_t ProjektID = 0;
        std::string AktUebersicht;
        std::string TaxaAuswahl;
        std::string RechPrjName;
        bool DebugModus = false;
        bool SilentModus = false;
        bool ValenzGewicht = false;
        bool IstWRRLBerechnung = false;
        bool KAOnly = false;
        bool IstWGEV07 = false;
        std::int32_t BioregionID = 0;
        std::int16_t Hoehenstufe = 0;
        std::string RefBioregion;
        std::int16_t WRRLErgAuswahlAnzeige = 0;
        std::int16_t QOVAKatalogID = 0;
        std::string AktBenutzer;
        std::string PSBez;
        bool CanEdit = false;
        bool AnzeigeVersion40 = false;
        bool TLmitGG = false;
        bool USTAuswahl = false;
        store::DatabasePtr ReportDB;
        store::DatabasePtr ProjektDB;
        std::string ReportDBName;
        std::int16_t ReportIndex = 0;
        std::string ExportPfad;
        std::string ExtensionWord;
        std::string ExtensionExcel;
        std::string ExportInfo_PivotSelect;
        std::string ExportInfo_PivotGroup;
        std::string ExportInfo_PivotOrder;
        std::string ExportInfo_Ueberschrift1;
        std::string ExportInfo_Ueberschrift2;
        std::string ExportInfo_Zusatzspalten;
        std::int16_t ResID = 0;
        std::int32_t Pbar_SBFormhWnd = 0;
        float Pbar_SBLeft = 0;
        float Pbar_SBTop = 0;
        float Pbar_SBWidth = 0;
        float Pbar_SBHeight = 0;
    };
    /// What operations leave behind for the host.
    struct Ergebnis {
        std::string Berechnung_Statustext;
        std::string ReportName;
        std::string ReportCaption;
        std::string ReportLblTabelle;
        std::string ReportResTabelle;
        std::string ReportDataTabelle;
        bool ExportIsOK = false;
        std::string ResString;
        std::string Version;
        store::RecordsetPtr WRRLErgRecordset;
    };

    void SprachID_Anheben() noexcept;

    Kontext kontext_;
    Ergebnis ergebnis_;
    std::string mstrAlgengruppe_;  ///< group text of the last assessment, "Alle" or "KA"
};

}  // namespace FX_Algen
