#include "entry/AbfragenProbenstelle.h"

#include "FX_Algen/Value.h"
#include "store/Allgemein.h"

namespace FX_Algen::entry::probenstelle {

namespace {

constexpr std::string_view OhneNamen = "<NEU>";

std::string Z(std::int32_t zahl) { return store::NumberText(zahl); }
std::string Z(double zahl) { return store::NumberText(zahl); }
std::string_view B(bool wert) { return Allgemein::Bool_Text(wert); }

template <class... Teile>
std::string Text(const Teile&... teile) {
    std::string text;
    text.reserve((std::string_view(teile).size() + ...));
    (text.append(teile), ...);
    return text;
}

constexpr std::string_view NachReihung = " ORDER BY RF_MI, MI_Bez;";
constexpr std::string_view VonAnteilen =
    "FROM awaArtPrStelle_MI INNER JOIN awaTeilraum_MI ON awaArtPrStelle_MI.ID_TR_MI = "
    "awaTeilraum_MI.ID_TR_MI ";
// Outer joins: a taxon without ratings or without a major group was found all the same.
constexpr std::string_view VonTaxa =
    "FROM ((((awaArtPrStelle INNER JOIN awaArt ON awaArtPrStelle.ID_ART = awaArt.ID_ART) "
    "LEFT JOIN awaUnterFam ON awaArt.ID_UFAM = awaUnterFam.ID_UFAM) "
    "LEFT JOIN awaFamilie ON awaUnterFam.ID_FAM = awaFamilie.ID_FAM) "
    "LEFT JOIN awaGrossGr ON awaFamilie.ID_GRGR = awaGrossGr.ID_GRGR) "
    "LEFT JOIN awaModulStandard ON awaArt.ID_ART = awaModulStandard.ID_ART ";

}  // namespace

std::string Textkonstante(std::string_view text) {
    return "'" + Allgemein::Str_Ersetzen(text, "'", "''") + "'";
}

// ---- opening -------------------------------------------------------------------------------------------

std::string TeilraumMitStelle(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaTeilraum.*, awaPrStelle.ID_PS, awaPrStelle.PSBez ",
                "FROM awaTeilraum INNER JOIN awaPrStelle ON awaTeilraum.ID_TR=awaPrStelle.ID_TR ",
                "WHERE awaTeilraum.ID_TR=", Z(ID_TR), ";");
}

std::string Teilraum(std::int32_t ID_TR) {
    return Text("SELECT * FROM awaTeilraum WHERE awaTeilraum.ID_TR=", Z(ID_TR), ";");
}

std::string Stellen(std::int32_t ID_TR) {
    return Text("SELECT ID_PS, PSBez FROM awaPrStelle WHERE ID_TR=", Z(ID_TR), ";");
}

std::string TeilraumAnlegen(std::int32_t ID_TR) {
    return Text("INSERT INTO awaTeilraum (ID_TR) VALUES (", Z(ID_TR), ")");
}

std::string StelleAnlegen(std::int32_t ID_TR, std::string_view PSBez) {
    return Text("INSERT INTO awaPrStelle (ID_TR, PSBez) VALUES (", Z(ID_TR), ",",
                Textkonstante(PSBez.empty() ? OhneNamen : PSBez), ");");
}

// ---- mixed stands --------------------------------------------------------------------------------------

std::string Bestaende(std::int32_t ID_TR) {
    return Text("SELECT ID_TR_MI, ID_TR, MI_Bez, DG_MI_WRRL, DG_MI, SD_MI, RF_MI FROM awaTeilraum_MI ",
                "WHERE ID_TR=", Z(ID_TR), NachReihung);
}

std::string BestaendeDerTaxaliste(std::int32_t ID_TR) {
    return Text("SELECT * FROM awaTeilraum_MI WHERE ID_TR=", Z(ID_TR), NachReihung);
}

std::string BestandAnlegen(std::int32_t ID_TR, double DG_MI, double DG_MI_WRRL) {
    return Text("INSERT INTO awaTeilraum_MI (ID_TR, MI_Bez, DG_MI, DG_MI_WRRL) VALUES (", Z(ID_TR), ",",
                Textkonstante(OhneNamen), ",", Z(DG_MI), ",", Z(DG_MI_WRRL), ");");
}

std::string BestandLoeschen(std::int32_t ID_TR_MI) {
    return Text("DELETE * FROM awaTeilraum_MI WHERE ID_TR_MI=", Z(ID_TR_MI), ";");
}

// ---- taxa ----------------------------------------------------------------------------------------------

