#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/ProjektFixture.h"

namespace FX_Algen::cli {

/// The project of `ProjektFixture`, with seston in the sub-habitats 12 (no algae sample) and 13 (valves).
///
/// 12: 1 with 4, 2 with 4, 3 with 2, and 1 cf. with 0. N = 10, sum of abundance * SI = 4 * 2.5 + 4 * 1.5 =
/// 16, index 1.6. Valences: o 4 * 5 = 20, b 4 * 5 + 4 * 5 = 40, a 4 * 5 = 20, together 80: 2.5, 5, 2.5, 0. Q
/// = 4 * 0.9^2 + 4 * 0.1^2 + 2 * 1.6^2 = 3.24 + 0.04 + 5.12 = 8.4, n = 2: root of 8.4 / 10 = 0.9165. H = -(2
/// * 0.4 ln 0.4 + 0.2 ln 0.2) = 0.733033 + 0.321888 = 1.054920; S = 3: 2 / ln 10 = 0.868589 and H / ln 3 =
/// 0.960230. 13: 2 with 5. Index 1.5, everything else of one taxon 0.
class SestonFixture : public ProjektFixture {
protected:
    void SetUp() override {
        ProjektFixture::SetUp();
        Execute({
            "INSERT INTO sesKlasse (ID_KLASSE, Klasse) VALUES (1, 'Bacillariophyceae');",
            "INSERT INTO sesArt (ID_ART, Gattung, Art, ID_Klasse, W_SI, W_B, W_A) "
            "VALUES (1, 'Stephanodiscus', 'hantzschii', 1, 2.5, 5, 5);",
            "INSERT INTO sesArt (ID_ART, Gattung, Art, ID_Klasse, W_SI, W_O, W_B) "
            "VALUES (2, 'Asterionella', 'formosa', 1, 1.5, 5, 5);",
            "INSERT INTO sesArt (ID_ART, Gattung, Art) VALUES (3, 'Planktothrix', 'rubescens');",
            "INSERT INTO sesTeilraum (ID_TR) VALUES (12);",
            "INSERT INTO sesTeilraum (ID_TR) VALUES (13);",
            "INSERT INTO sesPrStelle (ID_PS, ID_TR, PSBez) VALUES (1, 12, 'Brücke, Mitte');",
            "INSERT INTO sesPrStelle (ID_PS, ID_TR) VALUES (2, 13);",
            "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 3, 0, 2);",
            "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 1, 0, 4);",
            "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 1, -1, 0);",
            "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (1, 2, 0, 4);",
            "INSERT INTO sesArtPrStelle (ID_PS, ID_ART, CF, Abundanz) VALUES (2, 2, 0, 5);",
        });
    }

    void CalculateSeston() {
        const Outcome outcome = Call({"calculate", path_, "--seston"});
        ASSERT_EQ(outcome.Code, 0) << outcome.Err;
    }

    nlohmann::json Json(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin() + 1, path_);
        arguments.insert(arguments.end(), {"--format", "json"});
        const Outcome outcome = Call(arguments);
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        return nlohmann::json::parse(outcome.Out);
    }

    /// State of the seston row of a sub-habitat.
    std::string State(int ID_TR) {
        const nlohmann::json rows =
            Json({"results", "--seston", "--scope", "Teilraum:" + std::to_string(ID_TR)});
        return rows.size() == 1 ? rows[0]["Status"].get<std::string>() : "no row";
    }
};

}  // namespace FX_Algen::cli
