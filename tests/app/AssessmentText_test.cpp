#include "fxalgen/explain/AssessmentText.h"

#include <gmock/gmock.h>

#include <sstream>

#include "app/AssessmentSample.h"
#include "fxalgen/Utf8.h"

using namespace FX_Algen;
using namespace FX_Algen::cli;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr std::int16_t German = 10000;
constexpr std::int16_t English = 20000;

std::string Printed(const AssessedSite& site, std::int16_t SprachID = German,
                    const Explanation& calculation = {}) {
    std::ostringstream out;
    PrintAssessments(out, site, calculation, SprachID);
    return out.str();
}

AssessmentTrace& Trace(AssessedSite& site) { return site.Assessments.front().Trace; }

TEST(AssessmentText, SaysTheClassFirst) {
    EXPECT_THAT(Printed(OneAssessment()), testing::StartsWith("Bewertung nach WRRL\n"
                                                              "\n"
                                                              "  Ökologischer Zustand: 2 (gut)\n"
                                                              "  Gespeicherte Bewertung: aktuell\n"));
    EXPECT_THAT(Printed(OneAssessment(), English), testing::StartsWith("Assessment under the WFD\n"
                                                                       "\n"
                                                                       "  Ecological status: 2 (gut)\n"
                                                                       "  Stored assessment: current\n"));
}

TEST(AssessmentText, SaysWhyTheGroupIsWhatItIs) {
    struct Case {
        GroupReason Reason;
        const char* Group;
        std::string Text;
    };
    // 70 percent and 4 taxa besides the diatoms
    const Case cases[] = {
        {GroupReason::AllGroups, "Alle", "Gruppe: alle Algengruppen \\(Alle\\), .* 70 % Abundanz .* 4 Taxa"},
        {GroupReason::AbundanceBelow50, "KA", "Gruppe: Kieselalgen \\(KA\\), .* nur 70 % .* Taxa: 4"},
        {GroupReason::TaxaNotAbove3, "KA", "Gruppe: Kieselalgen \\(KA\\), .* nur 4 .* 70 %"},
        {GroupReason::DiatomsAsked, "KA", "Gruppe: Kieselalgen \\(KA\\), denn dieser Lauf"},
    };
    for (const Case& c : cases) {
        AssessedSite site = OneAssessment();
        Trace(site).ReferenceSpecies->Reason = c.Reason;
        Trace(site).ReferenceSpecies->Taxagruppe = c.Group;
        std::string text = Printed(site);
        // long sentences are folded
        for (std::size_t at = 0; (at = text.find("\n      ", at)) != std::string::npos;) text.erase(at, 6);
        for (char& sign : text) sign = sign == '\n' ? ' ' : sign;
        EXPECT_THAT(text, ContainsRegex(c.Text));
    }
}

TEST(AssessmentText, SaysWhyItIsRestrictedOrNot) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(
        Printed(site),
        HasSubstr("  Bedingt bewertbar: 160 % Abundanz auf Artniveau liegen unter der Grenze 167.\n"));
    Trace(site).ReferenceSpecies->BedingtBewertbar = false;
    Trace(site).ReferenceSpecies->RestrictionAbundance = 167.5;
    EXPECT_THAT(Printed(site), HasSubstr("  Uneingeschränkt bewertbar: 167,5 % Abundanz auf Artniveau liegen "
                                         "nicht unter der Grenze 167.\n"));
    EXPECT_THAT(Printed(site, English), HasSubstr("  Not restricted: 167.5 % abundance at species level are "
                                                  "not below the bound of 167.\n"));
}

TEST(AssessmentText, SetsTheModulesSideBySide) {
    const std::string text = Printed(OneAssessment());
    EXPECT_THAT(text, HasSubstr("  Modul              Index  erwartet   EQR  Klasse  Bezeichnung  "
                                "bei EQR + 0,03  bis besser  bis schlechter\n"));
    // 0.8 - 0.75 = 0.05 to class 1; 0.75 - 0.6 = 0.15 to class 3
    EXPECT_THAT(text, HasSubstr("  Trophie              2,2       1,6  0,75       2  gut          "
                                "             2        0,05            0,15\n"));
    // 1 - 0.8 = 0.2 to class 2, none is better, no class at 1.03
    EXPECT_THAT(text, HasSubstr("  Saprobie             1,5      1,75     1       1  sehr gut     "
                                "             -           -             0,2\n"));
    // 0.74 - 0.71 = 0.03 to class 2; 0.71 - 0.49 = 0.22 to class 4
    EXPECT_THAT(text, HasSubstr("  Referenzarten  0,5657895       0,8  0,71       3  mäßig        "
                                "             2        0,03            0,22\n"));
}

