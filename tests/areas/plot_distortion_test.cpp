#include "areas/plot_distortion.h"

#include "areas/area_frame.h"
#include "areas/distortion.h"
#include "areas/distortion_shades.h"
#include "areas/equal_circles.h"
#include "areas/filled_map.h"
#include "output/output_state.h"
#include "projection/inverse_place.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr std::array AllProjections = {1, 2, 40, 12, 41, 42, 16, 6, 7, 8, 17, 26, 27, 28, 29, 30, 31};
constexpr std::array EqualAreaOfWorld = {12, 41, 40, 31};

/// Of rings side by side, or of a rim about all of the globe with what it does not hold.
double Area(const PlaneRings& rings) {
    double all = 0.0;
    for (const PlaneRing& ring : rings) {
        double twice = 0.0;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PlanePoint& a = ring[i];
            const PlanePoint& b = ring[(i + 1) % ring.size()];
            twice += a.x * b.y - b.x * a.y;
        }
        all += std::fabs(twice) / 2.0;
    }
    constexpr double globe = 4.0 * Pi;
    return all > globe ? 2.0 * globe - all : all;
}

/// Great-circle distance by haversines, degrees.
double Distance(const GlobePlace& a, double lat, double lon) {
    const double sinLat = std::sin((lat - a.lat) * HalfDegToRad);
    const double sinLon = std::sin((lon - a.lon) * HalfDegToRad);
    const double h =
        sinLat * sinLat + std::cos(a.lat * DegToRad) * std::cos(lat * DegToRad) * sinLon * sinLon;
    return 2.0 * std::asin(std::min(std::sqrt(h), 1.0)) / DegToRad;
}

class DistortionPlot : public FilledMap {
protected:
    DistortionPlot() { WriteMap("point.prn", "-1 0 0\n"); }

    bool TakeProjection(int projNum, std::vector<std::string> more = {}) {
        std::vector<std::string> arguments = {"--projection", std::to_string(projNum)};
        if (projNum == 30 || projNum == 31) {
            arguments.insert(arguments.end(), {"--range", "180", "--central-lat", "35N"});
        }
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Take(arguments);
    }

    /// Compares every ninth pixel each way with what belongs to its place, those excepted within two pixels
    /// of a border. belongs: what of a pixel; nothing when it is off the map.
    template <typename Belongs, typename Matches>
    int Compare(Belongs&& belongs, Matches&& matches) const {
        constexpr int step = 9;
        int compared = 0;
        int wrong = 0;
        for (int y = step / 2; y < Height; y += step) {
            for (int x = step / 2; x < Width; x += step) {
                const auto expected = belongs(x, y);
                bool same = true;
                for (const double dx : {-2.0, -1.0, 1.0, 2.0}) {
                    for (const double dy : {-2.0, -1.0, 1.0, 2.0}) {
                        same = same && belongs(x + dx, y + dy) == expected;
                    }
                }
                if (!same) {
                    continue;
                }
                ++compared;
                if (!matches(At(x, y), expected) && ++wrong < 5 &&
                    Design.ProjNum != ProjInterruptedMollweide) {
                    ADD_FAILURE() << "pixel " << x << ", " << y << " of projection " << Design.ProjNum
                                  << " is " << std::hex << At(x, y);
                }
            }
        }
        // Lobes lie side by side with gaps narrower than a pixel.
        EXPECT_LE(wrong, Design.ProjNum == ProjInterruptedMollweide ? 2 : 0);
        return compared;
    }
};

// ---- Circles.

TEST_F(DistortionPlot, AllCirclesHaveOneAreaOnEqualAreaMaps) {
    // A circle of radius r has 2 pi (1 - cos r) of the unit sphere.
    const double cap = 2.0 * Pi * (1.0 - std::cos(6.0 * DegToRad));
    for (const int projNum : EqualAreaOfWorld) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(TakeProjection(projNum));
        const auto images = ImagesOfCircles({DistortionKind::Ellipses, 6.0, 30.0});
        // Five rows of twelve and the poles, cut at the seam or not.
        EXPECT_EQ(images.size(), 62U);
        int rough = 0;
        for (const PlaneRings& image : images) {
            const double share = Area(image) / cap;
            rough += std::fabs(share - 1.0) > 0.008 ? 1 : 0;
            EXPECT_NEAR(share, 1.0, 0.1);
        }
        // The circle about the antipode is a narrow ring along the whole rim, whose chords count for more.
        EXPECT_LE(rough, projNum == ProjAzimuthalEqualArea ? 1 : 0);
    }
}

