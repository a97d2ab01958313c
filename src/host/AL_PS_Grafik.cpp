#include "FX_Algen/AL_PS_Grafik.h"

#include "FX_Algen/Error.h"
#include "charts/ArtenDom.h"
#include "charts/Verteilung.h"
#include "host/Named.h"
#include "store/Allgemein.h"

namespace FX_Algen {

using host::Named;

namespace {
constexpr std::string_view Klasse = "AL_PS_Grafik";

/// One member of all bars as a list of values.
template <class Member>
std::vector<store::Value> Werte(const std::vector<Balken>& alle, Member member) {
    std::vector<store::Value> werte;
    for (const auto& balken : alle) werte.emplace_back(balken.*member);
    return werte;
}
}  // namespace

store::Value AL_PS_Grafik::Eintrag(const char* member, const Liste& liste, std::int16_t tmpwert) {
    if (tmpwert < 1 || static_cast<std::size_t>(tmpwert) > liste.size())
        throw Error(ErrorNumber::IndexOutOfRange, std::string(Klasse) + "." + member + ": index " +
                                                      std::to_string(tmpwert) + " is outside 1 to " +
                                                      std::to_string(liste.size()) + ".");
    return liste[static_cast<std::size_t>(tmpwert) - 1];
}

void AL_PS_Grafik::SprachID_Anheben() noexcept {
    kontext_.SprachID = Allgemein::SprachID_Anheben(kontext_.SprachID);
}

// The outputs are set together, once nothing can fail any more: a host never reads half a chart.
void AL_PS_Grafik::Grafik_Verteilung_Init() {
    Named("Grafik_Verteilung_Init", [this] {
        SprachID_Anheben();
        const auto grafik = FX_Algen::Grafik_Verteilung_Init(kontext_.Grafik_Verteilungsart,
                                                             kontext_.Grafik_Stellenbez, kontext_.SprachID);
        if (!grafik) return;
        auto neu = ergebnis_;
        neu.Grafik_SQL = grafik->SQL;
        neu.Grafik_Standardtitel = grafik->Standardtitel;
        neu.Grafik_Balkenanzahl = static_cast<std::int16_t>(grafik->AlleBalken.size());
        neu.Grafik_Legendenzeilen = grafik->Legendenzeilen;
        neu.Grafik_Balkenfarbe = Werte(grafik->AlleBalken, &Balken::Farbe);
        neu.Grafik_Legendentext = Werte(grafik->AlleBalken, &Balken::Legendentext);
        neu.Grafik_Balkenmuster = Werte(grafik->AlleBalken, &Balken::Muster);
        neu.Grafik_Balkenmusterfarbe = Werte(grafik->AlleBalken, &Balken::Musterfarbe);
        ergebnis_ = std::move(neu);
    });
}

void AL_PS_Grafik::Grafik_ArtenDom_Init() {
    Named("Grafik_ArtenDom_Init", [this] {
        SprachID_Anheben();
        Dominanzauftrag auftrag;
        auftrag.Liste.Datenbank = kontext_.CurrentDB;
        auftrag.Liste.DBName = kontext_.DBName;
        auftrag.Liste.AktUebersicht = kontext_.AktUebersicht;
        auftrag.Liste.ProjektID = kontext_.ProjektID;
        auftrag.Liste.IstWRRLBerechnung = kontext_.IstWRRLBerechnung;
        auftrag.Liste.DebugModus = kontext_.DebugModus;
        auftrag.Liste.SprachID = kontext_.SprachID;
        auftrag.Liste.Balken = {kontext_.Pbar_SBFormhWnd, kontext_.Pbar_SBLeft, kontext_.Pbar_SBTop,
                                kontext_.Pbar_SBWidth, kontext_.Pbar_SBHeight};
        auftrag.TeilraumID = kontext_.TeilraumID;
        auftrag.Algenart = kontext_.Grafik_Algenart;
        auftrag.MaxDomWert = kontext_.Grafik_MaxDomWert;
        auftrag.Berechnen = kontext_.Grafik_ArtDomBerechnen;
        auto grafik = FX_Algen::Grafik_ArtenDom_Init(auftrag);
        if (!grafik) return;
        ergebnis_.Grafik_SQL = std::move(grafik->SQL);
        ergebnis_.Grafik_Standardtitel = std::move(grafik->Standardtitel);
        ergebnis_.Grafik_Artenanzahl = grafik->Artenanzahl.value_or(ergebnis_.Grafik_Artenanzahl);
        ergebnis_.Grafik_Res_Stellenbez = std::move(grafik->Res_Stellenbez);
    });
}

}  // namespace FX_Algen
