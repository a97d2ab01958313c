#include "calc/AbfragenSeston.h"

#include "FX_Algen/Value.h"

namespace FX_Algen::calc::abfragen {
namespace {

std::string NurGezaehlte(std::int32_t ID_TR) {
    return "WHERE ((sesPrStelle.ID_TR=" + store::NumberText(ID_TR) + ") AND (sesArtPrStelle.Abundanz>0)";
}

}  // namespace

std::string_view VonSeston() {
    return "FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS)";
}

std::string_view VonSestonMitArt() {
    return "FROM (sesPrStelle INNER JOIN sesArtPrStelle ON sesPrStelle.ID_PS = sesArtPrStelle.ID_PS) "
           "INNER JOIN sesArt ON sesArtPrStelle.ID_ART = sesArt.ID_ART ";
}

std::string Sestonfunde(std::int32_t ID_TR) {
    return "SELECT DISTINCTROW sesArtPrStelle.Abundanz, sesArt.W_SI, sesArt.W_O, sesArt.W_B, sesArt.W_A, "
           "sesArt.W_P " +
           std::string(VonSestonMitArt()) + NurGezaehlte(ID_TR) + ");";
}

std::string SestonfundOhneWert(std::int32_t ID_TR, std::string_view feld) {
    return "SELECT sesArtPrStelle.ID_ART, sesArtPrStelle.ID_PS, sesArtPrStelle.CF " +
           std::string(VonSestonMitArt()) + NurGezaehlte(ID_TR) + " AND (sesArt." + std::string(feld) +
           " Is Null)) ORDER BY sesArtPrStelle.ID_PS, sesArtPrStelle.ID_ART, sesArtPrStelle.CF DESC;";
}

std::string_view Sestonzeilen() { return "sesErgProjektTmp"; }

std::string Sestonzeilen(std::int32_t ID_TR) {
    return "SELECT DISTINCTROW * FROM sesErgProjektTmp WHERE ID_TR=" + store::NumberText(ID_TR) + ";";
}

std::string Sestonergebnis(std::int32_t ID_TR) {
    return "SELECT * FROM sesErgProjekt WHERE ID=" + store::NumberText(ID_TR) + ";";
}

}  // namespace FX_Algen::calc::abfragen