TEST(AssessmentText, TellsWorstCaseSofteningAndDistance) {
    const std::string text = Printed(OneAssessment());
    EXPECT_THAT(text, HasSubstr("  Ungünstigste Klasse: 3 (mäßig), allein im Modul Referenzarten.\n"));
    EXPECT_THAT(text,
                HasSubstr("  Milderung: ja. Mit 0,03 mehr hätte das Modul Klasse 2, genau eine bessere; "
                          "also gilt 2 (gut).\n"));
    EXPECT_THAT(text, HasSubstr("  Referenzarten, EQR 0,71: bis zur nächstbesseren Klasse 2 fehlen 0,03 "
                                "(Grenze 0,74).\n"));
    EXPECT_THAT(text, HasSubstr("  Referenzarten, EQR 0,71: die nächstschlechtere Klasse 4 ist 0,22 entfernt "
                                "(Grenze 0,49).\n"));
    EXPECT_THAT(
        Printed(OneAssessment(), English),
        HasSubstr("  reference species, EQR 0.71: the next better class 2 is 0.03 away (bound 0.74).\n"));
}

TEST(AssessmentText, SaysWhyNothingIsSoftened) {
    struct Case {
        std::int16_t Raised;
        std::string Text;
    };
    const Case cases[] = {
        {3, "Milderung: nein. Auch mit 0,03 mehr hätte das Modul Klasse 3.\n"},
        {1, "Milderung: nein. Mit 0,03 mehr hätte das Modul Klasse 1, nicht genau eine bessere.\n"},
        {-1, "Milderung: nein. Bei EQR + 0,03 steht keine Klasse.\n"},
    };
    for (const Case& c : cases) {
        AssessedSite site = OneAssessment();
        OverallTrace& overall = *Trace(site).Overall;
        overall.Raised = c.Raised;
        overall.Softened = false;
        overall.OEZK = 3;
        overall.OEZK_Klasse = "mäßig";
        EXPECT_THAT(Printed(site), HasSubstr(c.Text));
        EXPECT_THAT(Printed(site), HasSubstr("Ökologischer Zustand: 3 (mäßig)\n"));
    }
}

TEST(AssessmentText, OfSeveralWorstModulesTellsEach) {
    AssessedSite site = OneAssessment();
    OverallTrace& overall = *Trace(site).Overall;
    overall.Classes = {3, 1, 3};
    overall.Count = 2;
    overall.Raised.reset();
    overall.Softened = false;
    RatioTrace& trophic = Trace(site).Trophic->Ratio;
    trophic.EQR = 0.6F;
    trophic.AllBounds = {{0.6, 1, 3}, {0, 0.6, 4}};
    trophic.Class = Class("awaWRRL_TIOEZK", 0.6F, {0.6, 1, 3});
    trophic.Class.AlsoFitting = {{0, 0.6, 4}};
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Ungünstigste Klasse: 3 (mäßig), in 2 Modulen: Trophie, Referenzarten.\n"));
    EXPECT_THAT(text, HasSubstr("  Milderung: nein. 2 Module haben die ungünstigste Klasse.\n"));
    EXPECT_THAT(text, HasSubstr("  Trophie, EQR 0,6: eine bessere Klasse gibt es nicht.\n"));
    EXPECT_THAT(text,
                HasSubstr("  Trophie, EQR 0,6: genau auf der Grenze zur nächstschlechteren Klasse 4.\n"));
    EXPECT_THAT(text,
                HasSubstr("      auf gemeinsamer Grenze: auch Klasse 4 (von 0 bis 0,6) passt, es gilt die "
                          "bessere\n"));
    EXPECT_THAT(text, HasSubstr("  Referenzarten, EQR 0,71: bis zur nächstbesseren"));
}

