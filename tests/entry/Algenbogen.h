#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "FX_Algen/Display.h"
#include "FX_Algen/Store.h"
#include "controls/Fenster.h"
#include "controls/Input.h"
#include "controls/OpenForms.h"
#include "entry/frmProbenstelle.h"
#include "store/Strings.h"
#include "support/Testdatei.h"

namespace FX_Algen::entry {

/// What the catalogue knows of a taxon.
struct Katalogart {
    std::string Gattung;
    std::string Art;
    std::int32_t ID_GRGR = 130;
    std::optional<std::string> Algenart = "benthisch";
    std::int32_t Lebensform = 1;
};

/// Records also when the person is shown the busy pointer.
class AnzeigeMitSanduhr : public controls::RecordingDisplay {
public:
    void Busy(bool on) override {
        if (on) ++Sanduhren;
        RecordingDisplay::Busy(on);
    }
    store::Answer Box(std::string_view title, std::string_view text, store::Buttons buttons,
                      store::Symbol symbol) override {
        EXPECT_FALSE(Messages().IsBusy()) << "busy beside the box: " << text;
        return RecordingDisplay::Box(title, text, buttons, symbol);
    }
    int Sanduhren = 0;
};

/// The algae sheet over a small database, a person in front of it, and a display that records. Covers of
/// sub-habitat 17: classic 60 % with 20 % macroalgae, by the Directive 50 % with 15 %.
class Algenbogen : public testing::Test {
protected:
    static constexpr std::int32_t TR = 17, PS = 5;
    /// Columns with the two stands of `Bestaende`.
    static constexpr int GattungCol = 2, CF = 4, MAalsMI = 5, LF = 6, DG_MA = 8, SD_MA = 9, MI1 = 10,
                         MI2 = 11, Schalen = 12, Makrophyten = 13;
    /// Columns of the list of stands.
    static constexpr int BezCol = 3, WRRLCol = 4, DGCol = 5, RFCol = 7;

    Algenbogen() : vorher_(SetDisplay(anzeige)) {}
    ~Algenbogen() override {
        for (const auto offene = controls::OpenForms().All(); const auto& eine : offene)
            eine->Close(controls::Ending::Discard);
        SetDisplay(vorher_);
    }

    // ---- rows ------------------------------------------------------------------------------------------
    void Fuellen(const std::string& anweisung) { datei.Ausfuehren(anweisung); }
    void Teilraum() {
        Fuellen("INSERT INTO Teilraum (ID_TR, TRBez) VALUES (17, 'Blöcke');");
        Fuellen(
            "INSERT INTO awaTeilraum (ID_TR, DG_Algengesamt, DG_Gesamt, DG_MA, MitBewuchsdichte, "
            "DG_Algengesamt_WRRL, DG_Gesamt_WRRL, DG_MA_WRRL, MitBewuchsdichte_WRRL) "
            "VALUES (17, 70, 60, 20, 1.5, 65, 50, 15, 1.25);");
        Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 17, 'Böschung');");
    }
    /// "Überzug" (key 31) and "Häutchen" (key 32): together 40 % classic and 35 % by the Directive.
    void Bestaende() {
        Fuellen(
            "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL, SD_MI, RF_MI) "
            "VALUES (31, 17, 'Überzug', 30, 25, 0.5, 1);");
        Fuellen(
            "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL, SD_MI, RF_MI) "
            "VALUES (32, 17, 'Häutchen', 10, 10, 0.25, 2);");
    }
    void Art(std::int32_t id, const Katalogart& art) {
        ArtOhneWerte(id, art);
        Fuellen("INSERT INTO awaModulStandard (ID_ART, Algenart, Lebensform) VALUES (" + std::to_string(id) +
                "," + (art.Algenart ? "'" + *art.Algenart + "'" : "Null") + "," +
                std::to_string(art.Lebensform) + ");");
    }
    void ArtOhneWerte(std::int32_t id, const Katalogart& art) {
        const auto gruppe = std::to_string(art.ID_GRGR);
        if (datei.Handle()->OpenRecordset("SELECT ID_FAM FROM awaFamilie WHERE ID_FAM=" + gruppe)->Eof()) {
            Fuellen("INSERT INTO awaFamilie (ID_FAM, ID_GRGR) VALUES (" + gruppe + "," + gruppe + ");");
            Fuellen("INSERT INTO awaUnterFam (ID_UFAM, ID_FAM) VALUES (" + gruppe + "," + gruppe + ");");
        }
        Fuellen("INSERT INTO awaArt (ID_ART, ID_UFAM, Gattung, Art) VALUES (" + std::to_string(id) + "," +
                gruppe + ",'" + art.Gattung + "','" + art.Art + "');");
    }
    /// Finding of site 5 with values such as "DG_MA=2.5, Schalen_KA=7".
    void Fund(std::int32_t art, const std::string& werte = "", bool cf = false) {
        Fuellen("INSERT INTO awaArtPrStelle (ID_PS, ID_Art, CF) VALUES (5," + std::to_string(art) + "," +
                (cf ? "-1" : "0") + ");");
        if (!werte.empty())
            Fuellen("UPDATE awaArtPrStelle SET " + werte +
                    " WHERE ID_PS=5 AND ID_Art=" + std::to_string(art) + " AND CF=" + (cf ? "-1;" : "0;"));
    }
    void Anteil(std::int32_t bestand, std::int32_t art, const std::string& anteil, bool cf = false) {
        Fuellen("INSERT INTO awaArtPrStelle_MI (ID_TR_MI, ID_Art, CF, DG_MI) VALUES (" +
                std::to_string(bestand) + "," + std::to_string(art) + "," + (cf ? "-1," : "0,") + anteil +
                ");");
    }
    /// One taxon of each kind, in the order of the list: 2 MI, 1 MA, 3 KA, 6 HP.
    void VierArten() {
        Art(1, {"Cladophora", "glomerata", 130, "Makroalge"});
        Art(2, {"Chamaesiphon", "polönicus"});
        Art(3, {"Navicula", "gregaria", 128});
        Art(6, {"Fontinalis", "antipyretica", 132});
        for (const int art : {1, 2, 3, 6}) Fund(art);
    }
    /// Rows of a statement: the values of each joined by "|", Null as "Null".
    std::vector<std::string> Zeilen(const std::string& abfrage) {
        const auto zeilen = datei.Datenbank()->OpenRecordset(abfrage);
        std::vector<std::string> out;
        for (; !zeilen->Eof(); zeilen->MoveNext()) {
            std::string text;
            for (std::size_t feld = 0; feld < zeilen->Fields().size(); ++feld)
                text += (feld == 0 ? "" : "|") +
                        ((*zeilen)[feld].IsNull() ? std::string("Null") : (*zeilen)[feld].Text());
            out.push_back(std::move(text));
        }
        return out;
    }
    std::vector<std::string> Funde() {
        return Zeilen(
            "SELECT ID_Art, CF, DG_MA, SD_MA, Schalen_KA, DG_MP, MAalsMI FROM awaArtPrStelle ORDER BY "
            "ID_Art, CF;");
    }
    std::vector<std::string> Anteile() {
        return Zeilen(
            "SELECT ID_TR_MI, ID_Art, CF, DG_MI FROM awaArtPrStelle_MI ORDER BY ID_TR_MI, ID_Art, CF;");
    }