TEST_F(DistortionPlot, PartsOfCirclesInLobesMakeUpTheWhole) {
    ASSERT_TRUE(TakeProjection(42));
    double all = 0.0;
    for (const PlaneRings& image : ImagesOfCircles({DistortionKind::Ellipses, 6.0, 30.0})) {
        all += Area(image);
    }
    EXPECT_NEAR(all / (62.0 * 2.0 * Pi * (1.0 - std::cos(6.0 * DegToRad))), 1.0, 0.004);
}

TEST_F(DistortionPlot, SmallCirclesAreRoundOnConformalMaps) {
    for (const int projNum : {1, 7, 27, 17}) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(TakeProjection(projNum));
        const double spacing = projNum == 17 ? 1.0 : 15.0;
        int round = 0;
        for (const PlaneRings& image : ImagesOfCircles({DistortionKind::Ellipses, 0.2, spacing})) {
            double west = image[0][0].x, east = west, south = image[0][0].y, north = south;
            for (const PlanePoint& p : image[0]) {
                west = std::min(west, p.x);
                east = std::max(east, p.x);
                south = std::min(south, p.y);
                north = std::max(north, p.y);
            }
            const bool whole = image.size() == 1 && west > Design.MapXMin && east < Design.MapXMax &&
                               south > Design.MapYMin && north < Design.MapYMax;
            if (whole && image[0].size() > 100 && projNum != 27) {
                EXPECT_NEAR((east - west) / (north - south), 1.0, 0.02);
                ++round;
            } else if (whole && image[0].size() > 150) {
                // Of the disc only those that its rim does not cut.
                if (std::hypot(east, north) < 0.9 * Design.MapXMax) {
                    EXPECT_NEAR((east - west) / (north - south), 1.0, 0.02);
                }
                ++round;
            }
        }
        EXPECT_GT(round, 5);
    }
}

class CirclesOn : public DistortionPlot, public testing::WithParamInterface<int> {};

TEST_P(CirclesOn, PixelsAreFilledWhereTheirPlacesLieInACircle) {
    ASSERT_TRUE(TakeProjection(GetParam()));
    const bool zone = GetParam() == 17;
    const double radius = zone ? 0.4 : 7.0;
    const double spacing = zone ? 1.0 : 30.0;
    ASSERT_TRUE(Show({DistortionKind::Ellipses, radius, spacing}));
    enum class Where { OffMap, Outside, Inside };
    const auto belongs = [&](double x, double y) {
        const PlanePoint point = PlaneAt(x, y);
        const std::optional<GlobePlace> place = PlaceAt(point.x, point.y);
        if (!place) {
            return Where::OffMap;
        }
        const double south = std::floor(place->lat / spacing) * spacing;
        for (const double lat : {south, south + spacing}) {
            const double west = std::floor(place->lon / spacing) * spacing;
            // Beside a pole all meridians are near.
            for (double lon = west - (zone ? 1.0 : 180.0); lon < west + (zone ? 2.5 : 180.0);
                 lon += spacing) {
                if (std::fabs(lat) <= 90.0 && Distance(*place, lat, lon) <= radius) {
                    return Where::Inside;
                }
            }
        }
        return Where::Outside;
    };
    EXPECT_GT(Compare(belongs, [](ColorValue color,
                                  Where where) { return (color != Paper) == (where == Where::Inside); }),
              3000);
}

INSTANTIATE_TEST_SUITE_P(Every, CirclesOn, testing::ValuesIn(AllProjections));

TEST_F(DistortionPlot, CirclesThatNoDialogTakesAreNotDrawn) {
    ASSERT_TRUE(TakeProjection(16));
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [radius, spacing] : std::vector<std::pair<double, double>>{{0.0, 30.0},
                                                                                {90.0, 30.0},
                                                                                {1e300, 30.0},
                                                                                {-5.0, 30.0},
                                                                                {nan, 30.0},
                                                                                {5.0, 0.0},
                                                                                {5.0, 1e-300},
                                                                                {5.0, -30.0},
                                                                                {5.0, 1e300},
                                                                                {5.0, nan}}) {
        const DistortionChoice choice{DistortionKind::Ellipses, radius, spacing};
        EXPECT_TRUE(Show(choice));
        EXPECT_EQ(Count(Paper), Width * Height) << radius << ' ' << spacing;
        EXPECT_EQ(CountCircles(choice), std::optional<std::size_t>(0));
    }
}

