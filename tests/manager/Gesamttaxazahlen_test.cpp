#include "manager/Gesamttaxazahlen.h"

#include "manager/Auswahldatenbank.h"
#include "store/Connection.h"

namespace FX_Algen {
namespace {

using test::Auswahldatenbank;
using test::Fehlernummer;

// Findings: sub-habitat 1: 901, 902   2: 901   3: 903, 906   4: 901, 901 CF   5: 903, 904   6: 901   7: 901
// Seston:   sub-habitat 1: 801, 802            3: 801                         5: 803        6: 801   7: 801
class Gesamttaxazahlen : public testing::Test {
protected:
    Auswahldatenbank db;
};

struct Listenfall {
    std::string Liste;
    std::int16_t Taxa;
};

TEST_F(Gesamttaxazahlen, CountsTheTaxaOfAListOfSubHabitats) {
    const Listenfall faelle[] = {
        {"1,2", 2},                // 901, 902
        {" 1, 3 ,4 ", 4},          // 901, 902, 903, 906; 901 with CF is the same taxon
        {"4", 1},                  // 901 with and without CF
        {"7", 1},                  // without covers
        {"1,1,1", 2},              // a sub-habitat named again changes nothing
        {"1,2,3,4,5,6,7,999", 5},  // 901, 902, 903, 904, 906
        {"999", 0},
        {"1) OR (1=1", 5},  // as it stands: every finding
        {"SELECT Teilraum.ID_TR FROM Teilraum WHERE Teilraum.TRBez='ÄSTE'", 1},  // 7
    };
    for (const auto& fall : faelle)
        EXPECT_EQ(GesamttaxazahlTLR(db.Handle, fall.Liste), fall.Taxa) << fall.Liste;
}

TEST_F(Gesamttaxazahlen, RefusesAListThatIsNone) {
    const std::pair<const char*, std::int32_t> faelle[] = {
        {"", ErrorNumber::SyntaxError},
        {"1,,2", ErrorNumber::SyntaxError},
        {"Brücke", ErrorNumber::UnknownName},
        {"'eins'", ErrorNumber::TypeMismatch},
    };
    for (const auto& [liste, nummer] : faelle)
        EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlTLR(db.Handle, liste); }), nummer) << liste;
}

struct Bereichsfall {
    std::string AktUebersicht;
    std::int32_t ProjektID;
    std::string TaxaAuswahl;
    std::int16_t Algen;
    std::int16_t Seston;
};

TEST_F(Gesamttaxazahlen, CountsTheTaxaOfAScope) {
    db.Auswahl(1, "Projekt", {1});
    db.Auswahl(2, "Abschnitt", {12, 21});
    db.Auswahl(3, "UnvU-Stelle", {112});
    db.Auswahl(5, "Teilraum", {2, 5});
    db.Auswahl(6, "Projekt", {2, 1}, "'UnvUStelle.USBez=''Brücke'''");
    const Bereichsfall faelle[] = {
        {"Projekt", 1, "", 5, 3},  // 901, 902, 903, 904, 906; 801, 802, 803
        {"Projekt", 2, "", 1, 1},  // 901; 801
        {"Projekt", 3, "", 0, 0},
        {"UStelle", 111, "", 4, 2},  // 901, 902, 903, 906; 801, 802
        {"UStelle", 112, "", 1, 1},  // 901; 801 of sub-habitat 7
        {"UStelle", 121, "", 2, 1},  // 903, 904; 803
        {"UStelle", 1, "", 0, 0},    // the key of a project is none of a station
        {"Rechenmanager", 1, "", 5, 3},
        {"Rechenmanager", 2, "", 3, 2},  // 903, 904 of 5 and 901 of 6; 803 and 801
        {"Rechenmanager", 3, "", 1, 1},  // 901 of 4; 801 of 7
        {"Rechenmanager", 5, "", 3, 1},  // 901 of 2, 903, 904 of 5; 803 of 5
        {"Rechenmanager", 6, "", 4, 2},  // 1, 2, 3 and 6: 901, 902, 903, 906; 801, 802
    };
    for (const auto& fall : faelle) {
        SCOPED_TRACE(fall.AktUebersicht + " " + std::to_string(fall.ProjektID));
        EXPECT_EQ(Gesamttaxazahl(db.Handle, fall.AktUebersicht, fall.ProjektID, fall.TaxaAuswahl),
                  fall.Algen);
        EXPECT_EQ(GesamttaxazahlSeston(db.Handle, fall.AktUebersicht, fall.ProjektID, fall.TaxaAuswahl),
                  fall.Seston);
    }
}

