// Pictures as a program without the toolkit asks for them: no application, no display, no platform.
#include "FX_Algen/ui/Pictures.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "FX_Algen/Error.h"

namespace FX_Algen::ui {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class Pictures : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(name);
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ =
            fs::path(testing::TempDir()) / (std::string("Bäche_") + test->name() + std::to_string(getpid()));
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    Texts Files() const {
        Texts names;
        for (const auto& entry : fs::directory_iterator(folder_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    static std::string Bytes(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    fs::path folder_;
};

charts::Chart ChartOf(int sites) {
    charts::Chart chart;
    chart.Title = "Verteilung der Güteklassen";
    chart.AxisTitle = "Taxa [Anzahl]";
    chart.AllSeries = {{9, false, 0, "Güteklasse I"}, {10, true, 9, "Güteklasse II"}};
    for (int site = 1; site <= sites; ++site)
        chart.Sites.push_back({"Schwöll " + std::to_string(site), {3.0, 2.0}});
    return chart;
}

int Count(const std::string& text, const std::string& part) {
    int count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

/// Whole number of 4 bytes, the highest first.
int Number(const std::string& bytes, std::size_t at) {
    int number = 0;
    for (std::size_t byte = at; byte < at + 4; ++byte)
        number = number * 256 + static_cast<unsigned char>(bytes.at(byte));
    return number;
}

struct EndingCase {
    const char* Path;
    std::optional<PictureFormat> Format;
};

TEST(PictureFormatOf, is_told_by_the_ending) {
    for (const auto& one :
         {EndingCase{"a.svg", PictureFormat::Svg}, EndingCase{"/x/ä.PNG", PictureFormat::Png},
          EndingCase{"a.b.Pdf", PictureFormat::Pdf}, EndingCase{"a.jpg", std::nullopt},
          EndingCase{"a", std::nullopt}, EndingCase{"", std::nullopt}, EndingCase{"svg", std::nullopt},
          EndingCase{"x.svg/a", std::nullopt}, EndingCase{"a.svg.gz", std::nullopt},
          EndingCase{"a.", std::nullopt}, EndingCase{".svg", std::nullopt}})
        EXPECT_EQ(PictureFormatOf(one.Path), one.Format) << one.Path;
}

TEST_F(Pictures, are_written_without_display_or_application) {
    for (const char* name : {"a.svg", "a.png", "a.pdf"}) {
        EXPECT_EQ(WritePictures({ChartOf(3)}, Path(name)), Texts{Path(name)});
    }
    const auto svg = Bytes(Path("a.svg"));
    EXPECT_NE(svg.find("Verteilung der Güteklassen</title>"), std::string::npos);
    EXPECT_NE(svg.find(">Güteklasse II</text>"), std::string::npos);
    // 842 by 595 points, two dots each: in the head of a PNG, behind signature, length and "IHDR".
    const auto png = Bytes(Path("a.png"));
    EXPECT_EQ(png.substr(1, 3), "PNG");
    EXPECT_EQ(Number(png, 16), 1684);
    EXPECT_EQ(Number(png, 20), 1190);
    EXPECT_EQ(Bytes(Path("a.pdf")).substr(0, 5), "%PDF-");
    EXPECT_EQ(Files(), (Texts{"a.pdf", "a.png", "a.svg"}));
}

TEST_F(Pictures, leave_the_locale_of_the_program_as_it_was) {
    // What the toolkit reads when it begins; a program that takes numbers from C functions would get commas.
    setenv("LC_ALL", "C.UTF-8", 1);
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_EQ(before, "C");
    WritePictures({ChartOf(1)}, Path("a.svg"));
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

TEST_F(Pictures, of_many_sites_fill_several_pages) {
    const auto svg = WritePictures({ChartOf(200)}, Path("a.svg"));
    ASSERT_GE(svg.size(), 3u);
    EXPECT_EQ(svg[0], Path("a.svg"));
    EXPECT_EQ(svg[1], Path("a-2.svg"));
    EXPECT_EQ(Files().size(), svg.size());
    const auto pdf = WritePictures({ChartOf(200)}, Path("b.pdf"));
    EXPECT_EQ(pdf, Texts{Path("b.pdf")});
    const auto bytes = Bytes(Path("b.pdf"));
    EXPECT_EQ(Count(bytes, "/Type /Page\n"), static_cast<int>(svg.size()));
    // Every site is on some page.
    std::string all;
    for (const auto& path : svg) all += Bytes(path);
    for (int site = 1; site <= 200; ++site) {
        const auto number = std::to_string(site);
        EXPECT_TRUE(all.find(">Schwöll " + number + "<") != std::string::npos ||
                    all.find(">" + number + "<") != std::string::npos)
            << site;
    }
}

TEST_F(Pictures, of_several_charts_stand_one_behind_the_other) {
    auto second = ChartOf(2);
    second.Title = "Zweite Übersicht";
    EXPECT_EQ(WritePictures({ChartOf(2), second}, Path("a.svg")), (Texts{Path("a.svg"), Path("a-2.svg")}));
    EXPECT_NE(Bytes(Path("a-2.svg")).find("<title>Zweite Übersicht</title>"), std::string::npos);
    WritePictures({ChartOf(2), second}, Path("a.pdf"));
    EXPECT_EQ(Count(Bytes(Path("a.pdf")), "/Type /Page\n"), 2);
}

TEST_F(Pictures, have_the_size_that_is_asked_for) {
    WritePictures({ChartOf(2)}, Path("a.png"), {400, 300, 20});
    const auto png = Bytes(Path("a.png"));
    EXPECT_EQ(Number(png, 16), 800);
    EXPECT_EQ(Number(png, 20), 600);
}

TEST_F(Pictures, without_sites_are_written_all_the_same) {
    auto chart = ChartOf(0);
    chart.Empty = "Für diese Auswahl gibt es keine Ergebnisse.";
    WritePictures({chart}, Path("a.svg"));
    EXPECT_NE(Bytes(Path("a.svg")).find("keine Ergebnisse."), std::string::npos);
}

TEST_F(Pictures, of_no_chart_are_no_files) {
    EXPECT_EQ(WritePictures({}, Path("a.pdf")), Texts{});
    EXPECT_EQ(Files(), Texts{});
}

TEST_F(Pictures, of_an_unknown_format_fail_with_13_and_leave_nothing) {
    for (const char* name : {"a.jpg", "a"}) {
        try {
            WritePictures({ChartOf(2)}, Path(name));
            ADD_FAILURE() << "written";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
            EXPECT_NE(error.Description().find(Path(name)), std::string::npos) << error.Description();
            EXPECT_NE(error.Description().find(".svg, .png or .pdf"), std::string::npos)
                << error.Description();
        }
    }
    EXPECT_EQ(Files(), Texts{});
}

TEST_F(Pictures, in_a_missing_folder_fail_with_53_that_names_it) {
    try {
        WritePictures({ChartOf(2)}, Path("Flüsse/a.pdf"));
        ADD_FAILURE() << "written";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
        EXPECT_NE(error.Description().find(Path("Flüsse/a.pdf")), std::string::npos) << error.Description();
        EXPECT_NE(error.Description().find("Make the folder"), std::string::npos) << error.Description();
    }
    EXPECT_EQ(Files(), Texts{});
}

TEST_F(Pictures, can_be_written_again_and_again_and_are_the_same) {
    WritePictures({ChartOf(5)}, Path("a.svg"));
    const auto first = Bytes(Path("a.svg"));
    for (int time = 0; time < 20; ++time) WritePictures({ChartOf(5)}, Path("a.svg"));
    EXPECT_EQ(Bytes(Path("a.svg")), first);
    EXPECT_EQ(Files(), Texts{"a.svg"});
}

TEST_F(Pictures, can_be_written_by_another_thread) {
    WritePictures({ChartOf(5)}, Path("a.png"));
    std::thread([this] { WritePictures({ChartOf(5)}, Path("b.png")); }).join();
    EXPECT_EQ(Bytes(Path("a.png")), Bytes(Path("b.png")));
}

}  // namespace
}  // namespace FX_Algen::ui