TEST(AssessmentText, WalksFromIndexToClass) {
    const std::string text = Printed(OneAssessment());
    EXPECT_THAT(text,
                HasSubstr("Modul Trophie: Klasse 2 (gut)\n"
                          "\n"
                          "    Referenzklasse: mäßig, aus awaWRRL_TGZK (ID_AL_Bioregion = 3, Hoehenstufe "
                          "= 2)\n"
                          "    Erwarteter Wert: 1,6, aus awaWRRL_ETI (Taxagruppe = Alle, TGZK = mäßig)\n"
                          "    TI = 220,0000 / 100,0000 = 2,2\n"
                          "    EQR = (4 - 2,2) / (4 - 1,6) = 0,750000, gerundet 0,75\n"
                          "    Klasse 2 bei EQR 0,75: von 0,6 bis 0,8, aus awaWRRL_TIOEZK (Taxagruppe = "
                          "Alle, TGZK = mäßig)\n"
                          "    Klasse 2 bei EQR + 0,03 = 0,78: von 0,6 bis 0,8\n"));
    EXPECT_THAT(text, HasSubstr("      gerundet auf 1,75\n"));
    EXPECT_THAT(text,
                HasSubstr("    EQR = (4 - 1,5) / (4 - 1,75) = 1,111111, gerundet 1,11, begrenzt auf 1\n"));
    EXPECT_THAT(text, HasSubstr("    Keine Klasse bei EQR + 0,03 = 1,03\n"));
}

TEST(AssessmentText, FillsTheFractionsOfTheReferenceSpecies) {
    AssessedSite site = OneAssessment();
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("Modul Referenzarten: Klasse 3 (mäßig)\n"));
    EXPECT_THAT(text,
                HasSubstr("    RI_Abundanz = AbundanzRefart / (200 - (AbundanzGesamt - AbundanzArtniveau))\n"
                          "                = 120 / (200 - (170 - 160)) = 0,6315789\n"
                          "    RI_Anzahl = TaxazahlRefart / TaxazahlArtniveau = 3 / 6 = 0,5\n"
                          "    Referenzindex = (0,6315789 + 0,5) / 2 = 0,5657895\n"));
    // 0.565789 / 0.8
    EXPECT_THAT(text, HasSubstr("    EQR = 0,5657895 / 0,8 = 0,707236, gerundet 0,71\n"));

    ReferenceSpeciesTrace& species = *Trace(site).ReferenceSpecies;
    species.Taxagruppe = "KA";
    species.Counts[4].Result = 0;  // no diatom at species level
    species.RI_Anzahl = 0;
    EXPECT_THAT(Printed(site), HasSubstr("= 75 / (100 - (100 - 90)) = "));
    EXPECT_THAT(Printed(site), HasSubstr("    RI_Anzahl = 0, denn TaxazahlArtniveau_KA ist nicht über 0\n"));
}

TEST(AssessmentText, NamesTheRowsThatAreMissing) {
    AssessedSite site = OneAssessment();
    IndexModuleTrace& trophic = *Trace(site).Trophic;
    trophic.ReferenceClass.Found = false;
    trophic.ReferenceClass.Result = "-";
    trophic.ExpectedValue.Found = false;
    trophic.ExpectedValue.Result = -1.0F;
    trophic.Ratio.ExpectedValue = -1;
    trophic.Ratio.Class = NoClass("awaWRRL_TIOEZK", 0.36F);
    Trace(site).Overall->Classes = {-1, 1, 3};
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("Modul Trophie: keine Klasse gefunden\n"));
    EXPECT_THAT(text,
                HasSubstr("    Referenzklasse: fehlt, keine Zeile in awaWRRL_TGZK (ID_AL_Bioregion = 3, "
                          "Hoehenstufe = 2); es gilt -\n"));
    EXPECT_THAT(text,
                HasSubstr("    Erwarteter Wert: fehlt, keine Zeile in awaWRRL_ETI (Taxagruppe = Alle, TGZK "
                          "= mäßig); es gilt -1\n"));
    EXPECT_THAT(text, HasSubstr("    Keine Klasse bei EQR 0,36: keine Zeile in awaWRRL_TIOEZK (Taxagruppe = "
                                "Alle, TGZK = mäßig) passt\n"));
}

