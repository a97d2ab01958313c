#include "FX_Algen/AL_PS.h"

#include "FX_Algen/Error.h"
#include "calc/Berechnung.h"
#include "calc/BerechnungSeston.h"
#include "entry/Bogen_Show.h"
#include "host/Named.h"
#include "host/NotBuilt.h"
#include "manager/Gesamttaxazahlen.h"
#include "store/Allgemein.h"
#include "store/Strings.h"
#include "wrrl/Artenliste.h"
#include "wrrl/Auswertung.h"
#include "wrrl/Bioregion.h"
#include "wrrl/Ergebnisliste.h"

namespace FX_Algen {

using host::Named;
using host::NamedOnly;
using host::NotBuilt;

namespace {
constexpr std::string_view Klasse = "AL_PS";
constexpr std::int16_t StatustextBerechnung = 3100;
constexpr std::int16_t StatustextSeston = 3200;

/// What the frequency list takes from the host's context; without a sub-habitat it is that of the whole
/// scope.
template <class Kontext>
Listenauftrag ListeAus(const Kontext& kontext, std::int32_t TeilraumID) {
    Listenauftrag auftrag;
    auftrag.Datenbank = kontext.CurrentDB;
    auftrag.Workspace = kontext.CurrentWS;
    auftrag.DBName = kontext.DBName;
    auftrag.AktUebersicht = kontext.AktUebersicht;
    auftrag.ProjektID = kontext.ProjektID;
    auftrag.TeilraumID = TeilraumID;
    auftrag.IstWRRLBerechnung = kontext.IstWRRLBerechnung;
    auftrag.USTAuswahl = kontext.USTAuswahl;
    auftrag.DebugModus = kontext.DebugModus;
    auftrag.SprachID = kontext.SprachID;
    auftrag.Balken = {kontext.Pbar_SBFormhWnd, kontext.Pbar_SBLeft, kontext.Pbar_SBTop, kontext.Pbar_SBWidth,
                      kontext.Pbar_SBHeight};
    return auftrag;
}
/// What both sheets take from the host's context.
template <class Kontext>
entry::Bogenauftrag BogenAus(const Kontext& kontext) {
    entry::Bogenauftrag auftrag;
    auftrag.CurrentWS = kontext.CurrentWS;
    auftrag.CurrentDB = kontext.CurrentDB;
    auftrag.SprachID = kontext.SprachID;
    auftrag.TeilraumID = kontext.TeilraumID;
    auftrag.DBName = kontext.DBName;
    auftrag.DebugModus = kontext.DebugModus;
    auftrag.FX_MainWnd = kontext.FX_MainWnd;
    auftrag.AktBenutzer = kontext.AktBenutzer;
    auftrag.QOVAKatalogID = kontext.QOVAKatalogID;
    return auftrag;
}
}  // namespace

void AL_PS::SprachID_Anheben() noexcept {
    kontext_.SprachID = Allgemein::SprachID_Anheben(kontext_.SprachID);
}

void AL_PS::Berechnung_Init() {
    Named("Berechnung_Init", [this] {
        FX_Algen::Berechnung_Init(kontext_.CurrentDB);
        SprachID_Anheben();
        ergebnis_.Berechnung_Statustext = store::Text(StatustextBerechnung, kontext_.SprachID);
    });
}

void AL_PS::Berechnung_Execute() {
    Named("Berechnung_Execute", [this] {
        FX_Algen::Berechnung_Execute(kontext_.CurrentDB, kontext_.TeilraumID, kontext_.IstWRRLBerechnung,
                                     kontext_.ValenzGewicht, kontext_.DebugModus);
    });
}

void AL_PS::Berechnung_InitSeston() {
    Named("Berechnung_InitSeston", [this] {
        FX_Algen::Berechnung_InitSeston(kontext_.CurrentDB);
        SprachID_Anheben();
        ergebnis_.Berechnung_Statustext = store::Text(StatustextSeston, kontext_.SprachID);
    });
}

void AL_PS::Berechnung_ExecuteSeston() {
    Named("Berechnung_ExecuteSeston", [this] {
        FX_Algen::Berechnung_ExecuteSeston(kontext_.CurrentDB, kontext_.TeilraumID, kontext_.ValenzGewicht,
                                           kontext_.DebugModus);
    });
}

// The answer of the list is its table; the progress form stands as long as it works.
void AL_PS::Berechnung_WRRLArtenliste() {
    Named("Berechnung_WRRLArtenliste", [this] { Artenliste_Haeufigkeit(ListeAus(kontext_, 0)); });
}

void AL_PS::Berechnung_WRRLArtenlisteTLR() {
    Named("Berechnung_WRRLArtenlisteTLR",
          [this] { Artenliste_Haeufigkeit(ListeAus(kontext_, kontext_.TeilraumID)); });
}

void AL_PS::Berechnung_WRRLInit() {
    Named("Berechnung_WRRLInit", [this] {
        FX_Algen::Berechnung_WRRLInit(kontext_.CurrentDB);
        SprachID_Anheben();
        ergebnis_.Berechnung_Statustext = store::Text(StatustextBerechnung, kontext_.SprachID);
    });
}

void AL_PS::Berechnung_WRRL() {
    Named("Berechnung_WRRL", [this] {
        Bewertungsauftrag auftrag;
        auftrag.Liste = ListeAus(kontext_, kontext_.TeilraumID);
        auftrag.KAOnly = kontext_.KAOnly;
        auftrag.ValenzGewicht = kontext_.ValenzGewicht;
        auftrag.BioregionID = kontext_.BioregionID;
        auftrag.Hoehenstufe = kontext_.Hoehenstufe;
        auftrag.RefBioregion = kontext_.RefBioregion;
        FX_Algen::Berechnung_WRRL(auftrag, mstrAlgengruppe_);
    });
}

void AL_PS::Pruefung_WRRL() {
    Named("Pruefung_WRRL", [this] {
        ergebnis_.ExportIsOK =
            Pruefung_Referenzwerte(kontext_.CurrentDB, kontext_.TeilraumID, kontext_.BioregionID,
                                   kontext_.Hoehenstufe, kontext_.DebugModus);
    });
}

store::Value AL_PS::CheckIstKA(std::int32_t) {
    // The answer is that for the current sub-habitat, whatever the argument says.
    return Named("CheckIstKA",
                 [this] { return FX_Algen::CheckIstKA(kontext_.CurrentDB, kontext_.TeilraumID); });
}

void AL_PS::Get_ResString() {
    Named("Get_ResString", [this] {
        SprachID_Anheben();
        ergebnis_.ResString = store::Text(kontext_.ResID, kontext_.SprachID);
    });
}

void AL_PS::Get_Version() {
    Named("Get_Version", [this] {
        ergebnis_.Version = std::to_string(FX_ALGEN_VERSION_MAJOR) + "." +
                            std::to_string(FX_ALGEN_VERSION_MINOR) + "-" +
                            static_cast<char>('a' + FX_ALGEN_VERSION_PATCH);
    });
}

std::int16_t AL_PS::GesamttaxazahlTLR(const std::string& strSQL_TLR) {
    return Named("GesamttaxazahlTLR",
                 [&] { return FX_Algen::GesamttaxazahlTLR(kontext_.CurrentDB, strSQL_TLR); });
}

std::int16_t AL_PS::Gesamttaxazahl() {
    return Named("Gesamttaxazahl", [this] {
        return FX_Algen::Gesamttaxazahl(kontext_.CurrentDB, kontext_.AktUebersicht, kontext_.ProjektID,
                                        kontext_.TaxaAuswahl);
    });
}

std::int16_t AL_PS::GesamttaxazahlSeston() {
    return Named("GesamttaxazahlSeston", [this] {
        return FX_Algen::GesamttaxazahlSeston(kontext_.CurrentDB, kontext_.AktUebersicht, kontext_.ProjektID,
                                              kontext_.TaxaAuswahl);
    });
}

std::string AL_PS::GetBioregion_Kurzzeichen(const std::string& strKurzzeichen) {
    return Named("GetBioregion_Kurzzeichen",
                 [&] { return FX_Algen::GetBioregion_Kurzzeichen(kontext_.CurrentDB, strKurzzeichen); });
}

void AL_PS::Get_WRRLErgRecordset() {
    Named("Get_WRRLErgRecordset", [this] {
        ergebnis_.WRRLErgRecordset =
            FX_Algen::Get_WRRLErgRecordset(kontext_.CurrentDB, kontext_.WRRLErgAuswahlAnzeige,
                                           kontext_.IstWRRLBerechnung, kontext_.TeilraumID);
    });
}

void AL_PS::Probenstelle_Show() {
    NamedOnly("Probenstelle_Show", [this] {
        SprachID_Anheben();
        auto auftrag = BogenAus(kontext_);
        auftrag.PSBez = kontext_.PSBez;
        auftrag.CanEdit = kontext_.CanEdit;
        auftrag.AnzeigeVersion40 = kontext_.AnzeigeVersion40;
        entry::Probenstelle_Show(auftrag);
    });
}

void AL_PS::ProbenstelleSeston_Show() {
    NamedOnly("ProbenstelleSeston_Show", [this] {
        SprachID_Anheben();
        entry::ProbenstelleSeston_Show(BogenAus(kontext_));
    });
}

void AL_PS::Probenstelle_Unload() {
    NamedOnly("Probenstelle_Unload", [] { entry::Probenstelle_Unload(); });
}

void AL_PS::SetReportData_Auswertung() { NotBuilt(Klasse, "SetReportData_Auswertung"); }
void AL_PS::Export_Taxaliste_GesamtHaeuf() { NotBuilt(Klasse, "Export_Taxaliste_GesamtHaeuf"); }
void AL_PS::Export_Taxaliste_Gesamt() { NotBuilt(Klasse, "Export_Taxaliste_Gesamt"); }
void AL_PS::Export_Taxaliste_TLR() { NotBuilt(Klasse, "Export_Taxaliste_TLR"); }
bool AL_PS::Export_TLG_Taxadaten(std::int16_t, std::int32_t, std::int32_t, bool, std::int16_t, float,
                                 std::int16_t, double&, double&, double&) {
    NotBuilt(Klasse, "Export_TLG_Taxadaten");
}
void AL_PS::Export_ArtDom() { NotBuilt(Klasse, "Export_ArtDom"); }
void AL_PS::Export_Auswertung() { NotBuilt(Klasse, "Export_Auswertung"); }
void AL_PS::Export_Auswertung_Sap() { NotBuilt(Klasse, "Export_Auswertung_Sap"); }
void AL_PS::Export_Auswertung_SapAnzahl() { NotBuilt(Klasse, "Export_Auswertung_SapAnzahl"); }
void AL_PS::Export_Auswertung_WRRL() { NotBuilt(Klasse, "Export_Auswertung_WRRL"); }
void AL_PS::Export_Auswertung_Wegl() { NotBuilt(Klasse, "Export_Auswertung_Wegl"); }
void AL_PS::Export_Auswertung_Seston() { NotBuilt(Klasse, "Export_Auswertung_Seston"); }
void AL_PS::SetReport_Label() { NotBuilt(Klasse, "SetReport_Label"); }
store::Value AL_PS::SetReport_TaxalisteGesamt() { NotBuilt(Klasse, "SetReport_TaxalisteGesamt"); }
store::Value AL_PS::SetReport_TaxalisteGesamtHaeuf() { NotBuilt(Klasse, "SetReport_TaxalisteGesamtHaeuf"); }
store::Value AL_PS::SetReport_TaxalisteGesamtSeston() { NotBuilt(Klasse, "SetReport_TaxalisteGesamtSeston"); }
store::Value AL_PS::SetReport_TaxalisteEinstufungSeston() {
    NotBuilt(Klasse, "SetReport_TaxalisteEinstufungSeston");
}
store::Value AL_PS::SetReport_TaxalisteTLR() { NotBuilt(Klasse, "SetReport_TaxalisteTLR"); }
store::Value AL_PS::SetReport_TaxalisteMakroalgen() { NotBuilt(Klasse, "SetReport_TaxalisteMakroalgen"); }
store::Value AL_PS::SetReport_TaxalisteWRRL() { NotBuilt(Klasse, "SetReport_TaxalisteWRRL"); }
bool AL_PS::SetReportTLRTaxazahl() { NotBuilt(Klasse, "SetReportTLRTaxazahl"); }
bool AL_PS::SetReportGesamtTaxazahl() { NotBuilt(Klasse, "SetReportGesamtTaxazahl"); }
bool AL_PS::SetReportGesamtTaxazahlSeston() { NotBuilt(Klasse, "SetReportGesamtTaxazahlSeston"); }
void AL_PS::Export_Taxaliste_TLRMakroalge() { NotBuilt(Klasse, "Export_Taxaliste_TLRMakroalge"); }
void AL_PS::SetReportData_AuswertungSeston() { NotBuilt(Klasse, "SetReportData_AuswertungSeston"); }

}  // namespace FX_Algen
