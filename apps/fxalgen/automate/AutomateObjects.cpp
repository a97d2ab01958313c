#include "FX_Algen/FX_Algen.h"
#include "fxalgen/automate/AutomateTable.h"

namespace FX_Algen::cli::rpc {

namespace {

const ClassTable<AL_PS>& Table_AL_PS() {
    static const auto table = [] {
        ClassTable<AL_PS> out("AL_PS");
        out.Set("CurrentWS", &AL_PS::CurrentWS);
        out.Set("CurrentDB", &AL_PS::CurrentDB);
        out.Set("DBName", &AL_PS::DBName);
        out.Set("SprachID", &AL_PS::SprachID);
        out.Set("FX_MainWnd", &AL_PS::FX_MainWnd);
        out.Set("TeilraumID", &AL_PS::TeilraumID);
        out.Set("ProjektID", &AL_PS::ProjektID);
        out.Set("AktUebersicht", &AL_PS::AktUebersicht);
        out.Set("TaxaAuswahl", &AL_PS::TaxaAuswahl);
        out.Set("RechPrjName", &AL_PS::RechPrjName);
        out.Set("DebugModus", &AL_PS::DebugModus);
        out.Set("SilentModus", &AL_PS::SilentModus);
        out.Set("ValenzGewicht", &AL_PS::ValenzGewicht);
        out.Set("IstWRRLBerechnung", &AL_PS::IstWRRLBerechnung);
        out.Set("KAOnly", &AL_PS::KAOnly);
        out.Set("IstWGEV07", &AL_PS::IstWGEV07);
        out.Set("BioregionID", &AL_PS::BioregionID);
        out.Set("Hoehenstufe", &AL_PS::Hoehenstufe);
        out.Set("RefBioregion", &AL_PS::RefBioregion);
        out.Set("WRRLErgAuswahlAnzeige", &AL_PS::WRRLErgAuswahlAnzeige);
        out.Set("QOVAKatalogID", &AL_PS::QOVAKatalogID);
        out.Set("AktBenutzer", &AL_PS::AktBenutzer);
        out.Set("PSBez", &AL_PS::PSBez);
        out.Set("CanEdit", &AL_PS::CanEdit);
        out.Set("AnzeigeVersion40", &AL_PS::AnzeigeVersion40);
        out.Set("TLmitGG", &AL_PS::TLmitGG);
        out.Set("USTAuswahl", &AL_PS::USTAuswahl);
        out.Set("ReportDB", &AL_PS::ReportDB);
        out.Set("ProjektDB", &AL_PS::ProjektDB);
        out.Set("ReportDBName", &AL_PS::ReportDBName);
        out.Set("ReportIndex", &AL_PS::ReportIndex);
        out.Set("ExportPfad", &AL_PS::ExportPfad);
        out.Set("ExtensionWord", &AL_PS::ExtensionWord);
        out.Set("ExtensionExcel", &AL_PS::ExtensionExcel);
        out.Set("ExportInfo_PivotSelect", &AL_PS::ExportInfo_PivotSelect);
        out.Set("ExportInfo_PivotGroup", &AL_PS::ExportInfo_PivotGroup);
        out.Set("ExportInfo_PivotOrder", &AL_PS::ExportInfo_PivotOrder);
        out.Set("ExportInfo_Ueberschrift1", &AL_PS::ExportInfo_Ueberschrift1);
        out.Set("ExportInfo_Ueberschrift2", &AL_PS::ExportInfo_Ueberschrift2);
        out.Set("ExportInfo_Zusatzspalten", &AL_PS::ExportInfo_Zusatzspalten);
        out.Set("ResID", &AL_PS::ResID);
        out.Set("Pbar_SBFormhWnd", &AL_PS::Pbar_SBFormhWnd);
        out.Set("Pbar_SBLeft", &AL_PS::Pbar_SBLeft);
        out.Set("Pbar_SBTop", &AL_PS::Pbar_SBTop);
        out.Set("Pbar_SBWidth", &AL_PS::Pbar_SBWidth);
        out.Set("Pbar_SBHeight", &AL_PS::Pbar_SBHeight);
        out.Get("Berechnung_Statustext", &AL_PS::Berechnung_Statustext);
        out.Get("ReportName", &AL_PS::ReportName);
        out.Get("ReportCaption", &AL_PS::ReportCaption);
        out.Get("ReportLblTabelle", &AL_PS::ReportLblTabelle);
        out.Get("ReportResTabelle", &AL_PS::ReportResTabelle);
        out.Get("ReportDataTabelle", &AL_PS::ReportDataTabelle);
        out.Get("ExportIsOK", &AL_PS::ExportIsOK);
        out.Get("ResString", &AL_PS::ResString);
        out.Get("Version", &AL_PS::Version);
        out.Get("WRRLErgRecordset", &AL_PS::WRRLErgRecordset);
        out.Call("Probenstelle_Show", &AL_PS::Probenstelle_Show);
        out.Call("ProbenstelleSeston_Show", &AL_PS::ProbenstelleSeston_Show);
        out.Call("Probenstelle_Unload", &AL_PS::Probenstelle_Unload);
        out.Call("Berechnung_Execute", &AL_PS::Berechnung_Execute);
        out.Call("Berechnung_ExecuteSeston", &AL_PS::Berechnung_ExecuteSeston);
        out.Call("Berechnung_Init", &AL_PS::Berechnung_Init);
        out.Call("Berechnung_InitSeston", &AL_PS::Berechnung_InitSeston);
        out.Call("CheckIstKA", &AL_PS::CheckIstKA, {"lngID_TLR"});
        out.Call("Berechnung_WRRL", &AL_PS::Berechnung_WRRL);
        out.Call("Berechnung_WRRLInit", &AL_PS::Berechnung_WRRLInit);
        out.Call("Berechnung_WRRLArtenliste", &AL_PS::Berechnung_WRRLArtenliste);
        out.Call("Berechnung_WRRLArtenlisteTLR", &AL_PS::Berechnung_WRRLArtenlisteTLR);
        out.Call("Get_ResString", &AL_PS::Get_ResString);
        out.Call("Get_Version", &AL_PS::Get_Version);
        out.Call("SetReportData_Auswertung", &AL_PS::SetReportData_Auswertung);
        out.Call("Export_Taxaliste_GesamtHaeuf", &AL_PS::Export_Taxaliste_GesamtHaeuf);
        out.Call("Export_Taxaliste_Gesamt", &AL_PS::Export_Taxaliste_Gesamt);
        out.Call("Export_Taxaliste_TLR", &AL_PS::Export_Taxaliste_TLR);
        out.Call("Export_TLG_Taxadaten", &AL_PS::Export_TLG_Taxadaten,
                 {"intID_Art", "lngID_PS", "lngID_TR", "bolCF", "intAlgenart", "sngDG_G", "intSummeKA",
                  "dblAbundanz", "dblDominanz", "dblMP"});
        out.Call("GesamttaxazahlTLR", &AL_PS::GesamttaxazahlTLR, {"strSQL_TLR"});
        out.Call("Gesamttaxazahl", &AL_PS::Gesamttaxazahl);
        out.Call("GesamttaxazahlSeston", &AL_PS::GesamttaxazahlSeston);
        out.Call("Export_ArtDom", &AL_PS::Export_ArtDom);
        out.Call("Export_Auswertung", &AL_PS::Export_Auswertung);
        out.Call("Export_Auswertung_Sap", &AL_PS::Export_Auswertung_Sap);
        out.Call("Export_Auswertung_SapAnzahl", &AL_PS::Export_Auswertung_SapAnzahl);
        out.Call("Export_Auswertung_WRRL", &AL_PS::Export_Auswertung_WRRL);
        out.Call("Export_Auswertung_Wegl", &AL_PS::Export_Auswertung_Wegl);
        out.Call("Export_Auswertung_Seston", &AL_PS::Export_Auswertung_Seston);
        out.Call("SetReport_Label", &AL_PS::SetReport_Label);
        out.Call("SetReport_TaxalisteGesamt", &AL_PS::SetReport_TaxalisteGesamt);
        out.Call("SetReport_TaxalisteGesamtHaeuf", &AL_PS::SetReport_TaxalisteGesamtHaeuf);
        out.Call("SetReport_TaxalisteGesamtSeston", &AL_PS::SetReport_TaxalisteGesamtSeston);
        out.Call("SetReport_TaxalisteEinstufungSeston", &AL_PS::SetReport_TaxalisteEinstufungSeston);
        out.Call("SetReport_TaxalisteTLR", &AL_PS::SetReport_TaxalisteTLR);
        out.Call("SetReport_TaxalisteMakroalgen", &AL_PS::SetReport_TaxalisteMakroalgen);
        out.Call("SetReport_TaxalisteWRRL", &AL_PS::SetReport_TaxalisteWRRL);
        out.Call("SetReportTLRTaxazahl", &AL_PS::SetReportTLRTaxazahl);
        out.Call("SetReportGesamtTaxazahl", &AL_PS::SetReportGesamtTaxazahl);
        out.Call("SetReportGesamtTaxazahlSeston", &AL_PS::SetReportGesamtTaxazahlSeston);
        out.Call("GetBioregion_Kurzzeichen", &AL_PS::GetBioregion_Kurzzeichen, {"strKurzzeichen"});
        out.Call("Get_WRRLErgRecordset", &AL_PS::Get_WRRLErgRecordset);
        out.Call("Export_Taxaliste_TLRMakroalge", &AL_PS::Export_Taxaliste_TLRMakroalge);
        out.Call("SetReportData_AuswertungSeston", &AL_PS::SetReportData_AuswertungSeston);
        out.Call("Pruefung_WRRL", &AL_PS::Pruefung_WRRL);
        return out;
    }();
    return table;
}

const ClassTable<AL_Katalog>& Table_AL_Katalog() {
    static const auto table = [] {
        ClassTable<AL_Katalog> out("AL_Katalog");
        out.Set("CurrentWS", &AL_Katalog::CurrentWS);
        out.Set("CurrentDB", &AL_Katalog::CurrentDB);
        out.Set("MainDB", &AL_Katalog::MainDB);
        out.Set("DBName", &AL_Katalog::DBName);
        out.Set("DBNameMain", &AL_Katalog::DBNameMain);
        out.Set("Menuegruppe", &AL_Katalog::Menuegruppe);
        out.Set("ReportDB", &AL_Katalog::ReportDB);
        out.Set("ReportDBName", &AL_Katalog::ReportDBName);
        out.Set("SprachID", &AL_Katalog::SprachID);
        out.Set("FX_MainWnd", &AL_Katalog::FX_MainWnd);
        out.Get("ReportName", &AL_Katalog::ReportName);
        out.Get("ReportCaption", &AL_Katalog::ReportCaption);
        out.Get("KatUebersicht_hWnd", &AL_Katalog::KatUebersicht_hWnd);
        out.Set("AppPath", &AL_Katalog::AppPath);
        out.Set("SysReport", &AL_Katalog::SysReport);
        out.Set("KatalogEdit", &AL_Katalog::KatalogEdit);
        out.Set("AktuellerBenutzer", &AL_Katalog::AktuellerBenutzer);
        out.Set("FX_Version", &AL_Katalog::FX_Version);
        out.Call("Kataloguebersicht_Show", &AL_Katalog::Kataloguebersicht_Show);
        out.Call("KatalogEinStandard_Show", &AL_Katalog::KatalogEinStandard_Show);
        out.Call("KatalogSystematik_Show", &AL_Katalog::KatalogSystematik_Show);
        out.Call("KatalogSynonyme_Show", &AL_Katalog::KatalogSynonyme_Show);
        out.Call("KataloguebersichtSeston_Show", &AL_Katalog::KataloguebersichtSeston_Show);
        return out;
    }();
    return table;
}

const ClassTable<AL_PS_Grafik>& Table_AL_PS_Grafik() {
    static const auto table = [] {
        ClassTable<AL_PS_Grafik> out("AL_PS_Grafik");
        out.Set("CurrentDB", &AL_PS_Grafik::CurrentDB);
        out.Set("SprachID", &AL_PS_Grafik::SprachID);
        out.Set("DBName", &AL_PS_Grafik::DBName);
        out.Set("ProjektID", &AL_PS_Grafik::ProjektID);
        out.Set("TeilraumID", &AL_PS_Grafik::TeilraumID);
        out.Set("AktUebersicht", &AL_PS_Grafik::AktUebersicht);
        out.Set("Grafik_Verteilungsart", &AL_PS_Grafik::Grafik_Verteilungsart);
        out.Set("Grafik_Stellenbez", &AL_PS_Grafik::Grafik_Stellenbez);
        out.Get("Grafik_SQL", &AL_PS_Grafik::Grafik_SQL);
        out.Get("Grafik_Standardtitel", &AL_PS_Grafik::Grafik_Standardtitel);
        out.Get("Grafik_Balkenanzahl", &AL_PS_Grafik::Grafik_Balkenanzahl);
        out.Get("Grafik_Legendenzeilen", &AL_PS_Grafik::Grafik_Legendenzeilen);
        out.Get("Grafik_Balkenfarbe", &AL_PS_Grafik::Grafik_Balkenfarbe);
        out.Get("Grafik_Legendentext", &AL_PS_Grafik::Grafik_Legendentext);
        out.Get("Grafik_Balkenmuster", &AL_PS_Grafik::Grafik_Balkenmuster);
        out.Get("Grafik_Balkenmusterfarbe", &AL_PS_Grafik::Grafik_Balkenmusterfarbe);
        out.Set("Grafik_Algenart", &AL_PS_Grafik::Grafik_Algenart);
        out.Get("Grafik_Artenanzahl", &AL_PS_Grafik::Grafik_Artenanzahl);
        out.Set("Grafik_MaxDomWert", &AL_PS_Grafik::Grafik_MaxDomWert);
        out.Set("Grafik_ArtDomBerechnen", &AL_PS_Grafik::Grafik_ArtDomBerechnen);
        out.Get("Grafik_Res_Stellenbez", &AL_PS_Grafik::Grafik_Res_Stellenbez);
        out.Set("Pbar_SBFormhWnd", &AL_PS_Grafik::Pbar_SBFormhWnd);
        out.Set("Pbar_SBLeft", &AL_PS_Grafik::Pbar_SBLeft);
        out.Set("Pbar_SBTop", &AL_PS_Grafik::Pbar_SBTop);
        out.Set("Pbar_SBWidth", &AL_PS_Grafik::Pbar_SBWidth);
        out.Set("Pbar_SBHeight", &AL_PS_Grafik::Pbar_SBHeight);
        out.Set("SilentModus", &AL_PS_Grafik::SilentModus);
        out.Set("DebugModus", &AL_PS_Grafik::DebugModus);
        out.Set("IstWRRLBerechnung", &AL_PS_Grafik::IstWRRLBerechnung);
        out.Call("Grafik_Verteilung_Init", &AL_PS_Grafik::Grafik_Verteilung_Init);
        out.Call("Grafik_ArtenDom_Init", &AL_PS_Grafik::Grafik_ArtenDom_Init);
        return out;
    }();
    return table;
}

}  // namespace

std::unique_ptr<Object> MakeObject(const std::string& className) {
    if (className == "AL_PS") return std::make_unique<TableObject<AL_PS>>(Table_AL_PS());
    if (className == "AL_Katalog") return std::make_unique<TableObject<AL_Katalog>>(Table_AL_Katalog());
    if (className == "AL_PS_Grafik") return std::make_unique<TableObject<AL_PS_Grafik>>(Table_AL_PS_Grafik());
    return nullptr;
}

}  // namespace FX_Algen::cli::rpc