TEST(AssessmentText, SaysThatThereIsNoRatioWithoutIndex) {
    AssessedSite site = OneAssessment();
    Trace(site).Trophic->Ratio.Unrounded.reset();
    EXPECT_THAT(Printed(site), HasSubstr("    EQR = 0, denn der Index ist nicht über 0\n"));
}

TEST(AssessmentText, SaysThatAClassWithoutIndexSaysNothing) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(Printed(site), Not(HasSubstr("sagen nichts")));
    RatioTrace& trophic = Trace(site).Trophic->Ratio;
    trophic.Index = 0;
    trophic.Unrounded.reset();
    trophic.EQR = 0;
    EXPECT_THAT(Printed(site), HasSubstr("  Im Modul Trophie gibt es keinen Index über 0: EQR 0 und seine "
                                         "Klasse sagen nichts über das Gewässer.\n"));
}

TEST(AssessmentText, ShowsWhichTaxaCountAsWhat) {
    AssessedSite site = OneAssessment();
    std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("    Taxon                       Häufigkeit [%]  Großgruppe  Kieselalge  "
                                "Artniveau  Referenzart\n"));
    EXPECT_THAT(text,
                HasSubstr("    Cladophora glomerata cf.           60,0000         130  nein        ja    "
                          "     A, B (zählt 2-mal)\n"));
    EXPECT_THAT(text,
                HasSubstr("    Achnanthidium minutissimum         75,0000         128  ja          ja    "
                          "     A\n"));
    EXPECT_THAT(text,
                HasSubstr("    ID_ART 9                           25,0000           -  ja          nein\n"));
    EXPECT_THAT(text, HasSubstr("Referenzarten vom Typ B gelten für KÖ2 (Bedingung: (awaRefArt_TypB."));
    EXPECT_THAT(text, HasSubstr("    Abundanz [%]                      170        160            120\n"));
    EXPECT_THAT(text, HasSubstr("    Taxa ohne Kieselalgen               -          4              -\n"));
    site.Site->RefBioregion.clear();
    EXPECT_THAT(Printed(site), HasSubstr("Referenzarten vom Typ B zählen ohne Bedingung"));
}

TEST(AssessmentText, ShowsEachFindingOnItsWayIntoTheList) {
    AssessedSite site = OneAssessment();
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Summe der Schalen: 400\n"
                                "  Gesamtdeckung ohne Kieselalgen: 80 %\n"
                                "  Deckung der Makroalgen: 40 %\n"));
    EXPECT_THAT(text,
                HasSubstr("    Achnanthidium minutissimum  Brücke       300     75,0000         75,0000\n"));
    EXPECT_THAT(text, HasSubstr("    Cladophora glomerata cf.  Brücke               40     50,0000        "
                                "                           60,0000\n"
                                "                              Belag grün                  25,0000        "
                                "      40   10,0000\n"));
    EXPECT_THAT(text, HasSubstr("    Fontinalis größer  ID_PS 5  Großgruppe zählt nach WRRL nicht\n"));
    Trace(site).Column->ValveSumCarried = true;
    EXPECT_THAT(Printed(site), HasSubstr("  Summe der Schalen: 400, übernommen vom Teilraum davor"));
}

TEST(AssessmentText, ShowsTheFindingsOfBothRunsOnce) {
    AssessedSite site = OneAssessment();
    site.Assessments.push_back(site.Assessments.front());
    site.Assessments[1].KAOnly = true;
    const auto lists = [&] {
        const std::string text = Printed(site);
        std::size_t found = 0;
        for (std::size_t at = 0; (at = text.find("\nHäufigkeitsliste\n", at)) != std::string::npos; ++at)
            ++found;
        return found;
    };
    EXPECT_EQ(lists(), 1u);
    EXPECT_THAT(Printed(site), HasSubstr("  Häufigkeitsliste und Taxa: wie oben.\n"));
    site.Assessments[1].Trace.Column->Findings[1].Cell = 61;
    EXPECT_EQ(lists(), 2u);
}

