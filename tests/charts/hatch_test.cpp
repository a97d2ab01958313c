#include "charts/Hatch.h"

#include <gtest/gtest.h>

#include <cmath>

#include "metrics.h"

namespace FX_Algen::charts {
namespace {

constexpr Colour kPen{1, 2, 3};

constexpr Hatch kRising{HatchDirection::Rising, false};
constexpr Hatch kFalling{HatchDirection::Falling, false};
constexpr Hatch kCoarseRising{HatchDirection::Rising, true};
constexpr Hatch kCoarseFalling{HatchDirection::Falling, true};
constexpr Hatch kAll[] = {kRising, kFalling, kCoarseRising, kCoarseFalling};

TEST(Hatch, HatchedClassesDifferWithoutColours) {
    const std::vector<Series> valences = test::Valences();
    // oligo-beta (2): hatch of oligosaprob, the class before it. beta-alpha (4): hatch of alpha-mesosaprob,
    // the class behind it. alpha-poly (6): hatch of alpha-mesosaprob, the class before it, the second such.
    EXPECT_EQ(HatchOf(valences, 2), kRising);
    EXPECT_EQ(HatchOf(valences, 4), kFalling);
    EXPECT_EQ(HatchOf(valences, 6), kCoarseRising);
    const std::vector<Series> classes = test::QualityClasses();
    EXPECT_EQ(HatchOf(classes, 1), kRising);
    EXPECT_EQ(HatchOf(classes, 3), kFalling);
    EXPECT_EQ(HatchOf(classes, 5), kCoarseRising);
}

TEST(Hatch, AHatchOfNoNeighbourRises) {
    EXPECT_EQ(HatchOf({{10, true, 3, ""}}, 0), kRising);
    // The one before it falls, so this is the first that rises.
    EXPECT_EQ(HatchOf({{10, true, 3, ""}, {3, true, 5, ""}}, 1), kRising);
}

TEST(Hatch, LinesStayInsideTheirArea) {
    for (const double width : {0.1, 1.0, 2.0, 5.0, 12.0, 60.0, 500.0})
        for (const double height : {0.0, 0.5, 1.5, 3.0, 10.0, 33.3, 400.0})
            for (const Hatch& hatch : kAll) {
                const Rect area{17.25, 400.5, width, height};
                for (const Stroke& line : HatchLines(area, hatch, kPen))
                    EXPECT_TRUE(test::Inside(test::BoxOf(line), area, 1e-9)) << width << " x " << height;
            }
}

TEST(Hatch, LinesRunAt45DegreesInTheirDirection) {
    for (const Hatch& hatch : kAll) {
        const std::vector<Stroke> lines = HatchLines({0, 0, 40, 25}, hatch, kPen);
        ASSERT_FALSE(lines.empty());
        for (const Stroke& line : lines) {
            EXPECT_GT(line.X2, line.X1);
            // y goes downwards: a rising line loses as much y as it gains x.
            const double gain = hatch.Direction == HatchDirection::Rising ? -1 : 1;
            EXPECT_NEAR(line.Y2 - line.Y1, gain * (line.X2 - line.X1), 1e-9);
            EXPECT_EQ(line.Pen, kPen);
        }
    }
}

TEST(Hatch, SmallBarsShowTheirHatch) {
    // The smallest bars: 5 wide in groups, 12 wide in stacks.
    for (const Hatch& hatch : kAll) {
        EXPECT_GE(HatchLines({0, 0, 5, 3}, hatch, kPen).size(), 1U);
        EXPECT_GE(HatchLines({0, 0, 12, 3}, hatch, kPen).size(), 2U);
    }
}

TEST(Hatch, NoPartOfAnAreaStaysBare) {
    // Lines are 6 or 9.75 apart along an edge: from any inner point one lies within half of it to either
    // side.
    for (const Hatch& hatch : {kRising, kCoarseRising}) {
        const std::vector<Stroke> lines = HatchLines({0, 0, 50, 30}, hatch, kPen);
        for (double x = 6; x < 44; x += 1)
            for (double y = 6; y < 24; y += 1) {
                double nearest = 1000;
                for (const Stroke& line : lines)
                    nearest = std::min(nearest, std::abs(line.X1 + line.Y1 - x - y));
                EXPECT_LE(nearest, (hatch.Coarse ? 9.75 : 6.0) / 2 + 1e-9) << x << "," << y;
            }
    }
}

TEST(Hatch, CoarseLinesAreClearlyBroaderAndFurtherApart) {
    for (const HatchDirection direction : {HatchDirection::Rising, HatchDirection::Falling}) {
        const std::vector<Stroke> fine = HatchLines({0, 0, 60, 60}, {direction, false}, kPen);
        const std::vector<Stroke> coarse = HatchLines({0, 0, 60, 60}, {direction, true}, kPen);
        ASSERT_FALSE(coarse.empty());
        EXPECT_GE(coarse[0].PenWidth, 1.5 * fine[0].PenWidth);
        EXPECT_LE(static_cast<double>(coarse.size()), static_cast<double>(fine.size()) / 1.5 + 1);
    }
}

TEST(Hatch, CoarseAndFineCoverTheSamePart) {
    // 1.6 / 6 = 2.6 / 9.75 = 4 / 15 of an edge, so of a wide area the same part within the loss at its edges.
    const auto covered = [](const Hatch& hatch) {
        double area = 0;
        for (const Stroke& line : HatchLines({0, 0, 1000, 1000}, hatch, kPen))
            area += std::hypot(line.X2 - line.X1, line.Y2 - line.Y1) * line.PenWidth;
        return area / 1e6;
    };
    EXPECT_NEAR(covered(kRising), 4.0 / 15 * std::sqrt(2.0), 0.005);
    EXPECT_NEAR(covered(kCoarseRising), 4.0 / 15 * std::sqrt(2.0), 0.005);
}

}  // namespace
}  // namespace FX_Algen::charts
