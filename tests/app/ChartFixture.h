#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/BewertungFixture.h"
#include "fxalgen/chart/Charts.h"

namespace FX_Algen::cli {

/// Calls of the command `chart` on the project of `BewertungFixture`, with a writer that keeps the charts
/// instead of drawing them.
///
/// The sampling sites are "Furt" at sub-habitat 11, "Steg" at 13 and "Mühle" at 21. The taxa have names of
/// their own: 1 Cladophora glomerata, 2 Ulothrix zonata, 3 Mougeotia grün, 4 Spirogyra weiß, 11
/// Achnanthidium minutissimum, 12 Navicula lanceolata.
class ChartFixture : public BewertungFixture {
protected:
    void SetUp() override {
        BewertungFixture::SetUp();
        Execute({
            "UPDATE awaPrStelle SET PSBez='Furt', PSBez_Anzeige='Brücke unten' WHERE ID_PS=1;",
            "UPDATE awaPrStelle SET PSBez='Steg', PSBez_Anzeige='Brücke oben' WHERE ID_PS=3;",
            "UPDATE awaPrStelle SET PSBez='Mühle', PSBez_Anzeige='Am Wehr' WHERE ID_PS=4;",
            "UPDATE awaArt SET Gattung='Cladophora', Art='glomerata' WHERE ID_ART=1;",
            "UPDATE awaArt SET Gattung='Ulothrix', Art='zonata' WHERE ID_ART=2;",
            "UPDATE awaArt SET Gattung='Mougeotia', Art='grün' WHERE ID_ART=3;",
            "UPDATE awaArt SET Gattung='Spirogyra', Art='weiß' WHERE ID_ART=4;",
            "UPDATE awaArt SET Gattung='Achnanthidium', Art='minutissimum' WHERE ID_ART=11;",
            "UPDATE awaArt SET Gattung='Navicula', Art='lanceolata' WHERE ID_ART=12;",
        });
    }

    /// The charts that a call handed to its writer, and the path that it named.
    struct Drawn {
        std::vector<charts::Chart> Charts;
        std::string Path;
    };

    /// Draws into "Bild.svg" of the folder, "fxalgen chart <database> <name> …".
    cli::Outcome Draw(const std::string& name, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"chart", path_, name, "-o", Path("Bild.svg")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        drawn_ = {};
        return CallWith(arguments, [this](const std::vector<charts::Chart>& charts, const std::string& path) {
            drawn_ = {charts, path};
            return std::vector<std::string>{path};
        });
    }

    /// Calls the command with a writer of the test's own.
    static cli::Outcome CallWith(const std::vector<std::string>& arguments, PictureWriter pictures,
                                 bool terminal = false) {
        std::istringstream in;
        std::ostringstream out;
        std::ostringstream err;
        std::vector<std::unique_ptr<Command>> commands;
        commands.push_back(MakeChartCommand(std::move(pictures)));
        const int code = cli::Run(arguments, Streams{in, out, err, terminal}, std::move(commands));
        return {code, out.str(), err.str()};
    }

    const charts::Chart& TheChart() const {
        static const charts::Chart none;
        EXPECT_EQ(drawn_.Charts.size(), 1U);
        return drawn_.Charts.empty() ? none : drawn_.Charts.front();
    }

    /// "Brücke 12.05.2026 Furt: 0 2 4 0 0 0 0", with "-" where there is no value.
    static std::vector<std::string> Bars(const charts::Chart& chart) {
        std::vector<std::string> bars;
        for (const charts::Site& site : chart.Sites) {
            std::string text = site.Label + ":";
            for (const std::optional<double>& value : site.Values) {
                text += " " + (value ? store::NumberText(*value) : "-");
            }
            bars.push_back(text);
        }
        return bars;
    }

    /// All tables but those named, as the dump writes them.
    std::vector<std::string> Contents(const std::vector<std::string>& except) const {
        const std::string folder = Path("Auszug");
        EXPECT_EQ(Call({"dump", path_, folder}).Code, 0);
        std::vector<std::string> files;
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            const std::string table = file.path().stem().string();
            if (std::find(except.begin(), except.end(), table) != except.end()) continue;
            files.push_back(table + "\n" + FileText(file.path().string()));
        }
        std::filesystem::remove_all(folder);
        std::sort(files.begin(), files.end());
        return files;
    }

    static std::string FileText(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    Drawn drawn_;
};

}  // namespace FX_Algen::cli
