#include "qtsurface/picture.h"
#include "qtsurface/smooth_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;

std::vector<int> Column(const SmoothSheet& sheet, int x, int from, int to) {
    std::vector<int> values;
    for (int y = from; y <= to; ++y) {
        values.push_back(sheet.At(x, y));
    }
    return values;
}

QImage DrawnAs(const std::vector<Place>& places, double pen, int width = 64, int height = 64) {
    SmoothSheet sheet(width, height, pen);
    sheet.Line(places);
    return sheet.Picture();
}

/// A line of so many segments inside of a square, each up to reach pixels long each way.
std::vector<Place> Wander(std::mt19937& random, int segments, double reach, double side = 50.0) {
    const auto share = [&] { return static_cast<double>(random() % 4096) / 4096.0; };
    std::vector<Place> places{{7.0 + side * share(), 7.0 + side * share()}};
    while (places.size() <= static_cast<std::size_t>(segments)) {
        const Place last = places.back();
        const Place next{last.x + reach * (2.0 * share() - 1.0), last.y + reach * (2.0 * share() - 1.0)};
        if (next.x > 7.0 && next.y > 7.0 && next.x < 7.0 + side && next.y < 7.0 + side) {
            places.push_back(next);
        }
    }
    return places;
}

TEST(SmoothLine, AlongAMiddleOfPixelsIsAsSharpAsAPlainOne) {
    SmoothSheet sheet(20, 9);
    sheet.Line({{3.0, 4.0}, {15.0, 4.0}});
    EXPECT_THAT(Column(sheet, 9, 2, 6), ElementsAre(0, 0, 255, 0, 0));
}

TEST(SmoothLine, BetweenTwoRowsOfPixelsIsSharedByThem) {
    SmoothSheet sheet(20, 9);
    sheet.Line({{3.0, 4.25}, {15.0, 4.25}, {18.0, 8.0}});
    // A quarter of the line lies in the row below: 0.75 * 255 = 191.25, 0.25 * 255 = 63.75.
    EXPECT_THAT(Column(sheet, 9, 2, 6), ElementsAre(0, 0, 191, 64, 0));
}

TEST(SmoothLine, IsAsWideAsItsPenToAPartOfAPixel) {
    SmoothSheet sheet(20, 12, 1.5);
    sheet.Line({{3.0, 5.0}, {15.0, 5.0}});
    EXPECT_THAT(Column(sheet, 9, 3, 7), ElementsAre(0, 64, 255, 64, 0));
    SmoothSheet wide(20, 12, 4.5);
    wide.Line({{3.0, 5.5}, {15.0, 5.5}, {18.0, 11.0}});
    // From 3.25 to 7.75; row 3 reaches to 3.5, row 8 begins at 7.5.
    EXPECT_THAT(Column(wide, 9, 2, 9), ElementsAre(0, 64, 255, 255, 255, 255, 64, 0));
}

TEST(SmoothLine, ThatIsLevelOrUprightAllAlongLiesOnWholePixels) {
    for (const double place : {3.5, 3.51, 4.0, 4.25, 4.49}) {
        SmoothSheet level(20, 9);
        level.Line({{3.3, place}, {8.1, place}, {15.4, place}});
        EXPECT_THAT(Column(level, 9, 2, 6), ElementsAre(0, 0, 255, 0, 0)) << place;
        EXPECT_EQ(level.At(3, 4), 255);
        EXPECT_EQ(level.At(2, 4), 0);
        EXPECT_EQ(level.At(15, 4), 255);
        EXPECT_EQ(level.At(16, 4), 0);
        SmoothSheet upright(9, 20);
        upright.Line({{place, 15.4}, {place, 3.3}});
        EXPECT_EQ(upright.At(4, 9), 255);
        EXPECT_EQ(upright.At(3, 9) + upright.At(5, 9), 0);
    }
    // An even pen between two pixels; of one with a part of a pixel the middle is whole.
    SmoothSheet even(20, 9, 2.0);
    even.Line({{3.0, 4.3}, {15.0, 4.3}});
    EXPECT_THAT(Column(even, 9, 2, 6), ElementsAre(0, 0, 255, 255, 0));
    SmoothSheet parts(20, 9, 1.5);
    parts.Line({{3.0, 4.3}, {15.0, 4.3}});
    EXPECT_THAT(Column(parts, 9, 2, 6), ElementsAre(0, 64, 255, 64, 0));
}

