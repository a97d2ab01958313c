#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "FX_Algen/Display.h"
#include "FX_Algen/Forms.h"
#include "controls/Grid.h"
#include "controls/Kinds.h"
#include "controls/Lists.h"
#include "controls/OpenForms.h"

namespace FX_Algen::controls::test {

/// A form with one control of each kind that a person can do something to.
class Musterformular : public Form {
public:
    explicit Musterformular(std::string name = "frmMuster") : Form(std::move(name)) {
        Caption("Gewässergüte");
        lstAlgen.Items({"Ulothrix", "Öocystis", "Nostoc"});
        cboGattung.Items({"Ähre", "Nitzschia"});
        lvwArten.ColumnHeaders({{"0", "Gattung"}, {"0", "Art"}});
        lvwArten.Rows({{"Ulothrix", "zonata"}, {"Nostoc", "größer"}});
        tabSeiten.Tabs({{"0", "Güte", "Saprobie und Trophie", true}, {"0", "Bilder", "", false}});
        tbrLeiste.Buttons(
            {{"neu", "Neu", false, true}, {"", "", true, true}, {"weg", "Löschen", false, false}});
        scrBild.Range(0, 7);
        vsfg.Cols(3);
        vsfg.Rows(4);
        vsfg.Fixed(1, 0);
        vsfg.ColKind(1, CellKind::Check);
        vsfg.ColWidth(2, 1);
        vsfg.Text(0, 1, "cf.");
        vsfg.Text(1, 0, "Größe");
        vsfg.Checked(1, 1, true);
        vsfg.CellColor(2, 0, Colour{0xFFC0C0});
        vsfg.RowHidden(3, true);
        vsfg.RowRule(2, Colour{0x007D7D});
        vsfg.Editable(Editing::KeyboardAndMouse);
        vsfg.Select(1, 0);
        grpZu.Visible(false);
        txtZu.Inside(grpZu);
        cmdZu.Enabled(false);
        txtFest.Locked(true);
    }

    Label& lblGuete = Add<Label>("lblGüte");
    TextBox& txtName = Add<TextBox>("txtName");
    TextBox& txtFest = Add<TextBox>("txtFest");
    ComboBox& cboGattung = Add<ComboBox>("cboGattung");
    ListBox& lstAlgen = Add<ListBox>("lstAlgen");
    ListView& lvwArten = Add<ListView>("lvwArten");
    CheckBox& chkSynonym = Add<CheckBox>("chkSynonym");
    CommandButton& cmdNeu = Add<CommandButton>("cmdPrStelle(4)");
    CommandButton& cmdZu = Add<CommandButton>("cmdZu");
    Grid& vsfg = Add<Grid>("vsfgAlgenArt");
    TabControl& tabSeiten = Add<TabControl>("tabSeiten", Kind::TabStrip);
    Toolbar& tbrLeiste = Add<Toolbar>("tbrLeiste");
    Menu& mnuAnsicht = Add<Menu>("mnuAnsicht");
    ScrollBar& scrBild = Add<ScrollBar>("scrBild");
    Frame& grpZu = Add<Frame>("grpZu");
    TextBox& txtZu = Add<TextBox>("txtZu");
    /// The database that it says it works on.
    store::DatabasePtr Datenbank;
    store::DatabasePtr WorksOn() const override { return Datenbank; }
    /// Whether its rows can be saved.
    bool Speicherbar = true;
    bool SaveRows() override {
        ++Gespeichert;
        return Speicherbar && Form::SaveRows();
    }
    int Gespeichert = 0;
};

/// A test with a display of its own and no form left behind.
class FormFixture : public testing::Test {
protected:
    void SetUp() override { former_ = SetDisplay(display_); }
    void TearDown() override {
        DiscardForms();
        SetDisplay(former_);
    }
    static std::shared_ptr<Musterformular> Shown() {
        auto form = controls::OpenForms().Load<Musterformular>();
        form->Show();
        return form;
    }

    std::shared_ptr<RecordingDisplay> display_ = std::make_shared<RecordingDisplay>();
    std::shared_ptr<store::Messages> former_;
};

}  // namespace FX_Algen::controls::test