TEST_F(Gesamttaxazahlen, NeedNoCoversBesidesThoseOfAStoredSelection) {
    // Without sub-habitat 4 the station 112 has the findings of 7 alone, which has no covers.
    db.Handle->Execute("DELETE * FROM awaPrStelle WHERE ID_TR=4;");
    db.Auswahl(3, "UnvU-Stelle", {112});
    EXPECT_EQ(Gesamttaxazahl(db.Handle, "UStelle", 112, ""), 1);
    EXPECT_EQ(Gesamttaxazahl(db.Handle, "Rechenmanager", 3, ""), 0);
    EXPECT_EQ(GesamttaxazahlSeston(db.Handle, "Rechenmanager", 3, ""), 1);
}

TEST_F(Gesamttaxazahlen, SelectionOfTaxaNarrowsTheScope) {
    const std::pair<const char*, std::int16_t> algen[] = {
        {" AND awaArtPrStelle.CF=True ", 1},           // 901 in 4
        {"AND awaArtPrStelle.CF", 1},                  // nothing behind the name
        {"AND (awaArtPrStelle.ID_ART>902)", 3},        // 903, 904, 906
        {"AND UnvUStelle.USBez='öd'", 2},              // 903, 904 in 5
        {"AND Teilraum.TRBez='Äste'", 1},              // 901 in 7
        {"AND awaPrStelle.PSBez='Mitte'", 1},          // 902 at site 10
        {"AND VerUStelle.USDatumVon>#5/12/2026#", 2},  // 903, 906 in 3
        {"OR Abschnitt.ID_PRJ = 2", 5},                // as it stands: 901 of project 2 is counted already
        {"AND 1=0 OR Abschnitt.ID_PRJ = 2", 1},        // the brackets are the host's
    };
    for (const auto& [auswahl, taxa] : algen)
        EXPECT_EQ(Gesamttaxazahl(db.Handle, "Projekt", 1, auswahl), taxa) << auswahl;
    EXPECT_EQ(Gesamttaxazahl(db.Handle, "UStelle", 111, "AND awaArtPrStelle.ID_ART>902"), 2);      // 903, 906
    EXPECT_EQ(GesamttaxazahlSeston(db.Handle, "Projekt", 1, "AND sesArtPrStelle.ID_ART>801"), 2);  // 802, 803
    EXPECT_EQ(GesamttaxazahlSeston(db.Handle, "UStelle", 111, "AND sesArtPrStelle.ID_ART>801"), 1);  // 802
}

TEST_F(Gesamttaxazahlen, SelectionOfTaxaDoesNotTouchAStoredSelection) {
    db.Auswahl(1, "Projekt", {1});
    EXPECT_EQ(Gesamttaxazahl(db.Handle, "Rechenmanager", 1, "AND gibtEsNicht=1"), 5);
    EXPECT_EQ(GesamttaxazahlSeston(db.Handle, "Rechenmanager", 1, "AND gibtEsNicht=1"), 3);
}

TEST_F(Gesamttaxazahlen, SelectionOfTaxaMayNameTablesOfThePathOnly) {
    const std::pair<const char*, const char*> fremd[] = {
        {"Projekt", "AND awaTeilraum.DG_Gesamt>0"}, {"Projekt", "AND awaArt.Gattung='Grünalge'"},
        {"Projekt", "AND Projekt.ID_PRJ=1"},        {"UStelle", "AND Abschnitt.RF=1"},
        {"UStelle", "AND UnvUStelle.RF=1"},
    };
    for (const auto& [bereich, auswahl] : fremd) {
        EXPECT_EQ(Fehlernummer([&] { Gesamttaxazahl(db.Handle, bereich, 1, auswahl); }),
                  ErrorNumber::UnknownName)
            << auswahl;
        EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlSeston(db.Handle, bereich, 1, auswahl); }),
                  ErrorNumber::UnknownName)
            << auswahl;
    }
}

TEST_F(Gesamttaxazahlen, FailAtTheEmptyStatementOfAnotherScope) {
    for (const char* bereich : {"", "projekt", "Projekt ", "Teilraum", "VerU-Stelle", "Übersicht"}) {
        EXPECT_EQ(Fehlernummer([&] { Gesamttaxazahl(db.Handle, bereich, 1, ""); }), ErrorNumber::SyntaxError)
            << bereich;
        EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlSeston(db.Handle, bereich, 1, ""); }),
                  ErrorNumber::SyntaxError)
            << bereich;
    }
}