TEST(AssessmentText, SaysWhyAFindingIsNotListed) {
    struct Case {
        NotListed Rule;
        std::string Reason;
    };
    const Case cases[] = {
        {NotListed::NoTaxonomy, "Systematik führt zu keiner Großgruppe\n"},
        {NotListed::NoRatings, "Taxon ohne Einstufung\n"},
        {NotListed::OtherLebensform, "Lebensform zählt nach WRRL nicht\n"},
        {NotListed::OtherMajorGroup, "Großgruppe zählt nach WRRL nicht\n"},
        {NotListed::OutOfScope, "steht nicht in der Liste des Projekts\n"},
    };
    for (const Case& c : cases) {
        AssessedSite site = OneAssessment();
        Trace(site).Column->Findings[2].LeftOut = c.Rule;
        EXPECT_THAT(Printed(site), HasSubstr("Fontinalis größer  ID_PS 5  " + c.Reason));
    }
}

TEST(AssessmentText, ShowsTheTermsOfAnIndexOnce) {
    const AssessedSite site = OneAssessment();
    const std::string term = "    Cladophora glomerata                    40     50,0000        2   2,2";
    EXPECT_THAT(Printed(site), HasSubstr("Trophieindex (TI)\n"));
    EXPECT_THAT(Printed(site), HasSubstr(term));
    Explanation calculation;
    calculation.Indices = site.Assessments.front().Indices;
    EXPECT_THAT(Printed(site, German, calculation), HasSubstr("  Beiträge zu TI: siehe unten.\n"));
    EXPECT_THAT(Printed(site, German, calculation), Not(HasSubstr(term)));
    // another variant of the calculation has other sums
    calculation.Indices[0].WeightSum = 120;
    EXPECT_THAT(Printed(site, German, calculation), HasSubstr(term));
}

TEST(AssessmentText, TellsAnIndexThatCameFromTheOtherRow) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(Printed(site), Not(HasSubstr("awaErgProjekt")));
    Trace(site).Trophic->Ratio.Index = 2.5F;
    EXPECT_THAT(Printed(site),
                HasSubstr("      verwendet: 2,5, aus der ersten Zeile des Teilraums in awaErgProjekt\n"));
}

TEST(AssessmentText, TellsHowATaxonWithAndWithoutCFCounts) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(Printed(site), Not(HasSubstr("mit und ohne cf.")));
    CountedTaxon certain = Trace(site).ReferenceSpecies->Taxa[0];
    certain.CF = false;
    Trace(site).ReferenceSpecies->Taxa.push_back(certain);
    EXPECT_THAT(Printed(site),
                HasSubstr("    Ein Taxon mit und ohne cf. steht in zwei Zeilen. Als Referenzart "));
    EXPECT_THAT(Printed(site, English), HasSubstr("    A taxon with and without cf. stands in two rows. "));
}

TEST(AssessmentText, PutsNoBracketsAroundBrackets) {
    AssessedSite site = OneAssessment();
    Trace(site).Overall->OEZK_Klasse = "gut (Übung)";
    Trace(site).Overall->ClassNames = {"gut (Übung)", "sehr gut", "mäßig (Übung)"};
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Ökologischer Zustand: 2, gut (Übung)\n"));
    EXPECT_THAT(text, HasSubstr("  Ungünstigste Klasse: 3, mäßig (Übung), allein im Modul Referenzarten.\n"));
    EXPECT_THAT(text, HasSubstr("Modul Trophie: Klasse 2, gut (Übung)\n"));
    EXPECT_THAT(text, HasSubstr("Modul Saprobie: Klasse 1 (sehr gut)\n"));
}

/// The marker -1 in place of an expected value that the tables lack.
void TakeExpectedValue(ReferenceLookup& lookup, RatioTrace& ratio) {
    lookup.Found = false;
    lookup.Result = store::Value(-1.0);
    ratio.ExpectedValue = -1;
}

TEST(AssessmentText, SaysThatAClassWithoutExpectedValueSaysNothing) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(Printed(site), Not(HasSubstr("fehlt der erwartete Wert")));
    TakeExpectedValue(Trace(site).Trophic->ExpectedValue, Trace(site).Trophic->Ratio);
    const std::string text = Printed(site);
    EXPECT_THAT(text,
                HasSubstr("  Dem Modul Trophie fehlt der erwartete Wert: sein EQR ist mit -1 gerechnet, "
                          "seine Klasse sagt nichts über das\n      Gewässer.\n"));
    EXPECT_THAT(text, testing::ContainsRegex("  Trophie +[0-9,]+ +n\\.v\\. "));
    EXPECT_THAT(text, HasSubstr(") / (4 - (-1)) = "));
    EXPECT_THAT(Printed(site, English), HasSubstr("The module trophic lacks its expected value"));
}

