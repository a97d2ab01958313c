#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

#include "FX_Algen/Error.h"
#include "FX_Algen/Value.h"
#include "wrrl/Projektdatenbank.h"

namespace FX_Algen {

/// The failure of a call; none where it does not fail.
template <class Aufruf>
std::optional<Error> Fehlschlag(Aufruf aufruf) {
    try {
        aufruf();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

/// A sub-habitat 17 at a site of bioregion 3, altitude step 2, for tests of single modules: the rows of its
/// runs and the frequency list are put in by hand.
class Bewertungsfixture : public testing::Test {
protected:
    static constexpr std::int32_t TR = 17;
    static constexpr std::int32_t Bioregion = 3;
    static constexpr std::int16_t Stufe = 2;

    Bewertungsfixture() {
        db.Zweig(1);
        db.Teilraum(TR, 1, {});
    }

    /// The rows of a run with the indices that the calculation left.
    void Lauf(bool KAOnly, const store::Value& SapIndex = 0.0, const store::Value& SapIndex_KA = 0.0,
              const store::Value& TI = 0.0, const store::Value& TI_KA = 0.0) {
        db.Zeile("awaErgProjekt", {{"ID", TR},
                                   {"KAOnly", KAOnly},
                                   {"SapIndex", SapIndex},
                                   {"SapIndex_KA", SapIndex_KA},
                                   {"TI", TI},
                                   {"TI_KA", TI_KA}});
        db.Zeile("awaErgWRRL", {{"ID", TR}, {"KAOnly", KAOnly}});
    }

    /// Gives the frequency list its column of the sub-habitat.
    void Listenspalte() {
        auto tabellen = db.Datenbank()->TableDefs();
        auto feld = store::TableDef::CreateField("A17", store::FieldType::Double);
        feld.DefaultValue = "0";
        tabellen["awaArtenlisteHaeufigkeit"].Append(feld);
    }
    void Eintrag(std::int32_t art, double abundanz, bool istKA = false, bool cf = false) {
        db.Zeile("awaArtenlisteHaeufigkeit",
                 {{"ID_Art", art}, {"CF", cf}, {"IstKA", istKA}, {"A17", abundanz}});
    }

    /// A column of the assessment.
    store::Value Wert(const std::string& spalte, bool KAOnly = false) {
        return db.Eins("SELECT " + spalte +
                       " FROM awaErgWRRL WHERE ID=17 AND KAOnly=" + (KAOnly ? "-1" : "0") + ";");
    }

    Projektdatenbank db;
};

}  // namespace FX_Algen