TEST(SmoothLine, ThatIsSlantingIsSharedByTheDistanceOfThePixels) {
    SmoothSheet sheet(40, 40);
    sheet.Line({{5.0, 5.0}, {35.0, 35.0}});
    EXPECT_EQ(sheet.At(20, 20), 255);
    // 1 - 1/sqrt(2) = 0.2929 of 255 beside the diagonal; sqrt(2) away nothing.
    EXPECT_EQ(sheet.At(21, 20), 75);
    EXPECT_EQ(sheet.At(20, 21), 75);
    EXPECT_EQ(sheet.At(22, 20), 0);
}

TEST(SmoothLine, RoundsItsEnds) {
    SmoothSheet sheet(30, 21, 9.0);
    sheet.Line({{10.0, 10.0}, {20.0, 10.0}});
    // 4.5 pixels about the end at 10, 10; (6, 7) is 5 away: half a pixel outside.
    EXPECT_EQ(sheet.At(6, 7), 0);
    EXPECT_EQ(sheet.At(7, 7), 255 - 62); // sqrt(18) = 4.243 away: 4.5 + 0.5 - 4.243 = 0.757
    EXPECT_EQ(sheet.At(6, 10), 255);
    EXPECT_EQ(sheet.At(5, 10), 0);
}

TEST(SmoothLine, LiesOverWhatIsThereInItsColour) {
    ImageSurface surface(20, 9);
    surface.Clear(0x00FF80); // red 128, green 255, blue 0
    FineLines* const lines = surface.Smooth(true);
    surface.SelectObject(lines->CreateFinePen(1.0, 0xFF0000));
    lines->MoveToFine(3 * FinePerPixel, 4 * FinePerPixel + FinePerPixel / 2);
    lines->LineToFine(15 * FinePerPixel, 4 * FinePerPixel + FinePerPixel / 2);
    lines->LineToFine(18 * FinePerPixel, 8 * FinePerPixel);
    const QRgb pixel = surface.Image().pixel(9, 4);
    EXPECT_NEAR(qRed(pixel), 64, 1);
    EXPECT_NEAR(qGreen(pixel), 127, 1);
    EXPECT_NEAR(qBlue(pixel), 128, 1);
}

/// How far the line covers each pixel by its distance, as an independent reckoning has it.
double CoverageOf(const std::vector<Place>& places, double pen, int x, int y) {
    double nearest = 1e9;
    for (std::size_t i = 1; i < places.size(); ++i) {
        const Place a = places[i - 1];
        const Place b = places[i];
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double square = dx * dx + dy * dy;
        const double along =
            square == 0.0 ? 0.0 : std::clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(x - a.x - along * dx, y - a.y - along * dy));
    }
    return std::clamp(pen / 2.0 + 0.5 - nearest, 0.0, 1.0);
}

void ExpectCoverage(int lines, double pen, double reach, int segments, double tolerance) {
    std::mt19937 random(7);
    for (int i = 0; i < lines; ++i) {
        std::vector<Place> places = Wander(random, segments, reach);
        for (Place& place : places) { // as they can be told
            place = {std::floor(place.x * FinePerPixel) / FinePerPixel,
                     std::floor(place.y * FinePerPixel) / FinePerPixel};
        }
        const QImage drawn = DrawnAs(places, pen);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                ASSERT_NEAR(qBlue(drawn.pixel(x, y)) / 255.0, CoverageOf(places, pen, x, y), tolerance)
                    << "pen " << pen << ", steps of " << reach << ": " << x << ", " << y;
            }
        }
    }
}

TEST(SmoothLine, CoversByTheDistanceFromTheWholeLine) {
    for (const double pen : {1.0, 1.5, 2.0, 3.0, 6.9, 8.0, 12.5, 25.0}) {
        ExpectCoverage(40, pen, 30.0, 6, 0.004);
    }
}

