#include "entry/SestonAbfragen.h"

#include "store/Allgemein.h"

namespace FX_Algen::entry::seston {

namespace {

std::string Wahrheitswert(bool wert) { return std::string(Allgemein::Bool_Text(wert)); }

}  // namespace

// ---- opening -------------------------------------------------------------------------------------------

std::string TeilraumMitStelle(std::int32_t ID_TR) {
    return "SELECT DISTINCTROW Teilraum.*, sesPrStelle.ID_PS, sesPrStelle.PSBez "
           "FROM Teilraum INNER JOIN sesPrStelle ON Teilraum.ID_TR=sesPrStelle.ID_TR "
           "WHERE Teilraum.ID_TR=" +
           std::to_string(ID_TR);
}

std::string Teilraum(std::int32_t ID_TR) {
    return "SELECT * FROM Teilraum WHERE Teilraum.ID_TR=" + std::to_string(ID_TR);
}

std::string Stellen(std::int32_t ID_TR) {
    return "SELECT ID_PS, PSBez FROM sesPrStelle WHERE ID_TR=" + std::to_string(ID_TR);
}

std::string StelleAnlegen(std::int32_t ID_TR) {
    return "INSERT INTO sesPrStelle (ID_TR, PSBez) VALUES (" + std::to_string(ID_TR) + ",'<NEU>');";
}

// ---- taxa ----------------------------------------------------------------------------------------------

std::string Taxa(std::int32_t ID_PS) {
    return "SELECT sesArtPrStelle.CF, sesArtPrStelle.Abundanz, sesArtPrStelle.Zusatz, sesArt.ID_Art, "
           "sesArt.Gattung, sesArt.Art FROM sesArt INNER JOIN sesArtPrStelle ON sesArt.ID_ART = "
           "sesArtPrStelle.ID_ART WHERE ID_PS=" +
           std::to_string(ID_PS) + " ORDER BY sesArt.Gattung, sesArt.Art, sesArtPrStelle.CF";
}

std::string Fundezahl(std::int32_t ID_PS) {
    return "SELECT Count(*) AS N FROM sesArtPrStelle WHERE ID_PS=" + std::to_string(ID_PS);
}

std::string TaxonSchreiben(std::int32_t ID_PS, std::int32_t ID_Art, bool altesCF, const Fundzeile& zeile) {
    return "UPDATE sesArtPrStelle SET CF=" + Wahrheitswert(zeile.CF) +
           ", Abundanz= " + std::to_string(zeile.Abundanz) + ", Zusatz='" +
           Allgemein::Str_Ersetzen(std::string(zeile.Zusatz), "'", "''") +
           "' WHERE ID_PS=" + std::to_string(ID_PS) + " AND ID_Art=" + std::to_string(ID_Art) +
           " AND CF=" + Wahrheitswert(altesCF) + ";";
}

std::string TaxonLoeschen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF) {
    return "DELETE * FROM sesArtPrStelle WHERE ID_Art = " + std::to_string(ID_Art) +
           " AND  ID_PS = " + std::to_string(ID_PS) + " AND " + (CF ? "CF=True;" : "CF=False;");
}

}  // namespace FX_Algen::entry::seston
