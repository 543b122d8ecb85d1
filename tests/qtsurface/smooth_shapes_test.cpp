#include "qtsurface/picture.h"
#include "qtsurface/smooth_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>

namespace quelmont {
namespace {

double Covered(const QImage& picture) {
    double sum = 0.0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            sum += qBlue(picture.pixel(x, y)) / 255.0;
        }
    }
    return sum;
}

/// The share of a pixel between two circles, of 64 x 64 places in it.
double ShareOfRing(int x, int y, double centre, double outer, double inner) {
    constexpr int places = 64;
    int inside = 0;
    for (int i = 0; i < places * places; ++i) {
        const double dx = x - 0.5 + (i % places + 0.5) / places - centre;
        const double dy = y - 0.5 + (i / places + 0.5) / places - centre;
        const double square = dx * dx + dy * dy;
        inside += square <= outer * outer && square > inner * inner ? 1 : 0;
    }
    return static_cast<double>(inside) / (places * places);
}

TEST(SmoothShapes, DiscsCoverTheShareOfEachPixelThatLiesInside) {
    for (const int side : {1, 2, 3, 6, 9, 20, 31}) {
        SmoothSheet sheet(40, 40, 1.0);
        sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
        sheet.surface.Ellipse(4, 4, 4 + side, 4 + side);
        const double centre = 4.0 + (side - 1) / 2.0;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                ASSERT_NEAR(sheet.At(x, y) / 255.0, ShareOfRing(x, y, centre, side / 2.0, 0.0), 0.03)
                    << side << ": " << x << ", " << y;
            }
        }
    }
}

TEST(SmoothShapes, CirclesAreRingsAsWideAsThePen) {
    for (const double pen : {1.0, 1.5, 2.0, 5.0}) {
        SmoothSheet sheet(40, 40, pen);
        sheet.surface.SelectObject(sheet.surface.GetStockObject(StockNullBrush));
        sheet.surface.Ellipse(8, 8, 29, 29);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                ASSERT_NEAR(sheet.At(x, y) / 255.0, ShareOfRing(x, y, 18.0, 10.0 + pen / 2, 10.0 - pen / 2),
                            0.03)
                    << pen << ": " << x << ", " << y;
            }
        }
    }
}

TEST(SmoothShapes, ARingInAnotherColourLiesOverTheDiscWithoutARim) {
    SmoothSheet sheet(40, 40, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0x0000FF)); // red
    sheet.surface.Ellipse(8, 8, 29, 29);
    const QImage picture = sheet.Picture();
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (std::hypot(x - 18.0, y - 18.0) >= 10.5) {
                ASSERT_LE(qRed(pixel) - qBlue(pixel), 3) << "red outside of the ring: " << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(picture.pixel(18, 18), 0xFFFF0000);
}

TEST(SmoothShapes, EllipsesHaveTheirArea) {
    SmoothSheet sheet(700, 700, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    sheet.surface.Ellipse(10, 20, 690, 400);
    EXPECT_NEAR(Covered(sheet.Picture()) / (std::numbers::pi * 340.0 * 190.0), 1.0, 1e-4);
}

TEST(SmoothShapes, AreTheSameWhereverTheyLieAndAtTheEdgesTheirPart) {
    SmoothSheet whole(60, 60, 1.5);
    whole.surface.SelectObject(whole.surface.GetStockObject(StockNullBrush));
    whole.surface.Ellipse(20, 20, 37, 35);
    for (int dx = -25; dx <= 25; dx += 5) {
        for (int dy = -25; dy <= 25; dy += 5) {
            SmoothSheet moved(20, 20, 1.5);
            moved.surface.SelectObject(moved.surface.GetStockObject(StockNullBrush));
            moved.surface.Ellipse(dx, dy, 17 + dx, 15 + dy);
            QImage expected(20, 20, QImage::Format_RGB32);
            for (int y = 0; y < 20; ++y) {
                for (int x = 0; x < 20; ++x) {
                    const QPoint from(x - dx + 20, y - dy + 20);
                    expected.setPixel(x, y,
                                      whole.Picture().valid(from) ? whole.Picture().pixel(from) : 0xFF000000);
                }
            }
            ASSERT_EQ(moved.Picture(), expected) << dx << ", " << dy;
        }
    }
}

TEST(SmoothShapes, OfHostileSizesAreCutOff) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    SmoothSheet sheet(30, 20, 3.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    sheet.surface.Ellipse(Least, Least, Most, Most);
    EXPECT_EQ(Covered(sheet.Picture()), 600.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0));
    sheet.surface.Ellipse(-5000, -5000, 5000, 5000);
    EXPECT_EQ(Covered(sheet.Picture()), 0.0);
    sheet.surface.SelectObject(sheet.surface.GetStockObject(StockNullBrush));
    sheet.surface.Ellipse(Least, 5, Most, 6);
    sheet.surface.Rectangle(Least, Least, Most, Most);
    const std::array<SurfacePoint, 3> corners{{{Least, Least}, {Most, 7}, {Least, Most}}};
    EXPECT_TRUE(sheet.surface.Polygon(corners));
}