TEST(SmoothLine, InStepsOfPartsOfAPixelCoversNearlyTheSame) {
    for (const double pen : {1.0, 1.5, 3.0, 5.0, 12.0}) {
        ExpectCoverage(4, pen, 0.15, 200, 0.15);
        ExpectCoverage(4, pen, 0.4, 100, 0.15);
    }
}

TEST(SmoothLine, LooksAsThePainterOfAnotherLibraryDrawsIt) {
    std::mt19937 random(21);
    double difference = 0.0;
    int pixels = 0;
    for (int i = 0; i < 80; ++i) {
        // It draws lines of one pixel in another, coarser way.
        const double pen = 1.5 + static_cast<double>(random() % 10) / 2.0;
        const std::vector<Place> places = Wander(random, 1, 40.0);
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        // Its places count from the corners of pixels.
        QPainterPath path(QPointF(places[0].x + 0.5, places[0].y + 0.5));
        for (const Place& place : places) {
            path.lineTo(place.x + 0.5, place.y + 0.5);
        }
        painter.drawPath(path);
        painter.end();
        const QImage ours = DrawnAs(places, pen);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                const int other = qBlue(image.pixel(x, y));
                const int own = qBlue(ours.pixel(x, y));
                // By area a corner of a pixel counts that by distance does not: a tenth, as a rule. Ends are
                // rounded in other ways.
                const double fromEnd = std::min(std::hypot(x - places[0].x, y - places[0].y),
                                                std::hypot(x - places[1].x, y - places[1].y));
                if (fromEnd > pen / 2.0 + 1.5) {
                    ASSERT_NEAR(own, other, 32) << i << ": " << x << ", " << y;
                }
                difference += std::abs(own - other);
                pixels += own != 0 || other != 0 ? 1 : 0;
            }
        }
    }
    EXPECT_LT(difference / pixels, 6.0) << "of 255, on an average";
}

TEST(SmoothLine, IsTheSameWhicheverWayItIsWalked) {
    std::mt19937 random(5);
    for (const double reach : {0.1, 0.3, 0.7, 3.0, 40.0}) {
        for (int i = 0; i < 60; ++i) {
            const double pen = 1.0 + static_cast<double>(random() % 40) / 4.0;
            std::vector<Place> places = Wander(random, 30, reach);
            const QImage drawn = DrawnAs(places, pen);
            std::reverse(places.begin(), places.end());
            ASSERT_EQ(DrawnAs(places, pen), drawn) << "pen " << pen << ", steps of " << reach;
        }
    }
}

TEST(SmoothLine, IsNoDarkerWhereItsSegmentsMeet) {
    for (const double pen : {1.0, 1.5, 2.0, 5.0}) {
        const QImage whole = DrawnAs({{8.0, 10.3}, {56.0, 41.3}}, pen);
        // The same line in halves, quarters and eighths, whose ends can be told to a part of a pixel.
        for (const int parts : {2, 4, 8}) {
            std::vector<Place> places;
            for (int i = 0; i <= parts; ++i) {
                places.push_back({8.0 + 48.0 * i / parts, 10.3 + 31.0 * i / parts});
            }
            const QImage drawn = DrawnAs(places, pen);
            for (int y = 0; y < 64; ++y) {
                for (int x = 0; x < 64; ++x) {
                    ASSERT_NEAR(qBlue(drawn.pixel(x, y)), qBlue(whole.pixel(x, y)), 6) << x << ", " << y;
                }
            }
        }
    }
}

TEST(SmoothLine, ThatRunsBackOnItselfIsNoDarker) {
    EXPECT_EQ(DrawnAs({{8.0, 10.3}, {56.0, 41.3}, {8.0, 10.3}}, 1.0),
              DrawnAs({{8.0, 10.3}, {56.0, 41.3}}, 1.0));
}

TEST(SmoothLine, ThatIsTakenUpWhereItEndedGoesOn) {
    SmoothSheet sheet(64, 64);
    sheet.Line({{8.0, 10.3}, {20.0, 30.7}});
    sheet.Line({{20.0, 30.7}, {50.0, 20.1}});
    EXPECT_EQ(sheet.Picture(), DrawnAs({{8.0, 10.3}, {20.0, 30.7}, {50.0, 20.1}}, 1.0));
}

