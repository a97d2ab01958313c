// A host in small: makes a database, puts in one finding, calculates it and reads the result.

#include <cstdlib>
#include <iostream>

#include "FX_Algen/AL_PS.h"
#include "FX_Algen/Create.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: consumer <new database>\n";
        return EXIT_FAILURE;
    }
    namespace store = FX_Algen::store;
    try {
        store::CreateDatabase(argv[1], store::DatabaseKind::Project);
        const store::DatabasePtr database = store::Workspace().OpenDatabase(argv[1]);
        for (const char* statement : {
                 "INSERT INTO Teilraum (ID_TR, TRBez) VALUES (17, 'Uferbänke');",
                 "INSERT INTO awaTeilraum (ID_TR) VALUES (17);",
                 "INSERT INTO awaPrStelle (ID_PS, ID_TR) VALUES (1, 17);",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 1, 0, 300);",
                 "INSERT INTO awaArtPrStelle (ID_PS, ID_ART, CF, Schalen_KA) VALUES (1, 2, 0, 100);",
                 "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer) VALUES (1, 1.5, 2);",
                 "INSERT INTO awaModulStandard (ID_ART, SI, Sap_GBer) VALUES (2, 3, 2);",
             })
            database->Execute(statement);

        FX_Algen::AL_PS ps;
        ps.CurrentDB(database);
        ps.SprachID(10000);
        ps.Berechnung_Init();
        ps.TeilraumID(17);
        ps.Berechnung_Execute();

        // w = 300*2/400*100 = 150 and 100*2/400*100 = 50; (150*1.5 + 50*3) / 200 = 1.875
        const store::RecordsetPtr result =
            database->OpenRecordset("SELECT * FROM awaErgProjekt WHERE ID=17;");
        const double index = (*result)["SapIndex"].R8();
        std::cout << "SapIndex " << index << '\n';
        return index == 1.875 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const FX_Algen::Error& error) {
        std::cerr << error.Number() << ": " << error.Description() << '\n';
        return EXIT_FAILURE;
    }
}
