#include "manager/Auswahldatenbank.h"

#include <algorithm>

#include "store/Connection.h"

namespace FX_Algen::test {
namespace {

constexpr std::string_view Fuellung[] = {
    "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (1, 'Österreichs Flüsse')",
    "INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (2, 'Übung')",
    "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (11, 1, 'Mündung', 2)",
    "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (12, 1, 'Quelle', 1)",
    "INSERT INTO Abschnitt (ID_AB, ID_PRJ, ABBez, RF) VALUES (21, 2, 'Äußere Ache', 1)",
    "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (111, 11, 'Brücke', 2)",
    "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (112, 11, 'Wehr', 1)",
    "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (121, 12, 'Öd', 1)",
    "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, RF) VALUES (211, 21, 'Brücke', 1)",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1111, 111, #5/12/2026#)",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1112, 111, #8/3/2026#)",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1121, 112, #5/12/2026#)",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (1211, 121, #5/12/2026#)",
    "INSERT INTO VerUStelle (ID_VUS, ID_UUS, USDatumVon) VALUES (2111, 211, #5/12/2026#)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (1, 1111, 'Blöcke', 2)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (2, 1111, 'Kies', 1)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (3, 1112, 'Blöcke', 1)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (4, 1121, 'Blöcke', 1)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (5, 1211, 'Blöcke', 1)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (6, 2111, 'Blöcke', 1)",
    "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez, RF) VALUES (7, 1121, 'Äste', 2)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (1, 50)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (2, 60)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (3, 0)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (4, 70)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (5, 50)",
    "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt) VALUES (6, 50)",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 1, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (10, 1, 'Mitte')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (2, 2, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (3, 3, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (4, 4, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 5, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (6, 6, 'Ufer')",
    "INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (7, 7, 'Ufer')",
    "INSERT INTO awaFamilie (ID_FAM, Familie, ID_GRGR) VALUES (50, 'Familie', 128)",
    "INSERT INTO awaUnterFam (ID_UFAM, ID_FAM, Unterfamilie) VALUES (51, 50, 'Unterfamilie')",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (901, 51, 'Ulothrix', 'zonata')",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (902, 51, 'Grünalge', 'häufig')",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (903, 51, 'Diatoma', 'vulgaris')",
    "INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (904, 51, 'Melosira', 'varians')",
    "INSERT INTO awaModulStandard (ID_ART, SI) VALUES (901, 1)",
    "INSERT INTO awaModulStandard (ID_ART, SI) VALUES (902, 2)",
    "INSERT INTO awaModulStandard (ID_ART, SI) VALUES (903, 3)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (1, 901, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (10, 902, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (2, 901, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (3, 903, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (3, 906, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (4, 901, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (4, 901, True)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 903, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (5, 904, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (6, 901, False)",
    "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (7, 901, False)",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (1, 1, 'Überzug')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (2, 1, 'Flocken')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (3, 3, 'Überzug')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (4, 4, 'Überzug')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (5, 5, 'Überzug')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (6, 6, 'Überzug')",
    "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez) VALUES (7, 7, 'Überzug')",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (1, 902, False, 40)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (2, 903, False, 30)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (3, 902, False, 25)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (3, 903, False, 75)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (4, 902, False, 15)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (5, 902, False, 20)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (5, 905, False, 10)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (6, 902, False, 5)",
    "INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_ART, CF, DG_MI) VALUES (7, 902, False, 35)",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (101, 1, 'Ufer')",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (103, 3, 'Ufer')",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (105, 5, 'Ufer')",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (106, 6, 'Ufer')",
    "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (107, 7, 'Ufer')",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (101, 801, False)",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (101, 802, False)",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (103, 801, False)",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (105, 803, False)",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (106, 801, False)",
    "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF) VALUES (107, 801, False)",
    "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (1, False, 'Alle')",
    "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (1, True, 'KA')",
    "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (3, False, 'Alle')",
    "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (6, False, 'Alle')",
    "INSERT INTO awaErgWRRL (ID, KAOnly, Taxagruppe) VALUES (7, False, 'Alle')",
    "INSERT INTO awaErgProjekt (ID) SELECT ID_TR FROM Teilraum",
    "INSERT INTO sesErgProjekt (ID) SELECT ID_TR FROM sesPrStelle",
};

}  // namespace

Auswahldatenbank::Auswahldatenbank() {
    store::Savepoint zusammen(Handle->SharedConnection());
    for (const auto anweisung : Fuellung) Handle->Execute(anweisung);
    zusammen.Keep();
}

void Auswahldatenbank::Auswahl(std::int32_t id, const std::string& ebene,
                               const std::vector<std::int32_t>& mitglieder, const std::string& bedingung) {
    const auto nummer = std::to_string(id);
    Handle->Execute("INSERT INTO RechenProjekt (ID_RechMan, RechManEbene, RechManSQL) VALUES (" + nummer +
                    ", '" + ebene + "', " + bedingung + ");");
    int platz = 0;
    for (const auto mitglied : mitglieder) {
        Handle->Execute("INSERT INTO RechenProjektListe (ID_RechMan, ID_Ebene, EbenenRF) VALUES (" + nummer +
                        ", " + std::to_string(mitglied) + ", " + std::to_string(++platz) + ");");
    }
}

std::vector<std::string> Auswahldatenbank::Texte(const std::string& anweisung) const {
    std::vector<std::string> texte;
    const auto zeilen = Handle->OpenRecordset(anweisung);
    const auto text = [](const store::Value& wert) { return wert.IsNull() ? "-" : wert.Text(); };
    for (; !zeilen->Eof(); zeilen->MoveNext())
        texte.push_back(text((*zeilen)[std::size_t{0}]) + "/" + text((*zeilen)[std::size_t{1}]));
    return texte;
}

namespace {

std::string Verbunden(const std::vector<std::string>& texte) {
    std::string alle;
    for (const auto& text : texte) alle += (alle.empty() ? "" : " ") + text;
    return alle;
}

}  // namespace

std::string Auswahldatenbank::Zeilen(const std::string& anweisung) const {
    return Verbunden(Texte(anweisung));
}

std::string Auswahldatenbank::ZeilenSortiert(const std::string& anweisung) const {
    auto texte = Texte(anweisung);
    std::sort(texte.begin(), texte.end());
    return Verbunden(texte);
}

std::string Ersetzt(std::string text, std::string_view alt, std::string_view neu) {
    const auto stelle = text.find(alt);
    EXPECT_NE(stelle, std::string::npos) << alt << " is not in " << text;
    if (stelle != std::string::npos) text.replace(stelle, alt.size(), neu);
    return text;
}

}  // namespace FX_Algen::test