TEST(AssessmentText, SaysWhichModuleDoesNotCountForWantOfAClass) {
    AssessedSite site = OneAssessment();
    EXPECT_THAT(Printed(site), Not(HasSubstr("zählt nicht mit")));
    Trace(site).Overall->Classes[0] = -1;
    TakeExpectedValue(Trace(site).Trophic->ExpectedValue, Trace(site).Trophic->Ratio);
    EXPECT_THAT(Printed(site), HasSubstr("  Das Modul Trophie hat keine Klasse und zählt nicht mit.\n"));
    EXPECT_THAT(Printed(site), Not(HasSubstr("fehlt der erwartete Wert")));
}

TEST(AssessmentText, TellsAnEmptyExpectedValueFromAMissingRow) {
    AssessedSite site = OneAssessment();
    IndexModuleTrace& trophic = *Trace(site).Trophic;
    // The module fails at the Null: neither index nor ratio was reached.
    trophic.ExpectedValue.Result = store::Value();
    trophic.Ratio = {};
    trophic.Done = false;
    EXPECT_THAT(Printed(site), HasSubstr("    Erwarteter Wert: nicht eingetragen, aus awaWRRL_ETI ("));
    EXPECT_THAT(Printed(site), Not(HasSubstr("verwendet: ")));
    // Its statement fails: whether there is a row is not known.
    trophic.ExpectedValue.Found = false;
    EXPECT_THAT(Printed(site), HasSubstr("    Erwarteter Wert: nicht berechnet\n"));
}

TEST(AssessmentText, TellsARowOfBoundsWithoutClassFromAMissingRow) {
    AssessedSite site = OneAssessment();
    RatioTrace& trophic = Trace(site).Trophic->Ratio;
    trophic.Class.Hit.reset();
    trophic.Class.OEZK = -1;
    trophic.Class.Lookup.Result = store::Value();
    trophic.Class.Lookup.Found = true;
    EXPECT_THAT(Printed(site), HasSubstr("    Klasse: nicht eingetragen, aus awaWRRL_TIOEZK ("));
    EXPECT_THAT(Printed(site), Not(HasSubstr("keine Zeile in awaWRRL_TIOEZK")));
}

TEST(AssessmentText, TellsWhatDiffersFromTheStoredRow) {
    AssessedSite site = OneAssessment();
    ExplainedAssessment& assessment = site.Assessments.front();
    assessment.State = StoredResult::OutOfDate;
    assessment.Columns = {{"TI_EQR", 0.75F, 0.5F, true},
                          {"SI", 1.5F, 1.5F, false},
                          {"OEZK", std::int16_t{2}, std::int16_t{4}, true},
                          {"OEZK_Klasse", "gut", "unbefriedigend", true}};
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Gespeicherte Bewertung: veraltet; gespeichert: 4 (unbefriedigend)\n"));
    EXPECT_THAT(text, HasSubstr("Was von der gespeicherten Bewertung abweicht\n"));
    EXPECT_THAT(text, HasSubstr("  TI_EQR        0,75             0,5\n"));
    EXPECT_THAT(text, Not(HasSubstr("  SI  ")));
    assessment.Columns[2].Stored = store::Value();
    EXPECT_THAT(Printed(site), HasSubstr("veraltet; gespeichert: keine Klasse\n"));
}

TEST(AssessmentText, TellsHowFarAFailedAssessmentCame) {
    AssessedSite site = OneAssessment();
    site.Assessments.front().Failed = Explanation::Failure{11, "division by zero: Größe 0"};
    Trace(site).Overall.reset();
    Trace(site).Saprobic.reset();
    Trace(site).Trophic->Done = false;
    Trace(site).Trophic->Ratio.Unrounded.reset();
    Trace(site).Trophic->Ratio.Class = {};
    Trace(site).Trophic->Ratio.Raised = {};
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Ökologischer Zustand: nicht berechnet\n"
                                "  Gespeicherte Bewertung: unvollständig\n"
                                "  Die Bewertung schlägt fehl: division by zero: Größe 0 (11)\n"));
    EXPECT_THAT(text, HasSubstr("Modul Trophie: nicht berechnet\n"));
    EXPECT_THAT(text, Not(HasSubstr("Gesamtklasse")));
    EXPECT_THAT(text, Not(HasSubstr("denn der Index")));
    EXPECT_THAT(text, Not(HasSubstr("Saprobie:")));
    EXPECT_THAT(text, HasSubstr("Häufigkeitsliste\n"));
}

