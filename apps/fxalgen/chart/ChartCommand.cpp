#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <optional>
#include <ostream>

#include "FX_Algen/Error.h"
#include "fxalgen/Commands.h"
#include "fxalgen/chart/Charts.h"

namespace FX_Algen::cli {

namespace {

constexpr std::string_view Valences = "valences";
constexpr std::string_view QualityClasses = "quality-classes";
constexpr std::string_view Dominance = "dominance";
constexpr std::array<std::string_view, 3> Endings = {".svg", ".png", ".pdf"};

/// The ending of a path in small letters, with its point.
std::string EndingOf(const std::string& path) {
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return ending;
}

/// "1.5" or "1,5" as a percentage from 0 to below 100; none for any other text.
std::optional<float> Percentage(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    const char* end = text.data() + text.size();
    double percent = 0;
    const auto [last, failure] = std::from_chars(text.data(), end, percent, std::chars_format::fixed);
    if (failure != std::errc() || last != end || text.front() == '-') return std::nullopt;
    const auto value = static_cast<float>(percent);
    return value >= 0 && value < 100 ? std::optional(value) : std::nullopt;
}

class ChartCommand : public Command {
public:
    explicit ChartCommand(PictureWriter pictures) : pictures_(std::move(pictures)) {}

    std::string_view Name() const override { return "chart"; }
    std::string_view Description() const override {
        return "Draw results or findings of sub-habitats as a picture.";
    }
    std::string_view Example() const override {
        return "  fxalgen chart project.db quality-classes -o classes.svg\n"
               "  fxalgen chart project.db dominance --scope UStelle:3 --min 1.5 --diatoms -o diatoms.pdf";
    }

    void Arguments(CLI::App& app) override {
        app.add_option("PROJECT", path_, "Project database")->required();
        app.add_option("NAME", name_,
                       "valences (saprobic valences), quality-classes (taxa by class) or dominance (relative "
                       "abundances of the taxa, a page for each sub-habitat)")
            ->required()
            ->check(
                CLI::IsMember({std::string(Valences), std::string(QualityClasses), std::string(Dominance)}));
        app.add_option("-o", picture_,
                       "File to write, a picture that is there is replaced: .svg, .png or .pdf. A pdf holds "
                       "all pages; of the others each further page has a file of its own, NAME-2.svg")
            ->required();
        app.add_option("--scope", scope_,
                       "Sub-habitats to show: Projekt:<ID_PRJ>, UStelle:<ID_UUS>, Rechenmanager:<ID_RechMan> "
                       "or Teilraum:<ID_TR>; without it all of them");
        app.add_flag("--grouped", grouped_,
                     "quality-classes: bars side by side instead of on top of each other");
        app.add_option(
               "--labels", labels_,
               "valences, quality-classes: name sites by station, date and site (station, the default) "
               "or by their display name (display)")
            ->check(CLI::IsMember({"station", "display"}));
        app.add_option("--min", min_,
                       "dominance: only taxa above this relative abundance in percent, comma or point as "
                       "decimal mark (default 0)");
        app.add_flag("--diatoms", diatoms_, "dominance: the diatoms instead of all other algae");
    }

    Exit Execute(Streams& streams) override {
        const float min = CheckOptions();
        const Scope scope = scope_ ? ParseScope(*scope_) : Scope{};
        if (!pictures_) {
            streams.Err << "fxalgen chart: this build draws no pictures: it was made without the toolkit "
                           "(FX_ALGEN_UI=OFF)\n";
            return Exit::Failed;
        }
        const store::DatabasePtr database = store::Workspace().OpenDatabase(path_);
        RequireOtherFile();
        const std::vector<Teilraum> list = ReadTeilraeume(*database, scope);
        WarnOfEmptyScope(Name(), scope_, list, streams.Err);
        const ChartSource source{database, path_, SprachID()};
        const ChartSet set = name_ == Dominance
                                 ? DominanceCharts(source, list, {min, diatoms_}, streams)
                                 : DistributionCharts(source, list, DistributionChart(), streams);
        for (const std::string& message : set.Messages) streams.Err << "fxalgen chart: " << message << '\n';
        if (set.Charts.empty()) return Exit::Failed;
        Write(set.Charts, streams);
        return set.Failed ? Exit::Failed : Exit::Done;
    }

private:
    /// What the declarations cannot tell. Returns the least abundance asked for.
    float CheckOptions() const {
        const auto refuse = [&](bool given, const std::string& option, const std::string& with) {
            if (given) throw UsageError(option + " goes with " + with + " alone, not with " + name_);
        };
        refuse(grouped_ && name_ != QualityClasses, "--grouped", std::string(QualityClasses));
        refuse(labels_ && name_ == Dominance, "--labels", "valences and quality-classes");
        refuse(min_ && name_ != Dominance, "--min", std::string(Dominance));
        refuse(diatoms_ && name_ != Dominance, "--diatoms", std::string(Dominance));
        if (std::find(Endings.begin(), Endings.end(), EndingOf(picture_)) == Endings.end()) {
            throw UsageError("-o '" + picture_ +
                             "' names no format of pictures; it must end in .svg, .png or .pdf");
        }
        if (!min_) return 0;
        if (const auto min = Percentage(*min_)) return *min;
        throw UsageError("--min '" + *min_ +
                         "' is no percentage; write a number from 0 to below 100, such as 1.5 or 1,5");
    }

    /// The database may have any name, also that of a picture.
    void RequireOtherFile() const {
        std::error_code none;
        if (std::filesystem::equivalent(path_, picture_, none)) {
            throw UsageError("-o names the project database itself");
        }
    }

    DistributionOptions DistributionChart() const {
        const std::int16_t art = name_ == Valences ? 1 : 2;
        const std::int16_t label = labels_ == "display" ? 2 : 1;
        return {art, label, grouped_};
    }

    void Write(const std::vector<charts::Chart>& charts, Streams& streams) const {
        const std::vector<std::string> written = pictures_(charts, picture_);
        for (const std::string& path : written) streams.Out << path << '\n';
        WarnOfFormerPages(written.size(), streams);
    }

    /// Fewer pages than last time: what is left of the former picture must not be taken for a part of this.
    void WarnOfFormerPages(std::size_t pages, Streams& streams) const {
        const std::size_t point = picture_.rfind('.');
        const std::string next =
            picture_.substr(0, point) + "-" + std::to_string(pages + 1) + picture_.substr(point);
        if (EndingOf(picture_) == ".pdf" || !std::filesystem::exists(next)) return;
        streams.Err << "fxalgen chart: warning: " << next
                    << " was there before and is no page of this chart\n";
    }

    PictureWriter pictures_;
    std::string path_;
    std::string name_;
    std::string picture_;
    std::optional<std::string> scope_;
    std::optional<std::string> labels_;
    std::optional<std::string> min_;
    bool grouped_ = false;
    bool diatoms_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeChartCommand(PictureWriter pictures) {
    return std::make_unique<ChartCommand>(std::move(pictures));
}

std::unique_ptr<Command> MakeChartCommand() { return MakeChartCommand(BuiltInPictures()); }

}  // namespace FX_Algen::cli
