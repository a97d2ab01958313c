#include "entry/Algenbogen.h"

namespace FX_Algen::entry {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlgaeSheetChecks : public Algenbogen {
protected:
    const std::string KeineZahl = Meldung(12054);
    const std::string SummeZuGross = Meldung(12055);
    /// One stand with the covers given.
    void Bestand(const std::string& DG_MI, const std::string& DG_MI_WRRL) {
        Fuellen(
            "INSERT INTO awaTeilraum_MI (ID_TR_MI, ID_TR, MI_Bez, DG_MI, DG_MI_WRRL) VALUES (31, 17, 'Öl', " +
            DG_MI + ", " + DG_MI_WRRL + ");");
    }
};

TEST_F(AlgaeSheetChecks, AskForANumberInFourFieldsAndKeepTheCursor) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    for (auto* feld :
         {&bogen->txtDG_Gesamt, &bogen->txtDG_Makro, &bogen->txtDG_Gesamt_WRRL, &bogen->txtDG_Makro_WRRL})
        for (const auto* text : {"viel", "", "1.000,5"}) {
            const auto vorher = feld->Text();
            EXPECT_TRUE(Person().SetText(*feld, text));
            EXPECT_FALSE(Person().Enter(bogen->txtPSBez));
            EXPECT_EQ(bogen->Focus(), feld) << feld->Name();
            EXPECT_EQ(feld->Text(), text);
            EXPECT_THAT(Boxen(), ElementsAre(KeineZahl)) << feld->Name();
            EXPECT_TRUE(Person().SetText(*feld, vorher));
        }
}

TEST_F(AlgaeSheetChecks, LeaveTheOtherFiguresAlone) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    for (auto* feld : {&bogen->txtAlgenGesamt, &bogen->txtMitBewuchsdichte, &bogen->txtAlgenGesamt_WRRL,
                       &bogen->txtMitBewuchsdichte_WRRL}) {
        EXPECT_TRUE(Person().SetText(*feld, "999"));
        EXPECT_TRUE(Person().Enter(bogen->txtPSBez)) << feld->Name();
    }
    EXPECT_THAT(Boxen(), IsEmpty());
}

struct Deckung {
    std::string gesamt, makro, bestand;
    bool gut;
};

class CoverCheck : public AlgaeSheetChecks, public testing::WithParamInterface<Deckung> {};

/// Both sets, and from either field.
TEST_P(CoverCheck, ComparesWholeNumbersWithTheSumOfTheStands) {
    const auto& fall = GetParam();
    Teilraum();
    Bestand(fall.bestand, fall.bestand);
    ASSERT_TRUE(Oeffnen());
    const std::vector<std::pair<controls::TextBox*, controls::TextBox*>> saetze{
        {&bogen->txtDG_Gesamt, &bogen->txtDG_Makro}, {&bogen->txtDG_Gesamt_WRRL, &bogen->txtDG_Makro_WRRL}};
    for (const auto& [gesamt, makro] : saetze)
        for (auto* feld : {gesamt, makro}) {
            bogen->SetFocus(*feld);
            gesamt->Text(fall.gesamt);
            makro->Text(fall.makro);
            EXPECT_EQ(static_cast<bool>(Person().Enter(bogen->txtAlgenGesamt)), fall.gut) << feld->Name();
            EXPECT_EQ(bogen->Focus() == feld, !fall.gut) << feld->Name();
            if (fall.gut)
                EXPECT_THAT(Boxen(), IsEmpty());
            else
                EXPECT_THAT(Boxen(), ElementsAre(SummeZuGross));
        }
}

INSTANTIATE_TEST_SUITE_P(Cases, CoverCheck,
                         testing::Values(Deckung{"60", "20", "40", true}, Deckung{"60", "20", "40.5", false},
                                         // 12.5 and 13.5 are read as 12 and 14: 12 + 2 = 14.
                                         Deckung{"13,5", "12,5", "2", true},
                                         Deckung{"13.5", "12.5", "2", true},
                                         // 14 + 0.5 > 14: halves of odd numbers go up.
                                         Deckung{"14", "13,5", "0.5", false},
                                         // 12 + 0.5 > 12, though 12.5 + 0.5 - 12.5 might seem as much.
                                         Deckung{"12,5", "12,5", "0.5", false},
                                         Deckung{"12,51", "12,5", "1", true}, Deckung{"0", "0", "0", true},
                                         Deckung{"0", "1", "0", false}, Deckung{"-1", "0", "0", false}));

TEST_F(AlgaeSheetChecks, CompareEachSetWithItsOwnStands) {
    Teilraum();
    Bestand("40", "50");
    ASSERT_TRUE(Oeffnen());
    // Classic: 20 + 40 = 60. Directive: 15 + 50 > 50.
    EXPECT_TRUE(Person().Enter(bogen->txtDG_Makro));
    EXPECT_TRUE(Person().Enter(bogen->txtDG_Makro_WRRL));
    EXPECT_FALSE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Boxen(), ElementsAre(SummeZuGross));
}

TEST_F(AlgaeSheetChecks, SayWhereACoverIsBeyondWhatIsCompared) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Gesamt, "32767,5"));
    EXPECT_FALSE(Person().Enter(bogen->txtPSBez));
    EXPECT_EQ(bogen->Focus(), &bogen->txtDG_Gesamt);
    EXPECT_THAT(Boxen(),
                ElementsAre("Algen - Probenstelle|„32767,5“ ist als Deckung zu groß: Verglichen wird "
                            "bis 32767."));
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Gesamt, "32767,4"));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
}

TEST_F(AlgaeSheetChecks, HoldNobodyWhoOnlyReads) {
    Fuellen("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (17, Null, 5);");
    Fuellen("INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (5, 17);");
    ASSERT_TRUE(Oeffnen(true, false));
    EXPECT_TRUE(Person().Enter(bogen->txtDG_Gesamt));
    EXPECT_TRUE(Person().Enter(bogen->txtDG_Makro));
    EXPECT_TRUE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Boxen(), IsEmpty());
}

TEST_F(AlgaeSheetChecks, DoNotStandInTheWayOfClosing) {
    Teilraum();
    ASSERT_TRUE(Oeffnen());
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Makro, "61"));
    EXPECT_TRUE(Person().Click(bogen->cmdPrStelle4));
    EXPECT_FALSE(bogen->IsOpen());
    EXPECT_THAT(Boxen(), IsEmpty());
    EXPECT_THAT(Zeilen("SELECT DG_MA FROM awaTeilraum"), ElementsAre("61"));
}

TEST_F(AlgaeSheetChecks, TakeTheOtherModeAsWell) {
    Teilraum();
    Bestand("40", "40");
    ASSERT_TRUE(Oeffnen(false));
    EXPECT_TRUE(Person().SetText(bogen->txtDG_Makro_WRRL, "11"));
    EXPECT_FALSE(Person().Enter(bogen->txtPSBez));
    EXPECT_THAT(Boxen(), ElementsAre(SummeZuGross));
}

}  // namespace
}  // namespace FX_Algen::entry
