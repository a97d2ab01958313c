#include <gmock/gmock.h>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Assessment.h"
#include "FX_Algen/Error.h"
#include "host/TestDatabase.h"

using namespace FX_Algen;
using testing::HasSubstr;

namespace {

/// Station 3 "Mühlwörth" at the Kühlenach in project 7, bioregion 5, altitude step 9 with the number 4; its
/// sub-habitat is 17. Bioregions KV (5), AV (11) and the one of the apostrophe, d'Ö (12).
class AssessmentSites : public testing::Test {
protected:
    AssessmentSites() {
        for (const char* statement :
             {"INSERT INTO Projekt (ID_PRJ, PRJBez) VALUES (7, 'Flüsse');",
              "INSERT INTO Abschnitt (ID_AB, ID_PRJ) VALUES (2, 7);",
              "INSERT INTO UnvUStelle (ID_UUS, ID_AB, USBez, Gewaessername, ID_AL_Bioregion, "
              "ID_AL_Hoehenstufe, RefBioregionen) VALUES (3, 2, 'Mühlwörth', 'Kühlenach', 5, 9, 'KV4');",
              "INSERT INTO VerUStelle (ID_VUS, ID_UUS) VALUES (6, 3);",
              "INSERT INTO Teilraum (ID_TR, ID_VUS, TRBez) VALUES (17, 6, 'Blöcke');",
              "INSERT INTO AL_Hoehenstufe (ID_AL_Hoehenstufe, Hoehenstufe) VALUES (9, 4);",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (1, '');",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (2, Null);",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (5, 'KV');",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (11, 'AV');",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (12, 'd''Ö');",
              "INSERT INTO AL_Bioregion (ID_AL_Bioregion, Kurzzeichen) VALUES (13, 'N2');"})
            db_.Handle->Execute(statement);
    }

    void RefBioregionen(const store::Value& text) {
        const auto station = db_.Handle->OpenRecordset("SELECT * FROM UnvUStelle WHERE ID_UUS=3;");
        station->Edit();
        station->Collect("RefBioregionen", text);
        station->Update();
    }

    std::string Failure(std::int32_t ID_TR, std::int32_t number) {
        try {
            ReadAssessmentSite(db_.Handle, ID_TR);
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), number);
            return error.Description();
        }
        ADD_FAILURE() << "read without a failure";
        return {};
    }

    test::TestDatabase db_;
};

TEST_F(AssessmentSites, AreReadFromTheStationOfTheSubHabitat) {
    const AssessmentSite site = ReadAssessmentSite(db_.Handle, 17);
    EXPECT_EQ(site.ID_TR, 17);
    EXPECT_EQ(site.ID_PRJ, 7);
    EXPECT_EQ(site.USBez, "Mühlwörth");
    EXPECT_EQ(site.BioregionID, 5);
    // The number of the altitude step, not the key of its row.
    EXPECT_EQ(site.Hoehenstufe, 4);
    EXPECT_EQ(site.RefBioregionen, "KV4");
    EXPECT_EQ(site.RefBioregion, "(awaRefArt_TypB.ID_AL_Bioregion=5 AND awaRefArt_TypB.ID_AL_Hoehenstufe=4)");
}

TEST_F(AssessmentSites, MakeAConditionOfEachReferenceBioregion) {
    const std::string kv = "(awaRefArt_TypB.ID_AL_Bioregion=5)";
    const std::string kv4 = "(awaRefArt_TypB.ID_AL_Bioregion=5 AND awaRefArt_TypB.ID_AL_Hoehenstufe=4)";
    const std::string av0 = "(awaRefArt_TypB.ID_AL_Bioregion=11 AND awaRefArt_TypB.ID_AL_Hoehenstufe=0)";
    struct Case {
        store::Value Text;
        std::string Condition;
    };
    const Case cases[] = {
        {"KV", kv},
        {"KV4,KV", kv4 + " OR " + kv},
        {" KV4 ,\tAV0\r\n", kv4 + " OR " + av0},
        {",KV,, ,", kv},
        {"kv4", kv4},  // texts compare without case
        {"d'Ö", "(awaRefArt_TypB.ID_AL_Bioregion=12)"},
        {"d'Ö3", "(awaRefArt_TypB.ID_AL_Bioregion=12 AND awaRefArt_TypB.ID_AL_Hoehenstufe=3)"},
        {"", ""},
        {" , ,", ""},
        {store::Value(), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Text.IsNull() ? "Null" : c.Text.Text());
        RefBioregionen(c.Text);
        EXPECT_EQ(ReadAssessmentSite(db_.Handle, 17).RefBioregion, c.Condition);
    }
}

