#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Display.h"
#include "controls/Grid.h"
#include "controls/Input.h"
#include "controls/Kinds.h"
#include "controls/OpenForms.h"
#include "entry/Probenstellenbogen.h"
#include "entry/frmArtAuswahl.h"
#include "support/Testdatei.h"

/// A sheet for tests of the taxon picker: it lists the taxa of one site as far as the picker looks at them,
/// and keeps what it was told.
namespace FX_Algen::entry::test {

class Auswahlbogen : public controls::Form, public Probenstellenbogen {
public:
    Auswahlbogen(store::DatabasePtr datenbank, Katalog katalog, std::int32_t ID_PS,
                 std::optional<std::string> ID_TLR)
        : Form("frmBogen"),
          vsfgAlgenArt(Add<controls::Grid>("vsfgAlgenArt")),
          datenbank_(std::move(datenbank)),
          katalog_(katalog),
          ID_PS_(std::to_string(ID_PS)),
          ID_TLR_(std::move(ID_TLR)) {
        vsfgAlgenArt.Cols(5);
        vsfgAlgenArt.ColKind(4, controls::CellKind::Check);
        Caption("Bogen");
    }

    void GridAlgenArt_Init() override {
        ++Aufbauten;
        vsfgAlgenArt.Rows(1);
        const auto satz = datenbank_->OpenRecordset("SELECT ID_ART, CF FROM " + Tabelle() +
                                                    " WHERE ID_PS=" + ID_PS_ + " ORDER BY ID_ART, CF;");
        for (; !satz->Eof(); satz->MoveNext()) {
            const int zeile = vsfgAlgenArt.AddRow();
            vsfgAlgenArt.Text(zeile, 1, (*satz)["ID_ART"].Text());
            vsfgAlgenArt.Checked(zeile, 4, (*satz)["CF"].Bool());
        }
    }
    void Select_AktArt(std::int32_t ID_Art, bool cf) override { Gewaehlt.emplace_back(ID_Art, cf); }
    bool SaveRows() override { return Gespeichert; }

    controls::Form& Bogen() noexcept override { return *this; }
    Katalog BogenKatalog() const noexcept override { return katalog_; }
    store::WorkspacePtr BogenWS() const override { return std::make_shared<store::Workspace>(); }
    store::DatabasePtr BogenDB() const override { return datenbank_; }
    bool BogenDebugModus() const noexcept override { return false; }
    std::string BogenID_PS() const override { return ID_PS_; }
    std::optional<std::string> BogenID_TLR() const override { return ID_TLR_; }
    controls::Grid& BogenTaxa() noexcept override { return vsfgAlgenArt; }

    /// The findings of the site as "ID_ART" with "cf" behind an uncertain one.
    std::vector<std::string> Funde() const {
        std::vector<std::string> funde;
        const auto satz = datenbank_->OpenRecordset("SELECT ID_ART, CF FROM " + Tabelle() +
                                                    " WHERE ID_PS=" + ID_PS_ + " ORDER BY ID_ART, CF;");
        for (; !satz->Eof(); satz->MoveNext())
            funde.push_back((*satz)["ID_ART"].Text() + ((*satz)["CF"].Bool() ? "cf" : ""));
        return funde;
    }

    controls::Grid& vsfgAlgenArt;
    int Aufbauten = 0;
    std::vector<std::pair<std::int32_t, bool>> Gewaehlt;
    bool Gespeichert = true;  ///< what saving its rows answers

private:
    std::string Tabelle() const { return katalog_ == Katalog::Seston ? "sesArtPrStelle" : "awaArtPrStelle"; }