    // ---- the sheet -------------------------------------------------------------------------------------
    /// Sets what a host sets, and opens. Answers what `DataObject_Init` answered.
    bool Oeffnen(bool version40 = true, bool darf = true, std::int16_t sprache = 10000) {
        bogen = controls::OpenForms().Load<frmProbenstelle>();
        bogen->CurrentWS(std::make_shared<store::Workspace>());
        bogen->CurrentDB(datei.Datenbank());
        bogen->Sprache(sprache);
        bogen->TeilraumID(TR);
        bogen->DBName(datei.Pfad());
        bogen->DebugModus(false);
        bogen->AktBenutzer("Jürgen");
        bogen->PSBez(PSBez);
        Allgemein::SetControlCaptions(*bogen, sprache);
        bogen->CanEdit(darf);
        bogen->AnzeigeVersion40(version40);
        bogen->EditMode(bogen->CanEdit());
        if (!bogen->DataObject_Init()) return false;
        bogen->EditMode(bogen->CanEdit());
        bogen->Show();
        return true;
    }
    controls::Input Person() { return controls::Input(*bogen); }
    controls::Grid& Taxa() { return bogen->vsfgAlgenArt; }
    controls::Grid& Stand() { return bogen->vsfgAlgenTL_MI; }
    /// Row of a taxon in the list; -1 where it has none.
    int Zeile(std::int32_t art, bool cf = false) {
        for (int row = 3; row < Taxa().Rows(); ++row)
            if (Taxa().Text(row, 1) == std::to_string(art) && Taxa().Checked(row, CF) == cf) return row;
        return -1;
    }
    /// The texts of a row from column `von` to `bis`, joined by "|".
    std::string Text(int row, int von, int bis) {
        std::string text;
        for (int col = von; col <= bis; ++col) text += (col == von ? "" : "|") + Taxa().Text(row, col);
        return text;
    }
    void Antworten(const std::vector<store::Answer>& antworten) { anzeige->Messages().SetAnswers(antworten); }
    /// The boxes since the last call as "title|text".
    std::vector<std::string> Boxen() {
        std::vector<std::string> out;
        for (const auto& box : anzeige->Messages().TakeShown()) out.push_back(box.Title + "|" + box.Text);
        return out;
    }
    static std::string Meldung(std::int16_t nummer) { return "Algen - Probenstelle|" + store::Text(nummer); }

    Testdatei datei{"entry_Fundübersicht"};
    std::shared_ptr<AnzeigeMitSanduhr> anzeige = std::make_shared<AnzeigeMitSanduhr>();
    std::shared_ptr<frmProbenstelle> bogen;
    std::string PSBez;

private:
    std::shared_ptr<store::Messages> vorher_;
};

constexpr std::uint32_t Gruen = 0xC0FFC0;
constexpr std::uint32_t Rot = 0xFFC0C0;

}  // namespace FX_Algen::entry
