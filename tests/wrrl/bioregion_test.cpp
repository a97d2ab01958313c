#include "wrrl/Bioregion.h"

#include <gtest/gtest.h>

#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

namespace FX_Algen {
namespace {

class Bioregion : public testing::Test {
protected:
    Bioregion() {
        Zeile("1, 'Kalkhochalpen', 'K'");
        Zeile("2, 'Kalkvoralpen', 'KV'");
        Zeile("3, 'Ödland', 'Ö'");
        Zeile("4, 'Ohne Zeichen', ''");
        Zeile("5, Null, 'N'");
        Zeile("6, 'Grundgebirge', 'G1'");
        Zeile("7, 'Kein Zeichen', Null");
    }
    void Zeile(const std::string& werte) const {
        db.Handle->Execute("INSERT INTO AL_Bioregion (ID_AL_Bioregion, Bezeichnung, Kurzzeichen) VALUES (" +
                           werte + ");");
    }
    std::string Lesbar(const std::string& liste) const { return GetBioregion_Kurzzeichen(db.Handle, liste); }
    std::int32_t Fehlernummer(const std::string& liste) const {
        try {
            Lesbar(liste);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    test::TestDatabase db;
};

struct Listenfall {
    std::string Liste;
    std::string Lesbar;
};

TEST_F(Bioregion, ListIsToldWithTheNames) {
    const Listenfall faelle[] = {
        {"K1,X", "Kalkhochalpen (K1), X"},
        {"K", "Kalkhochalpen (K)"},
        {"K,KV", "Kalkhochalpen (K), Kalkvoralpen (KV)"},
        {"KV3,K1,KV2", "Kalkvoralpen (KV3), Kalkhochalpen (K1), Kalkvoralpen (KV2)"},
        {" K1 ,  X ", "Kalkhochalpen (K1), X"},
        {"X1", "X1"},
        {"Ö2", "Ödland (Ö2)"},
        // Without regard to case, as the store compares; the element stays as it was written.
        {"k1,ö", "Kalkhochalpen (k1), Ödland (ö)"},
        // One digit alone is the altitude step.
        {"K12", "K12"},
        {"G1", "G1"},
        {"G11", "Grundgebirge (G11)"},
        // What is left of the digit is not trimmed again, and a blank more is another text.
        {"K 1", "K 1"},
        {"1", "1"},
        {"N", " (N)"},  // a Null name is an empty one
        {"K,,X", "Kalkhochalpen (K), , X"},
        {"K,", "Kalkhochalpen (K), "},
        // Two apostrophes are one of the text.
        {"K''", "K''"},
    };
    for (const auto& fall : faelle) EXPECT_EQ(Lesbar(fall.Liste), fall.Lesbar) << fall.Liste;
}

TEST_F(Bioregion, EmptyListIsAnEmptyText) {
    EXPECT_EQ(Lesbar(""), "");
    EXPECT_EQ(Lesbar("   "), "");
}

TEST_F(Bioregion, RowWithoutSignIsNeverMatched) {
    // An empty element and a bare digit both look for the empty sign.
    EXPECT_EQ(Lesbar(","), ", ");
    EXPECT_EQ(Lesbar("7"), "7");
    EXPECT_EQ(Lesbar("Null"), "Null");
}

TEST_F(Bioregion, LowestKeyHoldsWhereASignStandsTwice) {
    Zeile("90, 'zweite', 'D'");
    Zeile("80, 'erste', 'D'");
    Zeile("85, 'dritte', 'D'");
    EXPECT_EQ(Lesbar("D1,D"), "erste (D1), erste (D)");
}

TEST_F(Bioregion, WithoutReferenceRowsTheElementsStay) {
    db.Handle->Execute("DELETE * FROM AL_Bioregion;");
    EXPECT_EQ(Lesbar("K1, Ö"), "K1, Ö");
    EXPECT_EQ(Lesbar(""), "");
}

TEST_F(Bioregion, ApostropheFailsTheSearch) {
    EXPECT_EQ(Fehlernummer("K1,d'Oc"), ErrorNumber::SyntaxError);
    EXPECT_EQ(Fehlernummer("'"), ErrorNumber::SyntaxError);
    // An element that goes on as a condition is one: the first row meets it.
    EXPECT_EQ(Lesbar("X' OR 'a'='a"), "Kalkhochalpen (X' OR 'a'='a)");
}

TEST(BioregionOhneDatenbank, Fails) {
    try {
        GetBioregion_Kurzzeichen(nullptr, "");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::NotADatabase);
    }
}

}  // namespace
}  // namespace FX_Algen