TEST_F(Gesamttaxazahlen, FailWhereAStoredSelectionGivesNoStatement) {
    db.Auswahl(1, "Projekt", {1}, "Null");
    db.Auswahl(2, "Kontinent", {1});
    db.Auswahl(4, "VerU-Stelle", {1111});
    for (const std::int32_t id : {1, 2, 99}) {
        EXPECT_EQ(Fehlernummer([&] { Gesamttaxazahl(db.Handle, "Rechenmanager", id, ""); }),
                  ErrorNumber::SyntaxError);
        EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlSeston(db.Handle, "Rechenmanager", id, ""); }),
                  ErrorNumber::SyntaxError);
    }
    EXPECT_EQ(Gesamttaxazahl(db.Handle, "Rechenmanager", 4, ""), 2);  // 901, 902
    EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlSeston(db.Handle, "Rechenmanager", 4, ""); }),
              ErrorNumber::UnknownName);
}

TEST_F(Gesamttaxazahlen, OverflowAbove16Bits) {
    store::Savepoint zusammen(db.Handle->SharedConnection());
    db.Handle->Execute("DELETE * FROM awaArtPrStelle;");
    db.Handle->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) VALUES (6, 1, False);");
    // Doubled 15 times: taxa 1 to 32768.
    for (std::int32_t anzahl = 1; anzahl < 32768; anzahl *= 2)
        db.Handle->Execute("INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF) SELECT ID_PS, ID_ART + " +
                           std::to_string(anzahl) + ", CF FROM awaArtPrStelle;");
    const auto zaehlungen = {
        +[](const store::DatabasePtr& d) { return GesamttaxazahlTLR(d, "6"); },
        +[](const store::DatabasePtr& d) { return Gesamttaxazahl(d, "Projekt", 2, ""); }};
    for (const auto zaehlung : zaehlungen)
        EXPECT_EQ(Fehlernummer([&] { zaehlung(db.Handle); }), ErrorNumber::Overflow);
    db.Handle->Execute("DELETE * FROM awaArtPrStelle WHERE ID_ART=32768;");
    for (const auto zaehlung : zaehlungen) EXPECT_EQ(zaehlung(db.Handle), 32767);
}

/// The statement of a call that fails; empty where it does not.
template <class Aufruf>
std::string Anweisung(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error.Statement();
    }
    return {};
}

TEST_F(Gesamttaxazahlen, FailuresTellTheStatementAsItWasPutTogether) {
    EXPECT_EQ(Anweisung([&] { GesamttaxazahlTLR(db.Handle, "Brücke"); }),
              "SELECT DISTINCTROW awaArtPrStelle.ID_ART FROM awaPrStelle INNER JOIN awaArtPrStelle ON "
              "awaPrStelle.ID_PS = awaArtPrStelle.ID_PS WHERE awaPrStelle.ID_TR In (Brücke) GROUP BY "
              "awaArtPrStelle.ID_ART;");
    const std::pair<const char*, std::string> bereiche[] = {
        {"Projekt", "Where Abschnitt.ID_PRJ = 7 AND Fluß=1 "},
        {"UStelle", "Where VerUStelle.ID_UUS = 7 AND Fluß=1 "},
    };
    for (const auto& [bereich, bedingung] : bereiche) {
        const auto algen = Anweisung([&, b = bereich] { Gesamttaxazahl(db.Handle, b, 7, "AND Fluß=1"); });
        EXPECT_TRUE(algen.starts_with("SELECT DISTINCTROW awaArtPrStelle.ID_ART FROM (")) << algen;
        EXPECT_TRUE(algen.ends_with(bedingung + "GROUP BY awaArtPrStelle.ID_ART;")) << algen;
        const auto seston =
            Anweisung([&, b = bereich] { GesamttaxazahlSeston(db.Handle, b, 7, "AND Fluß=1"); });
        EXPECT_TRUE(seston.starts_with("SELECT DISTINCTROW sesArtPrStelle.ID_ART FROM (")) << seston;
        EXPECT_TRUE(seston.ends_with(bedingung + "GROUP BY sesArtPrStelle.ID_ART;")) << seston;
    }
}

TEST_F(Gesamttaxazahlen, LeaveFailuresOfTheStoreToTheCaller) {
    EXPECT_EQ(Fehlernummer([] { GesamttaxazahlTLR(nullptr, "1"); }), ErrorNumber::NotADatabase);
    for (const char* bereich : {"Projekt", "Rechenmanager", ""}) {
        EXPECT_EQ(Fehlernummer([&] { Gesamttaxazahl(nullptr, bereich, 1, ""); }), ErrorNumber::NotADatabase);
        EXPECT_EQ(Fehlernummer([&] { GesamttaxazahlSeston(nullptr, bereich, 1, ""); }),
                  ErrorNumber::NotADatabase);
    }
}

}  // namespace
}  // namespace FX_Algen