TEST_F(DistortionPlot, MoreCirclesThanCanBeToldApartAreThinnedOut) {
    for (const int projNum : {16, 42, 31}) {
        ASSERT_TRUE(TakeProjection(projNum));
        const DistortionChoice choice{DistortionKind::Ellipses, 0.5, 0.01};
        const auto images = ImagesOfCircles(choice);
        EXPECT_GT(images.size(), 200U);
        EXPECT_LE(images.size(), MostEqualCircles);
        EXPECT_GT(CountCircles(choice), std::optional(MostEqualCircles));
    }
}

TEST_F(DistortionPlot, CirclesAreCountedOnTheMapOfARegion) {
    ASSERT_TRUE(TakeProjection(16));
    EXPECT_EQ(CountCircles({DistortionKind::Ellipses, 5.0, 30.0}), std::optional<std::size_t>(62));
    ASSERT_TRUE(TakeProjection(1, {"--north", "50N", "--south", "40N", "--west", "5E", "--east", "25E",
                                   "--lat-grid", "5", "--lon-grid", "5"}));
    EXPECT_EQ(ImagesOfCircles({DistortionKind::Ellipses, 1.0, 30.0}).size(), 0U);
    // 40, 42 to 50 by 6, 8 to 24: those on the edge are cut in two.
    EXPECT_EQ(ImagesOfCircles({DistortionKind::Ellipses, 0.5, 2.0}).size(), 60U);
}

TEST_F(DistortionPlot, ACircleThroughAPoleAndOneAboutItAreAreasOfTheirSize) {
    ASSERT_TRUE(TakeProjection(41));
    for (const double lat : {90.0, 75.0, 70.0, -80.0, -75.0}) {
        const auto ring = EqualCircle({lat, 20.0}, 15.0);
        ASSERT_TRUE(ring);
        PlaneRings image;
        FrameOfMap()->Cut(*ring, image);
        EXPECT_NEAR(Area(image) / (2.0 * Pi * (1.0 - std::cos(15.0 * DegToRad))), 1.0, 0.01) << lat;
    }
}

// ---- Shades.

TEST_F(DistortionPlot, EqualAreaMapsHaveOneShadeOfAreasAndConformalOnesOneOfAngles) {
    for (const int projNum : {12, 40, 41, 42, 8, 31}) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(TakeProjection(projNum));
        ASSERT_TRUE(Show({DistortionKind::Area}));
        ASSERT_EQ(OutputNow.shadeKey.rows.size(), 1U);
        EXPECT_EQ(OutputNow.shadeKey.rows[0].text, "0.999\u20131.001");
        EXPECT_EQ(Count(ColorBits(OutputNow.shadeKey.rows[0].color)), Width * Height - Count(Paper));
    }
    for (const int projNum : {1, 7, 27, 17}) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(TakeProjection(projNum));
        ASSERT_TRUE(Show({DistortionKind::Angle}));
        ASSERT_EQ(OutputNow.shadeKey.rows.size(), 1U);
        EXPECT_EQ(OutputNow.shadeKey.rows[0].text, "below 0.1\u00B0");
        EXPECT_EQ(Count(ColorBits(OutputNow.shadeKey.rows[0].color)), Width * Height - Count(Paper));
    }
}

/// The value at a place by the words of its shade.
struct Step {
    double from, to;
};
Step StepOf(std::string text) {
    for (std::size_t at = text.find("\u00B0"); at != std::string::npos; at = text.find("\u00B0")) {
        text.erase(at, 2);
    }
    if (text.rfind("below ", 0) == 0) {
        return {-1.0, std::stod(text.substr(6))};
    }
    if (text.rfind("above ", 0) == 0) {
        return {std::stod(text.substr(6)), std::numeric_limits<double>::infinity()};
    }
    const std::size_t dash = text.find("\u2013");
    return {std::stod(text.substr(0, dash)), std::stod(text.substr(dash + 3))};
}

class ShadesOn : public DistortionPlot, public testing::WithParamInterface<int> {};

