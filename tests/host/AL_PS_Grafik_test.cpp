#include "FX_Algen/AL_PS_Grafik.h"

#include <gmock/gmock.h>

#include "FX_Algen/Error.h"

namespace FX_Algen {
namespace {

TEST(AL_PS_Grafik, IsEmptyBeforeAnyChartWasPrepared) {
    const AL_PS_Grafik grafik;
    EXPECT_EQ(grafik.Grafik_SQL(), "");
    EXPECT_EQ(grafik.Grafik_Standardtitel(), "");
    EXPECT_EQ(grafik.Grafik_Res_Stellenbez(), "");
    EXPECT_EQ(grafik.Grafik_Balkenanzahl(), 0);
    EXPECT_EQ(grafik.Grafik_Legendenzeilen(), 0);
    EXPECT_EQ(grafik.Grafik_Artenanzahl(), 0);
}

TEST(AL_PS_Grafik, IndexOutsideTheListFailsWith381AndNamesTheMember) {
    using Member = store::Value (AL_PS_Grafik::*)(std::int16_t) const;
    const std::pair<const char*, Member> members[] = {
        {"Grafik_Balkenfarbe", &AL_PS_Grafik::Grafik_Balkenfarbe},
        {"Grafik_Legendentext", &AL_PS_Grafik::Grafik_Legendentext},
        {"Grafik_Balkenmuster", &AL_PS_Grafik::Grafik_Balkenmuster},
        {"Grafik_Balkenmusterfarbe", &AL_PS_Grafik::Grafik_Balkenmusterfarbe},
    };
    const AL_PS_Grafik grafik;
    for (const auto& [name, member] : members)
        for (const std::int16_t index : {-32768, 0, 1, 32767}) {
            try {
                (grafik.*member)(index);
                ADD_FAILURE() << name << " " << index;
            } catch (const Error& error) {
                EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
                EXPECT_THAT(error.Description(), testing::HasSubstr(std::string("AL_PS_Grafik.") + name));
            }
        }
}

}  // namespace
}  // namespace FX_Algen
