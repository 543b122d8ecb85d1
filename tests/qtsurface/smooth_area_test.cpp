// Filled areas with smooth edges.

#include "qtsurface/smooth_picture.h"

#include "core/standard_colors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace quelmont {
namespace {

using Outline = std::vector<Place>;

/// Areas on a sheet, by default in white on black: what a pixel is covered by is its grey.
class SmoothAreas : public testing::Test {
protected:
    bool Fill(const std::vector<Outline>& outlines, std::uint32_t color = 0xFFFFFF) {
        std::vector<SurfacePoint> points;
        std::vector<std::int32_t> counts;
        for (const Outline& outline : outlines) {
            for (const Place& place : outline) {
                points.push_back({Fine(place.x), Fine(place.y)});
            }
            counts.push_back(static_cast<std::int32_t>(outline.size()));
        }
        ImageSurface& surface = sheet.surface;
        const SurfaceHandle brush = surface.CreateSolidBrush(color);
        const SurfaceHandle before = surface.SelectObject(brush);
        const bool filled = sheet.lines->PolyPolygonFine(points, counts);
        surface.SelectObject(before);
        surface.DeleteObject(brush);
        return filled;
    }
    static std::int32_t Fine(double pixels) {
        return static_cast<std::int32_t>(std::lround(pixels * FinePerPixel));
    }
    static Outline Box(double left, double top, double right, double bottom) {
        return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    }
    QRgb At(int x, int y) const { return sheet.surface.Image().pixel(x, y); }
    /// What all pixels together are covered by, in pixels.
    double Covered() const {
        double sum = 0.0;
        for (int y = 0; y < sheet.surface.Height(); ++y) {
            for (int x = 0; x < sheet.surface.Width(); ++x) {
                sum += sheet.At(x, y) / 255.0;
            }
        }
        return sum;
    }

    SmoothSheet sheet{60, 60};
};

TEST_F(SmoothAreas, CoverPixelsByTheirShare) {
    // From the centre of pixel 10 to a quarter beyond that of pixel 20, which then is covered by three
    // quarters.
    ASSERT_TRUE(Fill({Box(10.0, 10.0, 20.25, 20.0)}));
    EXPECT_EQ(sheet.At(15, 15), 255);
    EXPECT_EQ(sheet.At(9, 15), 0);
    EXPECT_NEAR(sheet.At(10, 15), 127.5, 1.0);
    EXPECT_NEAR(sheet.At(20, 15), 191.25, 1.0);
    EXPECT_NEAR(sheet.At(10, 10), 63.75, 1.0) << "a corner";
    EXPECT_NEAR(sheet.At(20, 20), 95.6, 1.0);
    EXPECT_EQ(sheet.At(21, 15), 0);
    EXPECT_NEAR(Covered(), 10.25 * 10.0, 0.2);
}

TEST_F(SmoothAreas, HaveTheAreaThatTheyHave) {
    Fill({{{5.3, 4.7}, {52.1, 9.2}, {20.6, 50.5}}});
    // Half of the cross product of two sides: (46.8 * 45.8 - 4.5 * 15.3) / 2.
    EXPECT_NEAR(Covered(), 1037.3, 1.5);
}

TEST_F(SmoothAreas, InsideOfTwoOutlinesIsOutside) {
    Fill({Box(10.0, 10.0, 40.0, 40.0), Box(20.5, 20.5, 30.5, 30.5)});
    EXPECT_EQ(sheet.At(15, 15), 255);
    EXPECT_EQ(sheet.At(25, 25), 0);
    EXPECT_NEAR(Covered(), 900.0 - 100.0, 0.5);
}

TEST_F(SmoothAreas, PiecesOfOneAreaShowNoSeam) {
    // Two lobes that share a slanted side.
    Fill({{{5.0, 5.0}, {22.3, 5.0}, {31.7, 50.0}, {5.0, 50.0}},
          {{22.3, 5.0}, {55.0, 5.0}, {55.0, 50.0}, {31.7, 50.0}}});
    for (int y = 7; y < 49; ++y) {
        for (int x = 7; x < 54; ++x) {
            ASSERT_EQ(sheet.At(x, y), 255) << x << ", " << y;
        }
    }
}

TEST_F(SmoothAreas, NeighboursOfTwoColoursShowNothingBelow) {
    // Red and blue on black: what is not red is blue.
    Fill({{{5.0, 5.0}, {22.3, 5.0}, {31.7, 50.0}, {5.0, 50.0}}}, Rgb(255, 0, 0));
    Fill({{{22.3, 5.0}, {55.0, 5.0}, {55.0, 50.0}, {31.7, 50.0}}}, Rgb(0, 0, 255));
    int mixed = 0;
    for (int y = 7; y < 49; ++y) {
        for (int x = 7; x < 54; ++x) {
            ASSERT_NEAR(qRed(At(x, y)) + qBlue(At(x, y)), 255, 2) << x << ", " << y;
            mixed += qRed(At(x, y)) > 10 && qBlue(At(x, y)) > 10 ? 1 : 0;
        }
    }
    EXPECT_GT(mixed, 30) << "their edge is smooth";
}

TEST_F(SmoothAreas, OverlappingOnesLieOverEachOther) {
    Fill({Box(9.75, 10.0, 30.0, 30.0)}, Rgb(255, 0, 0));
    Fill({Box(9.75, 10.0, 30.0, 30.0)}, Rgb(0, 0, 255));
    // Three quarters of a pixel of red, and as much of blue over that.
    EXPECT_NEAR(qRed(At(10, 20)), 0.75 * 0.25 * 255.0, 2);
    EXPECT_NEAR(qBlue(At(10, 20)), 0.75 * 255.0, 2);
    EXPECT_EQ(At(20, 20), qRgb(0, 0, 255));
}

TEST_F(SmoothAreas, WhatIsPaintedBetweenThemIsWhatLiesBelow) {
    Fill({Box(10.0, 10.0, 30.0, 30.0)}, Rgb(255, 0, 0));
    sheet.surface.SetPixel(30, 20, Rgb(0, 255, 0));
    Fill({Box(30.0, 10.0, 50.0, 30.0)}, Rgb(0, 0, 255));
    EXPECT_NEAR(qGreen(At(30, 20)), 128, 2);
    EXPECT_NEAR(qBlue(At(30, 20)), 128, 2);
    EXPECT_EQ(qRed(At(30, 20)), 0);
}

TEST_F(SmoothAreas, AreCutOffAtThePicture) {
    Fill({Box(-1e6, -1e6, 1e6, 30.0)});
    EXPECT_EQ(sheet.At(0, 0), 255);
    EXPECT_EQ(sheet.At(59, 29), 255);
    EXPECT_NEAR(sheet.At(30, 30), 127.5, 1.0);
    EXPECT_EQ(sheet.At(30, 31), 0);
}

TEST_F(SmoothAreas, OutlinesOfOnePointAreRefused) { EXPECT_FALSE(Fill({{{5.0, 5.0}}})); }

} // namespace
} // namespace quelmont
