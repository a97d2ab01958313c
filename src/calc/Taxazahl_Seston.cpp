// Counts over the seston findings of a sub-habitat, and the dispersion of its saprobic index.
#include <vector>

#include "calc/AbfragenSeston.h"
#include "calc/BerechnungSeston.h"
#include "calc/Lesen.h"
#include "calc/Satzzahl.h"
#include "calc/Seston.h"

namespace FX_Algen {
namespace {

calc::Streuungssummen LiesSummen(store::Database& database, std::int32_t ID, double SapIndex) {
    const auto zeilen = database.OpenRecordset(calc::abfragen::Sestonzeilen(ID));
    const auto Si = zeilen->FieldIndex("Si");
    const auto a = zeilen->FieldIndex("a");
    const auto n = zeilen->FieldIndex("n");
    std::vector<calc::Streuungszeile> gelesen;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        gelesen.push_back({(*zeilen)[Si].R8(), (*zeilen)[a].I4(), (*zeilen)[n].I2()});
    }
    zeilen->Close();
    return calc::Quadratsummen(gelesen, SapIndex);
}

}  // namespace

double Taxazahl_Seston(const store::DatabasePtr& database, std::int32_t ID, calc::Taxazaehlung* spur) {
    return calc::Satzzahl(calc::Vorhanden(database, "Taxazahl_Seston"),
                          "SELECT DISTINCTROW ID_Art " + std::string(calc::abfragen::VonSeston()) +
                              " WHERE sesPrStelle.ID_TR= " + store::NumberText(ID) + " GROUP BY ID_Art;",
                          spur);
}

double Taxazahl_SestonSap(const store::DatabasePtr& database, std::int32_t ID, calc::Taxazaehlung* spur) {
    return calc::Satzzahl(calc::Vorhanden(database, "Taxazahl_SestonSap"),
                          "SELECT DISTINCTROW sesArtPrStelle.ID_ART " +
                              std::string(calc::abfragen::VonSestonMitArt()) +
                              "WHERE ((sesPrStelle.ID_TR = " + store::NumberText(ID) +
                              ") And (([W_O] + [W_B] + [W_A] + [W_P]) = 10)) GROUP BY sesArtPrStelle.ID_ART;",
                          spur);
}

// The dispersion is a companion of the index, which must not be lost for its sake: what cannot be computed
// is 0.
double SI_Streuung_Seston(const store::DatabasePtr& database, std::int32_t ID, double SapIndex,
                          std::optional<calc::Streuungssummen>* summen) noexcept try {
    if (summen != nullptr) summen->reset();
    const auto quadrate = LiesSummen(calc::Vorhanden(database, "SI_Streuung_Seston"), ID, SapIndex);
    const double streuung = calc::Streuung(quadrate);
    if (summen != nullptr) *summen = quadrate;
    return streuung;
} catch (...) {
    return 0;
}

}  // namespace FX_Algen
