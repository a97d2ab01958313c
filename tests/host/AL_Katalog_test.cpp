#include "FX_Algen/AL_Katalog.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"
#include "store/ThreadValues.h"

namespace FX_Algen {
namespace {

TEST(AL_Katalog, ReportNameAndCaptionReadEmpty) {
    AL_Katalog katalog;
    EXPECT_EQ(katalog.ReportName(), "");
    EXPECT_EQ(katalog.ReportCaption(), "");
    katalog.SysReport("Systematik.rpt");
    katalog.ReportDBName("/Österreich/bericht.db");
    EXPECT_EQ(katalog.ReportName(), "");
    EXPECT_EQ(katalog.ReportCaption(), "");
}

TEST(AL_Katalog, HasNoOverviewWindowBeforeItIsShown) { EXPECT_EQ(AL_Katalog().KatUebersicht_hWnd(), 0); }

TEST(AL_Katalog, SettingTheEditFlagDoesNotTouchTheFlagOfTheWindows) {
    // The windows get the flag when they are shown.
    AL_Katalog katalog;
    katalog.KatalogEdit(true);
    EXPECT_FALSE(store::Thread().KatalogEdit);
}

TEST(AL_Katalog, OperationsToComeFailWith445AndTheirName) {
    using Operation = void (AL_Katalog::*)();
    const std::pair<const char*, Operation> operations[] = {
        {"Kataloguebersicht_Show", &AL_Katalog::Kataloguebersicht_Show},
        {"KatalogEinStandard_Show", &AL_Katalog::KatalogEinStandard_Show},
        {"KatalogSystematik_Show", &AL_Katalog::KatalogSystematik_Show},
        {"KatalogSynonyme_Show", &AL_Katalog::KatalogSynonyme_Show},
        {"KataloguebersichtSeston_Show", &AL_Katalog::KataloguebersichtSeston_Show},
    };
    AL_Katalog katalog;
    for (const auto& [name, operation] : operations) {
        try {
            (katalog.*operation)();
            ADD_FAILURE() << name;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::NotBuilt);
            EXPECT_THAT(error.Description(), testing::HasSubstr(std::string("AL_Katalog.") + name + ":"));
        }
    }
}

}  // namespace
}  // namespace FX_Algen
