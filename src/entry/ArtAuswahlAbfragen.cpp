#include "entry/ArtAuswahlAbfragen.h"

#include "entry/Probenstellenbogen.h"

namespace FX_Algen::entry {

namespace {

constexpr auto Algen = static_cast<std::int16_t>(Katalog::Algen);
constexpr auto Seston = static_cast<std::int16_t>(Katalog::Seston);

/// The text of the catalogue.
std::string Je(std::int16_t katalog, std::string_view algen, std::string_view seston) {
    if (katalog == Algen) return std::string(algen);
    if (katalog == Seston) return std::string(seston);
    return {};
}

std::string Mit(std::string text, std::initializer_list<std::string_view> teile) {
    if (text.empty()) return text;
    for (const auto teil : teile) text += teil;
    return text;
}

std::string_view Wahrheitswert(bool CF) { return CF ? "-1 ;" : "0 ;"; }

}  // namespace

// The genera of seston are not tested for deleted taxa: one whose taxa are all deleted stays in the list.
std::string SQL_Gattungen(std::int16_t Katalog) {
    return Je(Katalog,
              "SELECT awaArt.Gattung FROM awaArt WHERE (Loeschstatus=False)  GROUP BY awaArt.Gattung;",
              "SELECT sesArt.Gattung FROM sesArt  GROUP BY sesArt.Gattung;");
}

std::string SQL_Arten(std::int16_t Katalog, std::string_view Gattung) {
    return Mit(Je(Katalog, "SELECT awaArt.Art, awaArt.ID_ART FROM awaArt WHERE ((awaArt.Gattung = '",
                  "SELECT sesArt.Art, sesArt.ID_ART FROM sesArt WHERE ((sesArt.Gattung = '"),
               {Gattung, "') AND Loeschstatus=False) ",
                Katalog == Algen ? "ORDER BY awaArt.Art;" : "ORDER BY sesArt.Art;"});
}

std::string SQL_SynGattungen() {
    return "SELECT DISTINCT awaSynArt.SynGattung FROM awaSynArt ORDER BY SynGattung;";
}

std::string SQL_SynArten(std::string_view SynGattung) {
    return Mit(
        "SELECT DISTINCT awaSynArt.ID_Synart, awaSynArt.SynArt FROM awaSynArt WHERE "
        "((awaSynArt.SynGattung)='",
        {SynGattung, "')  ORDER BY awaSynArt.SynArt;"});
}

std::string SQL_Synonym(std::string_view ID_Synart) {
    return Mit(
        "SELECT awaArt.Gattung, awaArt.Art, awaSynArt.ID_SYN FROM awaArt INNER JOIN awaSynArt ON "
        "awaArt.ID_ART = awaSynArt.ID_SYN WHERE ID_SYNART = ",
        {ID_Synart});
}

std::string SQL_Eingetragen(std::int16_t Katalog, std::string_view ID_PS, std::string_view ID_Art) {
    return Mit(Je(Katalog, "SELECT DISTINCTROW ID_ART FROM awaArtPrStelle ",
                  "SELECT DISTINCTROW ID_ART FROM sesArtPrStelle "),
               {"WHERE ID_PS=", ID_PS, " AND ID_Art=", ID_Art, " AND CF=False;"});
}

std::string SQL_Neu(std::int16_t Katalog, std::int32_t ID_PS, std::int32_t ID_Art) {
    return Mit(Je(Katalog, "INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) ",
                  "INSERT INTO sesArtPrStelle (ID_PS, ID_Art, CF) "),
               {"VALUES (", std::to_string(ID_PS), ",", std::to_string(ID_Art), ",0);"});
}

std::string SQL_Aendern(std::int16_t Katalog, std::int32_t ID_PS, std::int32_t ID_Art_alt,
                        std::int32_t ID_Art_neu, bool CF) {
    return Mit(Je(Katalog, "UPDATE awaArtPrStelle SET ID_Art=", "UPDATE sesArtPrStelle SET ID_Art="),
               {std::to_string(ID_Art_neu), " WHERE ID_PS=", std::to_string(ID_PS),
                " AND ID_Art=", std::to_string(ID_Art_alt), " AND CF=", Wahrheitswert(CF)});
}

std::string SQL_AendernAnteile(std::int32_t ID_TR, std::int32_t ID_Art_alt, std::int32_t ID_Art_neu,
                               bool CF) {
    return Mit(
        "UPDATE awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON awaArtPrStelle_MI.ID_TR_MI = "
        "awaTeilraum_MI.ID_TR_MI SET awaArtPrStelle_MI.ID_ART =",
        {std::to_string(ID_Art_neu), " WHERE ID_TR=", std::to_string(ID_TR),
         " AND ID_Art=", std::to_string(ID_Art_alt), " AND CF=", Wahrheitswert(CF)});
}

}  // namespace FX_Algen::entry