TEST_F(AssessmentSites, MakeAConditionThatTheStoreUnderstands) {
    db_.Handle->Execute(
        "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (1, 5, 4);");
    db_.Handle->Execute(
        "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (2, 5, 3);");
    db_.Handle->Execute(
        "INSERT INTO awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe) VALUES (3, 12, 3);");
    RefBioregionen("KV4,d'Ö");
    // Taxon 1 by both halves of KV4, taxon 3 by its bioregion, taxon 2 stands at another step.
    EXPECT_EQ(db_.One("SELECT Sum(ID_Art) FROM awaRefArt_TypB WHERE " +
                      ReadAssessmentSite(db_.Handle, 17).RefBioregion + ";")
                  .I4(),
              1 + 3);
}

TEST_F(AssessmentSites, NameTheStationOfAnUnknownSign) {
    struct Case {
        std::string Text;
        std::string Sign;
        std::string Element;
    };
    const Case cases[] = {
        {"KV4,XÖ3", "'XÖ'", "'XÖ3'"},
        {"KV44", "'KV4'", "'KV44'"},  // one digit is the step, the other belongs to the sign
        {"N2", "'N'", "'N2'"},        // so a sign that ends in a digit is never found
        {"4", "''", "'4'"},           // a row with the empty sign is none
        {"x' OR 1=1", "'x' OR 1='", "'x' OR 1=1'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Text);
        RefBioregionen(c.Text);
        const std::string failure = Failure(17, ErrorNumber::UnknownField);
        EXPECT_THAT(failure, HasSubstr("'Mühlwörth' (Kühlenach)"));
        EXPECT_THAT(failure, HasSubstr("Kurzzeichen " + c.Sign));
        EXPECT_THAT(failure, HasSubstr("reference bioregion " + c.Element));
        EXPECT_THAT(failure, HasSubstr("correct UnvUStelle.RefBioregionen (ID_UUS 3)"));
    }
}

TEST_F(AssessmentSites, TellStepsThatDoNotExist) {
    RefBioregionen("KV4,AV9,KV,AV0");  // step 9 is the one with a row
    EXPECT_THAT(ReadAssessmentSite(db_.Handle, 17).UnknownSteps, testing::ElementsAre("KV4", "AV0"));
}

TEST_F(AssessmentSites, HaveZeroForWhatIsNotEntered) {
    db_.Handle->Execute(
        "UPDATE UnvUStelle SET ID_AL_Bioregion=Null, ID_AL_Hoehenstufe=Null, RefBioregionen=Null;");
    const AssessmentSite site = ReadAssessmentSite(db_.Handle, 17);
    EXPECT_EQ(site.BioregionID, 0);
    EXPECT_EQ(site.Hoehenstufe, 0);
    EXPECT_EQ(site.RefBioregionen, "");
    db_.Handle->Execute("UPDATE UnvUStelle SET ID_AL_Hoehenstufe=8;");  // leads to no row
    EXPECT_EQ(ReadAssessmentSite(db_.Handle, 17).Hoehenstufe, 0);
}

TEST_F(AssessmentSites, HaveNoProjectWhereTheTreeAboveIsBroken) {
    db_.Handle->Execute("DELETE * FROM Projekt;");
    AssessmentSite site = ReadAssessmentSite(db_.Handle, 17);
    EXPECT_EQ(site.ID_PRJ, 0);
    EXPECT_EQ(site.USBez, "Mühlwörth");
    db_.Handle->Execute("DELETE * FROM VerUStelle;");
    site = ReadAssessmentSite(db_.Handle, 17);
    EXPECT_EQ(site.ID_PRJ, 0);
    EXPECT_EQ(site.USBez, "");
    EXPECT_EQ(site.BioregionID, 0);
}

TEST_F(AssessmentSites, AreOfSubHabitatsThatExist) {
    EXPECT_THAT(Failure(18, ErrorNumber::UnknownField), HasSubstr("no sub-habitat 18"));
    EXPECT_THROW(ReadAssessmentSite(nullptr, 17), Error);
}

}  // namespace