TEST(SmoothLine, OfManySmallStepsHasNoGaps) {
    for (const double step : {0.05, 0.11, 0.24, 0.49, 0.9, 2.3}) {
        for (const double slope : {0.0, 0.13, 0.5, 1.0}) {
            std::vector<Place> places;
            for (double x = 5.0; x < 55.0; x += step) {
                places.push_back({x, 6.4 + slope * (x - 5.0)});
            }
            const QImage drawn = DrawnAs(places, 1.0);
            for (int x = 8; x < 50; ++x) {
                int sum = 0;
                for (int y = 0; y < 64; ++y) {
                    sum += qBlue(drawn.pixel(x, y));
                }
                // A column meets as much of the line as it is wide across: sqrt(1 + slope^2) pixels, give or
                // take the tenth that shares by distance are off.
                const double expected = 255.0 * std::sqrt(1.0 + slope * slope);
                ASSERT_NEAR(sum, expected, 0.16 * expected)
                    << "step " << step << ", slope " << slope << ": " << x;
            }
        }
    }
}

TEST(SmoothLine, OnThePictureIsWholeBeforeItEnds) {
    SmoothSheet sheet(64, 64);
    sheet.Move({8.0, 10.3});
    sheet.LineOn({20.0, 30.7});
    EXPECT_EQ(sheet.Picture(), DrawnAs({{8.0, 10.3}, {20.0, 30.7}}, 1.0));
    EXPECT_EQ(sheet.surface.Pixels().pixels, sheet.surface.Pixels().pixels) << "looking changes nothing";
    sheet.LineOn({50.0, 20.1});
    sheet.Move({3.0, 3.0});
    EXPECT_EQ(sheet.Picture(), DrawnAs({{8.0, 10.3}, {20.0, 30.7}, {50.0, 20.1}}, 1.0));
}

TEST(SmoothLine, IsTheSameHoweverOftenItIsLookedAt) {
    // At first level, then not: what was seen while it was level is taken off again.
    const std::vector<Place> places{{8.0, 10.3}, {20.0, 10.3}, {30.0, 10.3}, {40.0, 35.0}, {9.0, 50.0}};
    SmoothSheet sheet(64, 64);
    sheet.Move(places[0]);
    for (std::size_t i = 1; i < places.size(); ++i) {
        sheet.LineOn(places[i]);
        const std::vector<Place> walked(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        EXPECT_EQ(sheet.Picture(), DrawnAs(walked, 1.0)) << i;
        EXPECT_EQ(sheet.Picture(), DrawnAs(walked, 1.0)) << i;
    }
}

TEST(SmoothLine, EndsWithItsPen) {
    SmoothSheet sheet(64, 64);
    sheet.Line({{8.0, 10.0}, {50.0, 10.0}});
    sheet.surface.SelectObject(sheet.lines->CreateFinePen(1.0, 0x0000FF));
    sheet.LineOn({50.0, 40.0});
    EXPECT_EQ(sheet.Picture().pixel(20, 10), 0xFFFFFFFF);
    EXPECT_EQ(sheet.Picture().pixel(50, 30), 0xFFFF0000);
}

TEST(SmoothLine, OfLengthZeroDrawsNothing) {
    SmoothSheet sheet(20, 20, 5.0);
    sheet.Line({{8.0, 10.0}, {8.0, 10.0}});
    QImage black(20, 20, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_EQ(sheet.Picture(), black);
}

TEST(SmoothLine, WithANullPenDrawsNothing) {
    SmoothSheet sheet(20, 20);
    sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleNull, 1, 0xFFFFFF));
    sheet.Line({{8.0, 10.0}, {18.0, 10.0}});
    EXPECT_EQ(sheet.At(12, 10), 0);
}