std::string Taxa(std::int32_t ID_PS) {
    return Text(
        "SELECT awaArt.ID_ART, awaArt.Gattung, awaArt.Art, awaArtPrStelle.CF, awaArtPrStelle.MAalsMI, "
        "awaArtPrStelle.DG_MA, awaArtPrStelle.SD_MA, awaArtPrStelle.Schalen_KA, awaArtPrStelle.DG_MP, "
        "awaGrossGr.ID_Grgr, awaGrossGr.Grossgruppe, awaModulStandard.Algenart, "
        "awaModulStandard.Lebensform ",
        VonTaxa, "WHERE ID_PS=", Z(ID_PS),
        " ORDER BY awaGrossGr.RF_Kieselalge, awaModulStandard.Algenart, awaArt.Gattung, awaArt.Art, "
        "awaArtPrStelle.CF DESC;");
}

std::string FundeDerStelle(std::int32_t ID_PS) {
    return Text("SELECT ID_Art FROM awaArtPrStelle WHERE ID_PS=", Z(ID_PS), ";");
}

std::string FundeDesTaxons(std::int32_t ID_PS, std::int32_t ID_Art) {
    return Text("SELECT ID_Art FROM awaArtPrStelle WHERE ID_PS=", Z(ID_PS), " AND ID_Art=", Z(ID_Art), ";");
}

std::string Anteile(std::int32_t ID_TR) {
    return Text("SELECT DISTINCTROW awaArtPrStelle_MI.* ", VonAnteilen,
                "WHERE awaTeilraum_MI.ID_TR=", Z(ID_TR),
                " ORDER BY awaArtPrStelle_MI.ID_TR_MI, awaArtPrStelle_MI.ID_Art, awaArtPrStelle_MI.CF DESC;");
}

std::string Algenart(std::int32_t ID_Art) {
    return Text("SELECT Algenart FROM awaModulStandard WHERE ID_Art=", Z(ID_Art), ";");
}

std::string TaxonNachtragen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF, bool MAalsMI) {
    return Text("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF, MAalsMI) VALUES (", Z(ID_PS), ",", Z(ID_Art),
                ",", B(CF), ",", B(MAalsMI), ");");
}

std::string TaxonSchreiben(std::int32_t ID_PS, std::int32_t ID_Art, bool altesCF, const Fundzeile& zeile) {
    return Text("UPDATE awaArtPrStelle SET CF=", B(zeile.CF), ", DG_MA= ", Z(zeile.DG_MA),
                ", SD_MA= ", Z(zeile.SD_MA), ", Schalen_KA= ", Z(zeile.Schalen_KA),
                ", DG_MP= ", Z(zeile.DG_MP), ", MAalsMI= ", B(zeile.MAalsMI), " WHERE ID_PS=", Z(ID_PS),
                " AND ID_Art=", Z(ID_Art), " AND CF=", B(altesCF), ";");
}

std::string AnteilLoeschen(std::int32_t ID_TR_MI, std::int32_t ID_Art, bool CF) {
    return Text("DELETE * FROM awaArtPrStelle_MI WHERE ID_TR_MI=", Z(ID_TR_MI), " AND ID_Art=", Z(ID_Art),
                " AND CF=", B(CF), ";");
}

std::string AnteilSchreiben(std::int32_t ID_TR_MI, std::int32_t ID_Art, bool CF, double DG_MI) {
    return Text("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_Art, CF, DG_MI) VALUES (", Z(ID_TR_MI), ",",
                Z(ID_Art), ",", B(CF), ",", Z(DG_MI), ");");
}

std::string AnteileDesTaxonsLoeschen(std::int32_t ID_TR, std::int32_t ID_Art, bool CF) {
    return Text("DELETE DISTINCTROW awaArtPrStelle_MI.* ", VonAnteilen,
                "WHERE ((awaTeilraum_MI.ID_TR=", Z(ID_TR), ") AND (awaArtPrStelle_MI.ID_ART=", Z(ID_Art),
                ") AND ", CF ? "(awaArtPrStelle_MI.CF=True));" : "(awaArtPrStelle_MI.CF=False));");
}

std::string TaxonLoeschen(std::int32_t ID_PS, std::int32_t ID_Art, bool CF) {
    return Text("DELETE * FROM awaArtPrStelle WHERE ID_Art = ", Z(ID_Art), " AND ", " ID_PS = ", Z(ID_PS),
                " AND ", CF ? "CF=True;" : "CF=False;");
}

}  // namespace FX_Algen::entry::probenstelle
