#include "manager/Gesamttaxazahlen.h"

#include "manager/Datenbank.h"
#include "manager/Ebenen.h"
#include "manager/RechenProjekt.h"

namespace FX_Algen {
namespace {

using manager::Ebene;
using manager::Verbund;

/// Tables of findings: those of the algae and those of the seston are built alike.
struct Fundtabellen {
    std::string Stellen;
    std::string Funde;
    std::string (*FromAuswahl)(const store::DatabasePtr&, std::int32_t);
};

const Fundtabellen& Algen() {
    static const Fundtabellen tabellen{"awaPrStelle", "awaArtPrStelle", RechenProjekt::RechMan_FromFunde};
    return tabellen;
}

const Fundtabellen& Seston() {
    static const Fundtabellen tabellen{"sesPrStelle", "sesArtPrStelle",
                                       RechenProjekt::RechMan_FromFundeSeston};
    return tabellen;
}

std::string Arten(const Fundtabellen& tabellen) { return tabellen.Funde + ".ID_ART"; }

std::string Auswahlliste(const Fundtabellen& tabellen) {
    return "SELECT DISTINCTROW " + Arten(tabellen) + " ";
}

std::string Gruppen(const Fundtabellen& tabellen) { return "GROUP BY " + Arten(tabellen) + ";"; }

Verbund MitFunden(const Verbund& stellen, const Fundtabellen& tabellen) {
    return stellen.Mit(tabellen.Funde, tabellen.Stellen + ".ID_PS = " + tabellen.Funde + ".ID_PS");
}

/// The findings below a level of the project tree.
std::string FromUnter(Ebene ebene, const Fundtabellen& tabellen) {
    return MitFunden(
               manager::Pfad(ebene).Mit(tabellen.Stellen, "Teilraum.ID_TR = " + tabellen.Stellen + ".ID_TR"),
               tabellen)
        .From();
}

/// Statement of a scope; empty where the text is none.
std::string Anweisung(const store::DatabasePtr& database, std::string_view AktUebersicht,
                      std::int32_t ProjektID, std::string_view TaxaAuswahl, const Fundtabellen& tabellen) {
    const auto unter = [&](Ebene ebene, std::string_view schluessel) {
        std::string text = Auswahlliste(tabellen) + FromUnter(ebene, tabellen) + "Where ";
        text.append(schluessel).append(" = ").append(store::NumberText(ProjektID));
        text.append(" ").append(TaxaAuswahl).append(" ");
        return text + Gruppen(tabellen);
    };
    if (AktUebersicht == "Projekt") return unter(Ebene::Abschnitt, "Abschnitt.ID_PRJ");
    if (AktUebersicht == "UStelle") return unter(Ebene::VerUStelle, "VerUStelle.ID_UUS");
    if (AktUebersicht == "Rechenmanager") {
        return Auswahlliste(tabellen) + tabellen.FromAuswahl(database, ProjektID) + "WHERE " +
               RechenProjekt::RechMan_Where(database, ProjektID) + " " + Gruppen(tabellen);
    }
    return {};
}

/// Rows of a statement, as a 16-bit number.
std::int16_t Anzahl(store::Database& database, const std::string& anweisung) {
    const auto zeilen = database.OpenRecordset(anweisung);
    const store::Value anzahl(zeilen->RecordCount());
    zeilen->Close();
    return anzahl.I2();
}

}  // namespace

std::int16_t GesamttaxazahlTLR(const store::DatabasePtr& database, std::string_view strSQL_TLR) {
    auto& db = manager::Vorhanden(database, "GesamttaxazahlTLR");
    return Anzahl(db, Auswahlliste(Algen()) + MitFunden(Verbund("awaPrStelle"), Algen()).From() +
                          "WHERE awaPrStelle.ID_TR In (" + std::string(strSQL_TLR) + ") " + Gruppen(Algen()));
}

std::int16_t Gesamttaxazahl(const store::DatabasePtr& database, std::string_view AktUebersicht,
                            std::int32_t ProjektID, std::string_view TaxaAuswahl) {
    auto& db = manager::Vorhanden(database, "Gesamttaxazahl");
    return Anzahl(db, Anweisung(database, AktUebersicht, ProjektID, TaxaAuswahl, Algen()));
}

std::int16_t GesamttaxazahlSeston(const store::DatabasePtr& database, std::string_view AktUebersicht,
                                  std::int32_t ProjektID, std::string_view TaxaAuswahl) {
    auto& db = manager::Vorhanden(database, "GesamttaxazahlSeston");
    return Anzahl(db, Anweisung(database, AktUebersicht, ProjektID, TaxaAuswahl, Seston()));
}

}  // namespace FX_Algen
