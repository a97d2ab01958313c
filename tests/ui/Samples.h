#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "FX_Algen/Chart.h"
#include "FX_Algen/ui/ChartWidget.h"

namespace FX_Algen::ui::samples {

inline constexpr charts::Colour Red{255, 0, 0};
inline constexpr charts::Colour Green{0, 160, 0};
inline constexpr charts::Colour Blue{0, 0, 255};
inline constexpr charts::Colour Black{0, 0, 0};

/// A page of 200 by 100 points with the elements.
inline charts::Page PageOf(std::vector<charts::Element> elements) {
    charts::Page page;
    page.Width = 200;
    page.Height = 100;
    page.Elements = std::move(elements);
    return page;
}

/// The page on white, `scale` dots a point.
inline QImage Painted(const charts::Page& page, int scale = 1) {
    QImage image(static_cast<int>(page.Width) * scale, static_cast<int>(page.Height) * scale,
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    PaintPage(painter, page);
    return image;
}

inline QColor ToColour(const charts::Colour& colour) { return {colour.Red, colour.Green, colour.Blue}; }

/// Number of dots in a rectangle that are not white.
inline int Inked(const QImage& image, const QRect& rect) {
    int inked = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            inked += image.pixelColor(x, y) != QColor(Qt::white);
    }
    return inked;
}
inline int Inked(const QImage& image) { return Inked(image, image.rect()); }

/// The smallest rectangle that holds all dots that are not white.
inline QRect InkedRect(const QImage& image) {
    QRect result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

inline QByteArray Bytes(const std::string& path) {
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

/// A folder that goes with the object.
class Folder {
public:
    Folder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name =
            std::string(test->test_suite_name()) + "_" + test->name() + "_" + std::to_string(getpid());
        for (auto& letter : name) {
            if (letter == '/') letter = '_';
        }
        path_ = std::filesystem::path(testing::TempDir()) / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    /// Names of all files in it, in order.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

}  // namespace FX_Algen::ui::samples
