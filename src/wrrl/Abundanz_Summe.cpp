// Sums of relative abundances from the frequency list's column of a sub-habitat.
#include "FX_Algen/Error.h"
#include "calc/Abfragen.h"
#include "calc/Lesen.h"
#include "wrrl/Auswertung.h"

namespace FX_Algen {
namespace {

namespace abfragen = calc::abfragen;

std::string Zelle(std::int32_t ID) { return "awaArtenlisteHaeufigkeit.A" + store::NumberText(ID); }

double Summe(store::Database& database, std::int32_t ID, std::string_view filter) {
    const auto zeilen =
        database.OpenRecordset(std::string("SELECT Sum(" + Zelle(ID) + ") AS [AbundanzSumme] ")
                                   .append(abfragen::VonHaeufigkeit())
                                   .append(filter));
    const double summe =
        zeilen->Eof() || (*zeilen)["AbundanzSumme"].IsNull() ? 0 : (*zeilen)["AbundanzSumme"].R8();
    zeilen->Close();
    return summe;
}

void Addieren(store::Database& database, const std::string& abfrage, double& summe) {
    const auto zeilen = database.OpenRecordset(abfrage);
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& abundanz = (*zeilen)["Abundanz"];
        if (!abundanz.IsNull()) summe += abundanz.R8();
    }
    zeilen->Close();
}

/// Those of type A and those of type B; a taxon of both adds its abundance twice.
double Referenzarten(store::Database& database, std::int32_t ID, std::string_view kriterium,
                     bool nurSchalen) {
    const auto auswahl = "awaArtenlisteHaeufigkeit.ID_Art, " + Zelle(ID) + " AS Abundanz";
    double summe = 0;
    Addieren(database, abfragen::ReferenzartenTypA(ID, auswahl, nurSchalen), summe);
    Addieren(database, abfragen::ReferenzartenTypB(ID, auswahl, kriterium, nurSchalen), summe);
    return summe;
}

double Summieren(store::Database& database, std::int32_t ID, std::int16_t Modus, std::string_view Kriterium) {
    switch (Modus) {
        case 1:
            return Summe(database, ID,
                         "WHERE (((awaFamilie.ID_GRGR)<=132) AND (awaArt.IstArtniveau = True));");
        case 2:
            return Referenzarten(database, ID, Kriterium, false);
        case 3:
            return Summe(database, ID, "WHERE (((awaFamilie.ID_GRGR)<=132));");
        case 4:
            return Summe(database, ID,
                         "WHERE (((awaFamilie.ID_GRGR)<=132 And (awaFamilie.ID_GRGR)<>128) AND "
                         "(awaArt.IstArtniveau = True));");
        case 5:
            return Summe(database, ID,
                         "WHERE (((awaFamilie.ID_GRGR)=128) AND (awaArt.IstArtniveau = True));");
        case 6:
            return Referenzarten(database, ID, Kriterium, true);
        case 7:
            return Summe(database, ID, "WHERE (((awaFamilie.ID_GRGR)=128));");
        default:
            return 0;
    }
}

}  // namespace

// Like the counts, a sum that cannot be made, such as one from a frequency list without this sub-habitat, is
// 0.
double Abundanz_Summe(const store::DatabasePtr& database, std::int32_t ID, std::int16_t Modus,
                      std::string_view Kriterium) try {
    return Summieren(calc::Vorhanden(database, "Abundanz_Summe"), ID, Modus, Kriterium);
} catch (const Error&) {
    return 0;
}

}  // namespace FX_Algen
