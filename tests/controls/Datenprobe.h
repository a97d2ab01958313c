#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "FX_Algen/Display.h"
#include "FX_Algen/Error.h"
#include "FX_Algen/Store.h"
#include "controls/DataSource.h"
#include "controls/Form.h"
#include "store/OpenConnection.h"
#include "support/Testdatei.h"

namespace FX_Algen::controls {

/// A project database with two sub-habitats, two sampling sites and three stands.
class Datenprobe : public Testdatei {
public:
    Datenprobe() : Testdatei("controls") {
        Ausfuehren(
            "INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA, MitBewuchsdichte) VALUES (1, 12.5, 0.1, "
            "NULL)");
        Ausfuehren("INSERT INTO awaTeilraum (ID_TR, DG_Gesamt, DG_MA) VALUES (2, 20, 3)");
        Ausfuehren("INSERT INTO awaPrStelle (ID_TR, PSBez, Anzeige) VALUES (1, 'Brücke über die Ötz', True)");
        Ausfuehren("INSERT INTO awaPrStelle (ID_TR, PSBez, Anzeige) VALUES (2, 'Furt', NULL)");
        for (const char* stand : {"(1, 'Fels', 10, 1)", "(1, 'Kies', 20, 2)", "(1, 'Sand', NULL, 3)"})
            Ausfuehren("INSERT INTO awaTeilraum_MI (ID_TR, MI_Bez, DG_MI, RF_MI) VALUES " +
                       std::string(stand));
        Datenbank();
    }

    /// The only value of a query, as the gateway reads it.
    store::Value Wert(const std::string& abfrage) const {
        const auto zeilen = Handle()->OpenRecordset(abfrage);
        return (*zeilen)[0];
    }
    /// The same over a connection of its own: what is not in the file is not seen there.
    store::Value WertInDerDatei(const std::string& abfrage) const {
        store::Value wert;
        std::thread([&] {
            const auto datenbank = store::Workspace().OpenDatabase(Pfad());
            wert = (*datenbank->OpenRecordset(abfrage))[0];
        }).join();
        return wert;
    }
    /// From here on the store refuses every change, or no longer.
    void NurLesen(bool an) const {
        Handle()->SharedConnection()->TheEngine().Run(an ? "PRAGMA query_only=1" : "PRAGMA query_only=0");
    }
};

/// The failure of a call; none where it does not fail.
template <class Call>
std::optional<Error> Failing(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace FX_Algen::controls