    store::DatabasePtr datenbank_;
    Katalog katalog_;
    std::string ID_PS_;
    std::optional<std::string> ID_TLR_;
};

/// Counts how often the busy pointer came up.
class Zeigerzaehler : public controls::RecordingDisplay {
public:
    void Busy(bool on) override {
        if (on) ++Sanduhren;
        RecordingDisplay::Busy(on);
    }
    int Sanduhren = 0;
};

/// A project with a small catalogue of algae and of seston, synonyms, and a sampling site 5 of each.
class Auswahltest : public testing::Test {
protected:
    Auswahltest() : datei("auswahl") {
        for (const auto* zeile :
             {"1, 'Achnanthes', 'minutissima', 0", "2, 'Navicula', 'gregaria', 0",
              "3, 'Navicula', 'lanceolata', 0", "4, 'Navicula', 'radiosa', -1", "5, 'Nitzschia', 'palea', 0",
              "6, 'Ödogonium', 'größeri', 0", "7, 'Surirella', 'brebissonii', -1"})
            datei.Ausfuehren(std::string("INSERT INTO awaArt (ID_ART, Gattung, Art, Loeschstatus) VALUES (") +
                             zeile + ");");
        for (const auto* zeile : {"11, 'Brachionus', 'calyciflorus', 0", "12, 'Keratella', 'cochlearis', 0",
                                  "13, 'Asplanchna', 'priodonta', -1", "14, 'Keratella', 'quadrata', 0"})
            datei.Ausfuehren(std::string("INSERT INTO sesArt (ID_ART, Gattung, Art, Loeschstatus) VALUES (") +
                             zeile + ");");
        datei.Ausfuehren("INSERT INTO awaPrStelle (ID_PS, ID_TR, PSBez) VALUES (5, 9, 'Ufer');");
    }
    ~Auswahltest() override {
        while (!controls::OpenForms().All().empty())
            controls::OpenForms().All().back()->Close(controls::Ending::Discard);
        SetDisplay(vorher);
    }

    /// Synonyms: of a taxon, of a deleted one, of one whose genus has no other taxon, of one that is gone.
    void Synonyme() {
        for (const auto* zeile : {"21, 2, 'Schizonema', 'gregarium'", "22, 4, 'Schizonema', 'radiosum'",
                                  "23, 7, 'Zygoceros', 'brebissonii'", "24, 999, 'Zygoceros', 'verschollen'"})
            datei.Ausfuehren(
                std::string("INSERT INTO awaSynArt (ID_SYNART, ID_SYN, SynGattung, SynArt) VALUES (") +
                zeile + ");");
    }

    /// The sheet of the site, listed and shown.
    Auswahlbogen& Bogen(Katalog katalog = Katalog::Algen, std::int16_t Sprache = 10000) {
        bogen_ = controls::OpenForms().Load<Auswahlbogen>(
            datei.Datenbank(), katalog, 5,
            katalog == Katalog::Algen ? std::optional<std::string>("9") : std::nullopt);
        bogen_->Sprache(Sprache);
        bogen_->GridAlgenArt_Init();
        bogen_->Show();
        return *bogen_;
    }
    /// The picker, opened for that sheet.
    frmArtAuswahl& Picker(Auswahlmodus modus = Auswahlmodus::Neu, Katalog katalog = Katalog::Algen,
                          std::int16_t Sprache = 10000) {
        if (!bogen_) Bogen(katalog, Sprache);
        ArtAuswahl_Show(*bogen_, modus);
        picker_ = controls::OpenForms().Find<frmArtAuswahl>();
        return *picker_;
    }

    /// The boxes since the last call, as "title: text".
    std::vector<std::string> Boxen() {
        std::vector<std::string> boxen;
        for (const auto& box : display->Messages().TakeShown()) boxen.push_back(box.Title + ": " + box.Text);
        return boxen;
    }

    Testdatei datei;
    std::shared_ptr<Zeigerzaehler> display = std::make_shared<Zeigerzaehler>();
    std::shared_ptr<store::Messages> vorher = SetDisplay(display);
    std::shared_ptr<Auswahlbogen> bogen_;
    std::shared_ptr<frmArtAuswahl> picker_;
};

inline const std::string BitteWaehlen = "Artauswahl: Bitte wählen Sie einen Eintrag aus der Liste!";

}  // namespace FX_Algen::entry::test