TEST_P(ShadesOn, PixelsHaveTheShadeOfTheDistortionAtTheirPlaces) {
    for (const DistortionKind kind : {DistortionKind::Area, DistortionKind::Angle}) {
        if (QUELMONT_SANITIZED && kind == DistortionKind::Area) {
            continue; // every pixel takes its time there, and the way is the same
        }
        ASSERT_TRUE(TakeProjection(GetParam()));
        ASSERT_TRUE(Show({kind}));
        const auto& rows = OutputNow.shadeKey.rows;
        ASSERT_FALSE(rows.empty());
        std::vector<Step> steps;
        for (const auto& row : rows) {
            steps.push_back(StepOf(row.text));
        }
        constexpr double nearly = 1.004;
        // The number of the shade, or of none off the map.
        const auto belongs = [&](double x, double y) {
            const PlanePoint point = PlaneAt(x, y);
            if (!PlaceAt(point.x, point.y)) {
                return -1;
            }
            const auto distortion = DistortionOfPoint(point.x, point.y);
            const double value = !distortion                    ? -5.0
                                 : kind == DistortionKind::Area ? distortion->area
                                                                : distortion->angle;
            for (std::size_t row = 0; row < rows.size(); ++row) {
                const Step step = steps[row];
                if (value >= step.from * nearly && value < step.to / nearly) {
                    return static_cast<int>(row);
                }
            }
            return -2; // not known, or at a step: beside a kink of the Robinson a step is not sharp
        };
        const auto matches = [&](ColorValue color, int row) {
            return row == -2 ||
                   color == (row < 0 ? Paper : ColorBits(rows[static_cast<std::size_t>(row)].color));
        };
        EXPECT_GT(Compare(belongs, matches), 3000);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, ShadesOn, testing::ValuesIn(AllProjections));

TEST_F(DistortionPlot, StepsGoFromTheLeastToTheLargestValueOfTheMap) {
    const auto texts = [](DistortionKind kind, double least, double most) {
        std::vector<std::string> words;
        for (const DistortionShade& shade : ShadesBetween(kind, least, most)) {
            words.push_back(shade.text);
        }
        return words;
    };
    EXPECT_THAT(texts(DistortionKind::Area, 0.9, 1.3),
                ElementsAre("0.8\u20130.95", "0.95\u20131.05", "1.05\u20131.25", "1.25\u20132"));
    EXPECT_THAT(texts(DistortionKind::Area, 1.0, 1.006),
                ElementsAre("0.999\u20131.001", "1.001\u20131.005", "1.005\u20131.01"));
    EXPECT_THAT(texts(DistortionKind::Area, 0.0, 1e300), SizeIs(11));
    EXPECT_THAT(texts(DistortionKind::Angle, 0.0, 1.5), SizeIs(5));
    EXPECT_THAT(texts(DistortionKind::Angle, 50.0, 180.0),
                ElementsAre("45\u00B0\u201360\u00B0", "above 60\u00B0"));
    EXPECT_THAT(texts(DistortionKind::Angle, 0.0, std::nan("")), SizeIs(8)) << "no number is a large one";
}

// ---- The draw.

TEST_F(DistortionPlot, NothingIsDrawnWhileNothingIsShown) {
    ASSERT_TRUE(TakeProjection(16));
    ASSERT_TRUE(Show({DistortionKind::Area}));
    EXPECT_FALSE(OutputNow.shadeKey.rows.empty());
    ASSERT_TRUE(Show({}));
    EXPECT_EQ(Count(Paper), Width * Height);
    EXPECT_TRUE(OutputNow.shadeKey.rows.empty());
    EXPECT_FALSE(HasDistortion());
}

TEST_F(DistortionPlot, EscapeLeavesThePictureAsItIs) {
    for (const DistortionKind kind : {DistortionKind::Ellipses, DistortionKind::Angle}) {
        ASSERT_TRUE(TakeProjection(42));
        escapeAt = 1;
        EXPECT_TRUE(Show({kind}));
        EXPECT_EQ(Count(Paper), Width * Height);
        Design.PlotStopReason = StopReason::None;
    }
}

TEST_F(DistortionPlot, BoundsOfTheLobeInHandAreThoseOfBefore) {
    ASSERT_TRUE(TakeProjection(42));
    const double north = Design.LatNorth;
    const double west = Design.LonWest;
    const double x = Design.ProjX;
    ASSERT_TRUE(Show({DistortionKind::Area}));
    EXPECT_EQ(Design.LatNorth, north);
    EXPECT_EQ(Design.LonWest, west);
    EXPECT_EQ(Design.ProjX, x);
}

} // namespace
} // namespace quelmont
