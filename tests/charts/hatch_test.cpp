#include "charts/Hatch.h"

#include <gtest/gtest.h>

#include <cmath>

#include "metrics.h"

namespace FX_Algen::charts {
namespace {

constexpr Colour kPen{1, 2, 3};

TEST(Hatch, ClassesOfOneColourHaveDifferentDirections) {
    const std::vector<Series> valences = test::Valences();
    // oligo-beta (2): hatch of oligosaprob, the class before it. beta-alpha (4): hatch of alpha-mesosaprob,
    // the class behind it. alpha-poly (6): hatch of alpha-mesosaprob, the class before it.
    EXPECT_EQ(HatchDirectionOf(valences, 2), HatchDirection::Rising);
    EXPECT_EQ(HatchDirectionOf(valences, 4), HatchDirection::Falling);
    EXPECT_EQ(HatchDirectionOf(valences, 6), HatchDirection::Rising);
    const std::vector<Series> classes = test::QualityClasses();
    EXPECT_EQ(HatchDirectionOf(classes, 1), HatchDirection::Rising);
    EXPECT_EQ(HatchDirectionOf(classes, 3), HatchDirection::Falling);
    EXPECT_EQ(HatchDirectionOf(classes, 5), HatchDirection::Rising);
}

TEST(Hatch, AHatchOfNoNeighbourRises) {
    EXPECT_EQ(HatchDirectionOf({{10, true, 3, ""}}, 0), HatchDirection::Rising);
    EXPECT_EQ(HatchDirectionOf({{10, true, 3, ""}, {3, true, 5, ""}}, 1), HatchDirection::Rising);
}

TEST(Hatch, LinesStayInsideTheirArea) {
    for (const double width : {0.1, 1.0, 2.0, 5.0, 12.0, 60.0, 500.0})
        for (const double height : {0.0, 0.5, 1.5, 3.0, 10.0, 33.3, 400.0})
            for (const HatchDirection direction : {HatchDirection::Rising, HatchDirection::Falling}) {
                const Rect area{17.25, 400.5, width, height};
                for (const Stroke& line : HatchLines(area, direction, kPen))
                    EXPECT_TRUE(test::Inside(test::BoxOf(line), area, 1e-9)) << width << " x " << height;
            }
}

TEST(Hatch, LinesRunAt45DegreesInTheirDirection) {
    for (const HatchDirection direction : {HatchDirection::Rising, HatchDirection::Falling}) {
        const std::vector<Stroke> lines = HatchLines({0, 0, 40, 25}, direction, kPen);
        ASSERT_FALSE(lines.empty());
        for (const Stroke& line : lines) {
            EXPECT_GT(line.X2, line.X1);
            // y goes downwards: a rising line loses as much y as it gains x.
            const double gain = direction == HatchDirection::Rising ? -1 : 1;
            EXPECT_NEAR(line.Y2 - line.Y1, gain * (line.X2 - line.X1), 1e-9);
            EXPECT_EQ(line.Pen, kPen);
        }
    }
}

TEST(Hatch, SmallBarsShowTheirHatch) {
    // The smallest bars: 5 wide in groups, 12 wide in stacks.
    EXPECT_GE(HatchLines({0, 0, 5, 3}, HatchDirection::Rising, kPen).size(), 1U);
    EXPECT_GE(HatchLines({0, 0, 5, 3}, HatchDirection::Falling, kPen).size(), 1U);
    EXPECT_GE(HatchLines({0, 0, 12, 3}, HatchDirection::Rising, kPen).size(), 2U);
}

TEST(Hatch, NoPartOfAnAreaStaysBare) {
    // Lines 6 apart along an edge, 1.6 wide: from any inner point one lies within 6 to the left or right.
    const Rect area{0, 0, 50, 30};
    const std::vector<Stroke> lines = HatchLines(area, HatchDirection::Rising, kPen);
    for (double x = 4; x < 46; x += 1)
        for (double y = 4; y < 26; y += 1) {
            double nearest = 1000;
            for (const Stroke& line : lines) nearest = std::min(nearest, std::abs(line.X1 + line.Y1 - x - y));
            EXPECT_LE(nearest, 3.0 + 1e-9) << x << "," << y;
        }
}

}  // namespace
}  // namespace FX_Algen::charts
