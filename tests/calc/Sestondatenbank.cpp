#include "calc/Sestondatenbank.h"

namespace FX_Algen {
namespace {

std::string Z(double zahl) { return store::NumberText(zahl); }
std::string Z(std::int32_t zahl) { return store::NumberText(zahl); }

std::string Text(const store::Value& wert) { return wert.IsNull() ? "Null" : wert.Text(); }

}  // namespace

void Sestondatenbank::Sestonteilraum(std::int32_t id) {
    Ausfuehren("INSERT INTO Teilraum (ID_TR, TRBez) VALUES(" + Z(id) + ", 'Blöcke " + Z(id) + "');");
    Ausfuehren("INSERT INTO sesTeilraum (ID_TR) VALUES(" + Z(id) + ");");
}

void Sestondatenbank::Sestonart(std::int32_t id, const Sestonwerte& werte) {
    Ausfuehren("INSERT INTO sesArt (ID_ART, Gattung, Art, W_SI, W_O, W_B, W_A, W_P) VALUES(" + Z(id) +
               ", 'Gattung" + Z(id) + "', 'grün" + Z(id) + "', " + Z(werte.W_SI) + ", " + Z(werte.W[0]) +
               ", " + Z(werte.W[1]) + ", " + Z(werte.W[2]) + ", " + Z(werte.W[3]) + ");");
}

void Sestondatenbank::Sestonstelle(std::int32_t ps, std::int32_t tr) {
    Ausfuehren("INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES(" + Z(ps) + ", " + Z(tr) + ", 'Brücke " +
               Z(ps) + "');");
}

void Sestondatenbank::Sestonfund(std::int32_t ps, std::int32_t art, std::int32_t abundanz, bool cf) {
    Ausfuehren("INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES(" + Z(ps) + ", " + Z(art) +
               ", " + (cf ? "-1" : "0") + ", " + Z(abundanz) + ");");
}

store::Value Sestondatenbank::Sestonergebnis(std::int32_t tr, const std::string& spalte) const {
    const auto zeile = Handle()->OpenRecordset("SELECT * FROM sesErgProjekt WHERE ID=" + Z(tr) + ";");
    if (zeile->Eof()) {
        ADD_FAILURE() << "no seston result for sub-habitat " << tr;
        return {};
    }
    return (*zeile)[spalte];
}

bool Sestondatenbank::NurSchluessel(std::int32_t tr) const {
    for (const auto& spalte : Sestonspalten()) {
        if (!Sestonergebnis(tr, spalte).IsNull()) return false;
    }
    return true;
}

std::vector<std::string> Sestondatenbank::Arbeitszeilen() const {
    const auto zeilen = Handle()->OpenRecordset("sesErgProjektTmp");
    std::vector<std::string> texte;
    for (; !zeilen->Eof(); zeilen->MoveNext()) {
        const auto& zeile = *zeilen;
        texte.push_back(Text(zeile["ID_TR"]) + "|" + Text(zeile["Si"]) + "|" + Text(zeile["a"]) + "|" +
                        Text(zeile["n"]));
    }
    return texte;
}

const std::vector<std::string>& Sestonspalten() {
    static const std::vector<std::string> spalten{
        "Oligo",    "Beta",     "Alpha",         "Poly", "KumOligo", "KumBeta",     "KumAlpha",
        "KumPoly",  "SapIndex", "Abundanzsumme", "Taxa", "Taxa_SI",  "SI_Streuung", "ShannonundWeaver",
        "MArgalef", "Eveness"};
    return spalten;
}

}  // namespace FX_Algen