TEST(AssessmentText, WithoutTheListShowsNoClass) {
    AssessedSite site = OneAssessment();
    Trace(site).ListBuilt = false;
    EXPECT_THAT(Printed(site), HasSubstr("  Die Häufigkeitsliste wurde nicht fertig: "));
    Trace(site).Column.reset();
    EXPECT_THAT(Printed(site), HasSubstr("  Ökologischer Zustand: nicht berechnet\n"));
    EXPECT_THAT(Printed(site), HasSubstr("  Die Häufigkeitsliste hat keinen Platz für diesen Teilraum: "));
    EXPECT_THAT(Printed(site), Not(HasSubstr("Ungünstigste Klasse")));
}

TEST(AssessmentText, LeavesThePointsOfTexts) {
    AssessedSite site = OneAssessment();
    Trace(site).Trophic->ReferenceClass.Result = "mt 1.5";
    EXPECT_THAT(Printed(site), HasSubstr("    Referenzklasse: mt 1.5, aus awaWRRL_TGZK"));
}

TEST(AssessmentText, TellsThatAnAssessmentWouldNotBeMadeAgain) {
    AssessedSite site = OneAssessment();
    ExplainedAssessment& assessment = site.Assessments.front();
    assessment.KAOnly = true;
    assessment.Trace = {};
    assessment.Indices.clear();
    assessment.State = StoredResult::OutOfDate;
    assessment.Trace.Skipped = NotAssessed::DiatomsAlready;
    EXPECT_THAT(Printed(site), testing::StartsWith("Bewertung nach WRRL, Kieselalgen allein\n"));
    EXPECT_THAT(Printed(site), HasSubstr("beruht selbst auf den Kieselalgen"));
    assessment.Trace.Skipped = NotAssessed::NoSample;
    EXPECT_THAT(Printed(site), HasSubstr("keine Algenaufnahme mehr"));
}

TEST(AssessmentText, WithoutAnyClassSaysSo) {
    AssessedSite site = OneAssessment();
    OverallTrace& overall = *Trace(site).Overall;
    overall.Classes = {-1, -1, -1};
    overall.ClassNames = {"n.v.", "n.v.", "n.v."};
    overall.WorstCase = overall.OEZK = -1;
    overall.Count = 3;
    overall.Raised.reset();
    overall.Softened = false;
    overall.OEZK_Klasse = "n.v.";
    const std::string text = Printed(site);
    EXPECT_THAT(text, HasSubstr("  Ökologischer Zustand: keine Klasse gefunden (n.v.)\n"));
    EXPECT_THAT(text, HasSubstr("  Kein Modul hat eine Klasse.\n"));
    EXPECT_THAT(text, Not(HasSubstr("Milderung")));
}

TEST(AssessmentText, SaysThatNothingIsStoredOrReadable) {
    EXPECT_EQ(Printed({}), "Bewertung nach WRRL: keine gespeichert.\n\n");
    AssessedSite failed;
    failed.LastRun = Explanation::Failure{3265, "no sampling site at 'Brücke'"};
    EXPECT_EQ(Printed(failed),
              "Bewertung nach WRRL: keine gespeichert.\n"
              "  Der letzte Lauf ist fehlgeschlagen: no sampling site at 'Brücke' (3265)\n\n");
    AssessedSite site;
    site.Failed = Explanation::Failure{3265, "the station 'Brücke' lists 'XY'"};
    EXPECT_EQ(
        Printed(site),
        "Bewertung nach WRRL: gespeichert, aber nicht erklärbar: the station 'Brücke' lists 'XY' (3265)\n\n");
}

TEST(AssessmentText, HoldsItsLinesWithinAPage) {
    for (const std::int16_t language : {German, English}) {
        std::istringstream lines(Printed(OneAssessment(), language));
        for (std::string line; std::getline(lines, line);) EXPECT_LE(DisplayWidth(line), 120u) << line;
    }
}

}  // namespace
