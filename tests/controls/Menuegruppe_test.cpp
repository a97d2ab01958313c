#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>

#include "FX_Algen/Create.h"
#include "controls/Fenster.h"
#include "controls/Testform.h"

namespace FX_Algen::controls {
namespace {

/// Notes when the busy pointer goes on and off.
class BusyDisplay : public RecordingDisplay {
public:
    void Busy(bool on) override { Calls.push_back(on); }
    std::vector<bool> Calls;
};

/// A window with menu entries and buttons, and a main database with the group "Prüfer".
class Menuegruppe : public Formtest {
protected:
    Menuegruppe()
        : path_(testing::TempDir() + "menuegruppe_" +
                testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                std::to_string(getpid()) + ".db") {
        Remove();
        store::CreateDatabase(path_, store::DatabaseKind::Main);
        main = store::Workspace().OpenDatabase(path_);
        main->Execute("INSERT INTO Menuegruppe (ID_Menuegruppe, Menuegruppe) VALUES (3, 'Prüfer');");
        main->Execute("INSERT INTO Menuegruppe (ID_Menuegruppe, Menuegruppe) VALUES (4, 'Gäste');");
        SetDisplay(busy);
    }
    ~Menuegruppe() override {
        main.reset();
        Remove();
    }
    /// What the group sees of a control; the values as in the statement.
    void Assign(int group, const std::string& control, const std::string& visible, const std::string& enabled,
                const std::string& checked, const std::string& windowList) {
        main->Execute(
            "INSERT INTO Menuegruppenzuordnung (ID_Menuegruppe, Funktionsname, StatusVisible, StatusEnabled, "
            "StatusChecked, StatusWindowlist) VALUES (" +
            std::to_string(group) + ", '" + control + "', " + visible + ", " + enabled + ", " + checked +
            ", " + windowList + ");");
    }
    /// "visible enabled checked window list" as 0 and 1.
    static std::string State(const Menu& menu) {
        const auto digit = [](bool on) { return on ? "1" : "0"; };
        return std::string(digit(menu.Visible())) + digit(menu.Enabled()) + digit(menu.Checked()) +
               digit(menu.WindowList());
    }

    std::shared_ptr<BusyDisplay> busy = std::make_shared<BusyDisplay>();
    store::DatabasePtr main;
    Menu& file = form->Add<Menu>("mnuFile");
    Menu& print = form->Add<Menu>("mnuÄndern");
    Menu& member = form->Add<Menu>("mnuFenster(4)");

private:
    void Remove() {
        for (const auto* end : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path_ + end);
    }
    std::string path_;
};

TEST_F(Menuegruppe, SetsTheFourPropertiesOfTheControlsOfTheGroup) {
    Assign(3, "mnuÄndern", "0", "0", "-1", "-1");
    Assign(3, "MNUFENSTER(4)", "-1", "0", "-1", "0");
    Assign(4, "mnuÄndern", "-1", "-1", "0", "0");
    EXPECT_TRUE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_EQ(State(print), "0011");
    EXPECT_EQ(State(member), "1010");
    EXPECT_TRUE(Allgemein::SetMenuegruppe(*form, "Gäste", main));
    EXPECT_EQ(State(print), "1100");
    EXPECT_EQ(State(member), "1010");
}

TEST_F(Menuegruppe, NeverHidesTheMenuOfFiles) {
    Assign(3, "mnuFile", "0", "0", "-1", "-1");
    EXPECT_TRUE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_EQ(State(file), "1011");
}

TEST_F(Menuegruppe, ChangesNothingForAGroupWithoutControls) {
    EXPECT_TRUE(Allgemein::SetMenuegruppe(*form, "Gäste", main));
    EXPECT_TRUE(Allgemein::SetMenuegruppe(*form, "Unbekannte", main));
    EXPECT_EQ(State(print), "1100");
}

TEST_F(Menuegruppe, EndsThePassAtAControlThatTheWindowLacks) {
    // Rows come in the order of their names: what stands before the missing one is set.
    Assign(3, "mnuAnders", "0", "0", "-1", "-1");
    Assign(3, "mnuFehlt", "0", "0", "-1", "-1");
    Assign(3, "mnuFenster(4)", "0", "0", "-1", "-1");
    auto& other = form->Add<Menu>("mnuAnders");
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_EQ(State(other), "0011");
    EXPECT_EQ(State(member), "1100");
    EXPECT_TRUE(display->Messages().TakeShown().empty());
    EXPECT_TRUE(busy->Messages().TakeShown().empty());
}

TEST_F(Menuegruppe, GoesOnWithTheOtherPassesWhereOneFails) {
    // A button has neither a check mark nor a window list.
    auto& button = form->Add<CommandButton>("cmdPrStelle(4)");
    Assign(3, "cmdPrStelle(4)", "0", "0", "0", "0");
    Assign(3, "mnuFenster(4)", "0", "0", "-1", "-1");
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_FALSE(button.Visible());
    EXPECT_FALSE(button.Enabled());
    EXPECT_EQ(State(member), "0000");  // the passes of the last two ended at the button
}

TEST_F(Menuegruppe, EndsThePassAtAnEmptyName) {
    Assign(3, "", "0", "0", "-1", "-1");
    Assign(3, "mnuFenster(4)", "0", "0", "-1", "-1");
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_EQ(State(member), "1100");
}

TEST_F(Menuegruppe, EndsThePassAtANull) {
    Assign(3, "mnuFenster(4)", "Null", "0", "-1", "-1");
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
    EXPECT_EQ(State(member), "1011");
}

TEST_F(Menuegruppe, IsRefusedWithoutAStatementThatCanBeRun) {
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer's", main));
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", nullptr));
    main->TableDefs().Delete("Menuegruppenzuordnung");
    EXPECT_FALSE(Allgemein::SetMenuegruppe(*form, "Prüfer", main));
}

TEST_F(Menuegruppe, ShowsTheBusyPointerWhateverComes) {
    Allgemein::SetMenuegruppe(*form, "Prüfer", main);
    Allgemein::SetMenuegruppe(*form, "Prüfer", nullptr);
    EXPECT_THAT(busy->Calls, testing::ElementsAre(true, false, true, false));
}

}  // namespace
}  // namespace FX_Algen::controls