TEST(SmoothShapes, SquaresAreAsSharpAsPlainOnes) {
    for (int pen = 1; pen <= 5; ++pen) {
        Sheet sheet(30, 30, pen);
        sheet.surface.Smooth(true);
        sheet.surface.Rectangle(8, 8, 21, 21);
        const std::string row = sheet.Rows()[14];
        EXPECT_EQ(row.find('?'), std::string::npos) << pen;
        EXPECT_EQ(std::count(row.begin(), row.end(), '#'), 2 * pen);
    }
    Sheet dot(9, 9);
    dot.surface.Smooth(true);
    dot.surface.Rectangle(4, 4, 5, 5);
    EXPECT_EQ(dot.Rows()[4], "....#....");
    EXPECT_EQ(dot.RedPixels().size(), 1U);
}

TEST(SmoothShapes, DiamondsHaveOneOutlineAroundTheirInside) {
    SmoothSheet sheet(40, 40, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    const std::array<SurfacePoint, 4> corners{{{10, 20}, {20, 30}, {30, 20}, {20, 10}}};
    sheet.surface.Polygon(corners);
    EXPECT_EQ(sheet.At(20, 20), 255);
    EXPECT_EQ(sheet.At(15, 15), 255);
    EXPECT_EQ(sheet.At(15, 14), 75); // 1 / sqrt(2) from the outline's middle
    EXPECT_EQ(sheet.At(10, 20), 255);
    EXPECT_EQ(sheet.At(9, 20), 0);
    EXPECT_EQ(sheet.At(9, 19), 0);
}

TEST(SmoothShapes, AreasWithoutAnOutlineMeetWithoutASeam) {
    SmoothSheet sheet(40, 40, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleNull, 1, 0));
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    const std::array<SurfacePoint, 4> left{{{0, 0}, {13, 0}, {26, 39}, {0, 39}}};
    const std::array<SurfacePoint, 4> right{{{13, 0}, {39, 0}, {39, 39}, {26, 39}}};
    sheet.surface.Polygon(left);
    sheet.surface.Polygon(right);
    for (int y = 0; y < 39; ++y) {
        for (int x = 0; x < 39; ++x) {
            ASSERT_EQ(sheet.At(x, y), 255) << x << ", " << y;
        }
    }
}

TEST(SmoothShapes, OverASymbolALineShowsItsOwnColour) {
    // A disc leaves word of where its colour is; a line of another colour is not taken for it.
    SmoothSheet sheet(60, 60, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    sheet.surface.Ellipse(10, 10, 50, 50);
    sheet.surface.SelectObject(sheet.lines->CreateFinePen(3.0, 0x0000FF));
    sheet.Line({{5.0, 30.0}, {55.0, 30.0}});
    EXPECT_EQ(sheet.Picture().pixel(30, 30), 0xFFFF0000);
    sheet.Pen(1.0);
    sheet.surface.Ellipse(10, 10, 50, 50);
    EXPECT_EQ(sheet.Picture().pixel(30, 30), 0xFFFFFFFF);
}

TEST(SmoothShapes, ALineThatIsTakenOffAndOnLeavesTheDiscBelowAlone) {
    SmoothSheet sheet(60, 60, 1.0);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(0xFFFFFF));
    sheet.surface.Ellipse(10, 10, 50, 50);
    sheet.Move({0.0, 25.3});
    sheet.LineOn({30.0, 25.3});
    const QImage looked = sheet.Picture();
    sheet.LineOn({55.0, 25.3});
    sheet.surface.Ellipse(10, 10, 50, 50);
    SmoothSheet unwatched(60, 60, 1.0);
    unwatched.surface.SelectObject(unwatched.surface.CreateSolidBrush(0xFFFFFF));
    unwatched.surface.Ellipse(10, 10, 50, 50);
    unwatched.Line({{0.0, 25.3}, {30.0, 25.3}, {55.0, 25.3}});
    unwatched.surface.Ellipse(10, 10, 50, 50);
    EXPECT_EQ(sheet.Picture(), unwatched.Picture());
}

} // namespace
} // namespace quelmont