TEST(SmoothLine, CutAtTheEdgesShowsTheSamePixels) {
    constexpr int Margin = 60;
    constexpr int Width = 23;
    constexpr int Height = 19;
    std::mt19937 random(11);
    const auto coordinate = [&](int size) {
        return static_cast<double>(random() % static_cast<unsigned>(64 * (size + Margin))) / 64.0 -
               Margin / 2.0;
    };
    for (int i = 0; i < 400; ++i) {
        const double pen = 1.0 + static_cast<double>(random() % 100) / 4.0;
        std::vector<Place> places;
        for (int k = 0; k < 4; ++k) {
            const Place far{coordinate(Width), coordinate(Height)};
            places.push_back(far);
            places.push_back({far.x + 0.1, far.y + 0.2});
        }
        const QImage cut = DrawnAs(places, pen, Width, Height);
        for (Place& place : places) {
            place = {place.x + Margin, place.y + Margin};
        }
        const QImage whole = DrawnAs(places, pen, Width + 2 * Margin, Height + 2 * Margin);
        ASSERT_EQ(cut, whole.copy(Margin, Margin, Width, Height));
    }
}

TEST(SmoothLine, MayReachFromOneEndOfTheNumbersToTheOther) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    SmoothSheet sheet(20, 20);
    sheet.surface.MoveToEx(Least, 10);
    sheet.surface.LineTo(Most, 10);
    EXPECT_THAT(Column(sheet, 0, 8, 12), ElementsAre(0, 0, 255, 0, 0));
    EXPECT_THAT(Column(sheet, 19, 8, 12), ElementsAre(0, 0, 255, 0, 0));
    sheet.surface.MoveToEx(Least, Least);
    sheet.surface.LineTo(Most, Most);
    EXPECT_THAT(Column(sheet, 4, 2, 6), ElementsAre(0, 75, 255, 75, 0));
    SmoothSheet narrow(3, 20);
    narrow.surface.MoveToEx(-2000000001, -2000000000);
    narrow.surface.LineTo(1999999999, 2000000000);
    EXPECT_THAT(Column(narrow, 1, 0, 4), ElementsAre(0, 75, 255, 75, 0));
    const QImage before = sheet.Picture();
    sheet.surface.MoveToEx(Least, 400);
    sheet.surface.LineTo(Most, Most);
    sheet.surface.LineTo(Most, Least);
    sheet.lines->MoveToFine(Least, Most);
    sheet.lines->LineToFine(Most, Most);
    EXPECT_EQ(sheet.Picture(), before);
}

TEST(SmoothLine, HasRoomOnPicturesOfAnySize) {
    for (const auto& [width, height] :
         {std::pair(0, 0), {0, 9}, {9, 0}, {1, 1}, {1, 500}, {515, 1}, {8, 8}}) {
        for (const double pen : {1.0, 3.0, 32767.0}) {
            SmoothSheet sheet(width, height, pen);
            sheet.Line({{-5.0, -5.0}, {0.0, 0.0}, {0.1, 0.1}, {600.0, 300.0}});
            EXPECT_EQ(sheet.Picture().isNull(), width == 0 || height == 0);
        }
    }
    SmoothSheet sheet(40, 30);
    sheet.surface.Resize(500, 3, 0);
    sheet.Line({{-5.0, 1.0}, {600.0, 1.0}});
    EXPECT_EQ(sheet.At(499, 1), 255);
    EXPECT_EQ(sheet.lines->CreateFinePen(32768.0, 0), 0U);
    EXPECT_EQ(sheet.lines->CreateFinePen(std::nan(""), 0), 0U);
}

TEST(SmoothLine, BetweenWholePixelsIsSharpWithEveryWholeWidth) {
    for (int pen = 1; pen <= 6; ++pen) {
        Sheet sheet(30, 20, pen);
        sheet.surface.Smooth(true);
        sheet.Line({4, 9}, {24, 9});
        int red = 0;
        for (const std::string& row : sheet.Rows()) {
            ASSERT_NE(row[14], '?') << "a shade in a line of " << pen << " pixels";
            red += row[14] == '#' ? 1 : 0;
        }
        EXPECT_EQ(red, pen);
    }
}

TEST(SmoothLine, IsPlainAgainAfterwards) {
    Sheet plain(30, 20);
    plain.Line({3, 4}, {25, 15});
    Sheet sheet(30, 20);
    EXPECT_NE(sheet.surface.Smooth(true), nullptr);
    EXPECT_EQ(sheet.surface.Smooth(false), nullptr);
    sheet.Line({3, 4}, {25, 15});
    EXPECT_EQ(sheet.Rows(), plain.Rows());
}

} // namespace
} // namespace quelmont
