#include "core/map_design.h"
#include "graticule/grid_check.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

/// The graticule of a few thousand designs, vertex by vertex: each lies where PROJ has it, on its
/// parallel or meridian, inside the map; lines cover what they should and nothing else; no chord
/// leaves its curve.

namespace quelmont {
namespace {

using testing::IsEmpty;

using Codes = std::initializer_list<std::int16_t>;

class GridSweep : public GridTest {
protected:
    /// Plots a prepared design and checks it. False when something failed.
    bool Check() {
        PlotRecorded();
        worstChord = std::max(worstChord, CheckGrid(recorder));
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        ++maps;
        return !HasFailure();
    }

    /// Seconds of arc.
    bool CheckDisc(std::int16_t projNum, std::int16_t code, std::int32_t centre, std::int32_t range,
                   std::int32_t latGrid, std::int32_t lonGrid) {
        SCOPED_TRACE(testing::Message() << "ProjNum " << projNum << ", grid type " << code << ", centre "
                                        << LatitudeText(centre) << ", range " << ArcText(range) << ", grid "
                                        << ArcText(latGrid) << " by " << ArcText(lonGrid));
        StartDesign(projNum);
        Design.GridTypeCode = code;
        Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
        Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
        Design.GridText[GridTextCentralLat] = LatitudeText(centre);
        Design.GridText[GridTextRange] = ArcText(range);
        PrepareDesign();
        return Check();
    }

    bool CheckPerspective(std::int16_t code, std::int32_t centre, int height, std::int32_t latGrid,
                          std::int32_t lonGrid) {
        SCOPED_TRACE(testing::Message()
                     << "height " << height << ", grid type " << code << ", centre " << LatitudeText(centre));
        StartDesign(ProjVerticalPerspective);
        Design.GridTypeCode = code;
        Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
        Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
        Design.GridText[GridTextCentralLat] = LatitudeText(centre);
        Design.GridText[GridTextHeight] = std::to_string(height);
        PrepareDesign();
        return Check();
    }

    int maps = 0;
    double worstChord = 0.0;
};

constexpr std::int32_t D = 3600;

/// Poles, whole degrees and odd seconds.
const std::vector<std::int32_t> Centres = {
    0,       1 * D,   -1 * D,     5 * D,       -5 * D,     10 * D,  -17 * D, 23 * D, -30 * D,
    36 * D,  40 * D,  -45 * D,    54 * D,      60 * D,     -60 * D, 75 * D,  80 * D, -85 * D,
    86 * D,  -86 * D, 89 * D,     -89 * D,     90 * D,     -90 * D, 1,       -1800,  135018,
    -121932, 185318,  90 * D - 1, 60 - 90 * D, 45 * D + 7, -323100};

/// Less than half a degree from a pole and less than one from the whole globe the quadratic for the
/// cut has no digits left: its coefficients reach 1e10, and the hole is a second wide.
bool BeyondDoubles(std::int32_t centre, std::int32_t range) {
    return 90 * D - std::abs(centre) < 1800 && centre % (90 * D) != 0 && range > 179 * D && range < 180 * D;
}

struct Spacing {
    std::int32_t lat, lon;
};
constexpr std::array<Spacing, 6> Spacings = {
    {{30 * D, 45 * D}, {10 * D, 10 * D}, {15 * D, 20 * D}, {9 * D, 9 * D}, {90 * D, 90 * D}, {4 * D, 5 * D}}};

const std::vector<std::int32_t> WideRanges = {
    5 * D,   30 * D,  60 * D,  89 * D,  90 * D,  91 * D, 100 * D, 120 * D, 150 * D,     170 * D,
    171 * D, 175 * D, 178 * D, 179 * D, 180 * D, 36061,  400001,  647999,  180 * D - 60};

TEST_F(GridSweep, WholeGlobeProjectionsOfEveryCentreAndRange) {
    std::size_t turn = 0;
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const std::int32_t centre : Centres) {
            for (const std::int32_t range : WideRanges) {
                if (BeyondDoubles(centre, range)) {
                    continue;
                }
                const Spacing& spacing = Spacings[turn++ % Spacings.size()];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
    EXPECT_GT(maps, 1000);
}

TEST_F(GridSweep, HalfGlobeProjectionsOfEveryCentreAndRange) {
    std::size_t turn = 0;
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic}) {
        for (const std::int32_t centre : Centres) {
            for (const std::int32_t range : {36061, 10 * D, 45 * D, 60 * D, 75 * D, 89 * D, 90 * D}) {
                if (projNum == ProjGnomonic && range == 90 * D) {
                    continue;
                }
                const Spacing& spacing = Spacings[turn++ % Spacings.size()];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
    EXPECT_GT(maps, 600);
}

TEST_F(GridSweep, PerspectivesOfEveryCentreAndHeight) {
    std::size_t turn = 0;
    for (const std::int32_t centre : Centres) {
        for (const int height : {1, 100, 400, 6371, 35840, 384400}) {
            const Spacing& spacing = Spacings[turn++ % Spacings.size()];
            ASSERT_TRUE(CheckPerspective(3, centre, height, spacing.lat, spacing.lon));
        }
    }
}

TEST_F(GridSweep, BoundariesAndDotsOfDiscs) {
    for (const std::int16_t code : Codes{1, 2, 4, 5}) {
        for (const std::int32_t centre : {0, 40 * D, -33 * D, 86 * D, -89 * D, 90 * D, -90 * D, 185318}) {
            for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
                for (const std::int32_t range :
                     {45 * D, 60 * D, 90 * D, 120 * D, 171 * D, 178 * D, 180 * D}) {
                    if (range > (projNum >= 30 ? 180 : projNum == 26 ? 89 : 90) * D) {
                        continue;
                    }
                    ASSERT_TRUE(CheckDisc(projNum, code, centre, range, 15 * D, 20 * D));
                    const bool circle = code == 1 || code == 2;
                    EXPECT_EQ(recorder.lines.size(), circle ? 1U : 0U);
                    EXPECT_EQ(recorder.dots.empty(), code == 2 || code == 5);
                }
            }
            ASSERT_TRUE(CheckPerspective(code, centre, 6371, 15 * D, 20 * D));
        }
    }
}

// ---- Named maps.

/// Every meridian but the two through the centre is walked in pieces that end at a pole.
class MeridiansByAzimuth : public GridSweep {
protected:
    void ExpectMeridiansEndAt(std::initializer_list<double> poles) {
        int found = 0;
        for (const auto& line : recorder.lines) {
            const bool meridian =
                line.size() > 2 && line.front().lon == line.back().lon && line.front().lat != line.back().lat;
            const double d = meridian ? std::fabs(line[0].lon - 180.0) : 0.0;
            if (meridian && d != 0.0 && d != 180.0) {
                ++found;
                EXPECT_TRUE(std::any_of(poles.begin(), poles.end(), [&](double pole) {
                    return line.front().lat == pole || line.back().lat == pole;
                })) << line[0].lon;
                // One way only: latitudes rise or fall all along.
                const double sign = line.back().lat > line.front().lat ? 1.0 : -1.0;
                for (std::size_t i = 1; i < line.size(); ++i) {
                    EXPECT_GE(sign * (line[i].lat - line[i - 1].lat), 0.0) << line[0].lon;
                }
            }
        }
        EXPECT_GE(found, 10);
    }
};

TEST_F(MeridiansByAzimuth, PieceToTheSouthPoleEndsThere) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        ASSERT_TRUE(CheckDisc(projNum, 3, -89 * D, 175 * D, 10 * D, 10 * D));
        ExpectMeridiansEndAt({-90.0});
    }
}

TEST_F(MeridiansByAzimuth, PieceToTheNorthPoleEndsThere) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        ASSERT_TRUE(CheckDisc(projNum, 3, 89 * D, 175 * D, 10 * D, 10 * D));
        ExpectMeridiansEndAt({90.0});
    }
}

TEST_F(MeridiansByAzimuth, MapAboutTheEquatorHasPiecesToBothPoles) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const std::int32_t spacing : {1 * D, 3 * D, 9 * D, 10 * D}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, 0, 171 * D, spacing, spacing));
        }
        ASSERT_TRUE(CheckDisc(projNum, 3, 0, 171 * D, 10 * D, 10 * D));
        // The meridians 10 degrees from the edge pass the hole of 9; the edge itself is cut in two.
        int pieces = 0;
        for (const auto& line : recorder.lines) {
            pieces +=
                line.front().lon == 0.0 && line.back().lon == 0.0 && line.front().lat != line.back().lat;
        }
        EXPECT_EQ(pieces, 2);
    }
}

/// Both poles lie inside the circle, and the meridians opposite the centre pass the hole between
/// them: they have two pieces.
TEST_F(MeridiansByAzimuth, HoleBesideAPoleCutsMeridiansInTwo) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const int sign : {1, -1}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, sign * 86 * D, 178 * D, 10 * D, 10 * D));
            ExpectMeridiansEndAt({90.0, -90.0});
            int pieces = 0;
            for (const auto& line : recorder.lines) {
                pieces += line.front().lon == 10.0 && line.back().lon == 10.0 && line.size() > 2;
            }
            EXPECT_EQ(pieces, 2);
        }
    }
}

/// Rounding puts the cosine of the antipode to either side of -1. A parallel of each centre's own
/// antipode must not jump across the map.
TEST_F(GridSweep, AntipodeOfEveryWholeDegreeBreaksItsLines) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (int centre = -90; centre <= 90; ++centre) {
            // A spacing that makes the antipode's latitude a parallel.
            const int spacing = centre % 10 == 0 ? 10 : centre % 6 == 0 ? 6 : centre % 5 == 0 ? 5 : 0;
            if (spacing != 0) {
                ASSERT_TRUE(CheckDisc(projNum, 3, centre * D, 180 * D, spacing * D, 30 * D));
            }
        }
        for (const int centre : {1, -7, 13, 23, -41, 67, 83, -89}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, centre * D, 180 * D, 1 * D, 90 * D));
        }
    }
}

/// A circle that only touches a pole meets the meridians at right angles there and nowhere else.
TEST_F(GridSweep, CircleThroughAPole) {
    for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
        for (int centre = 5; centre <= 85; ++centre) {
            for (const int sign : {1, -1}) {
                ASSERT_TRUE(CheckDisc(projNum, 3, sign * centre * D, (90 - centre) * D, 15 * D, 15 * D));
            }
        }
    }
}

// ---- Maps between parallels and meridians.

/// Seconds of arc.
struct Bounds {
    std::int32_t north, south, west, east, lat, lon;
};

constexpr std::array<Bounds, 10> Rectangles = {{
    {80 * D, -80 * D, -180 * D, 180 * D, 20 * D, 30 * D},
    {60 * D, 10 * D, 170 * D, -120 * D, 10 * D, 5 * D},
    {-20 * D, -50 * D, 20 * D, 20 * D, 15 * D, 90 * D},
    {70 * D, 0, -10 * D, 60 * D, 7 * D, 7 * D},
    {0, -45 * D, -75 * D, -30 * D, 45 * D, 45 * D},
    {50 * D, 40 * D, 5 * D, 20 * D, 1 * D, 1 * D},
    {37 * D + 1800, 36 * D, -123 * D, -121 * D, 900, 1200},
    {10 * D + 5, 10 * D, 0, 7, 5, 7},
    {85 * D, 25 * D, 0, 0, 12 * D, 24 * D},
    {89 * D, 30 * D, -179 * D, 179 * D, 59 * D, 2 * D},
}};

TEST_F(GridSweep, MapsBetweenParallelsAndMeridians) {
    for (const std::int16_t projNum : Codes{1, 2, 6, 7, 8, 12, 16, 40, 41, 42}) {
        for (const Bounds& bounds : Rectangles) {
            for (const std::int16_t code : Codes{1, 2, 3, 4, 5}) {
                SCOPED_TRACE(testing::Message()
                             << "ProjNum " << projNum << ", grid type " << code << ", "
                             << LatitudeText(bounds.north) << " to " << LatitudeText(bounds.south) << ", "
                             << LongitudeText(bounds.west) << " to " << LongitudeText(bounds.east));
                StartDesign(projNum);
                Design.GridTypeCode = code;
                Design.GridText = {LatitudeText(bounds.north), LatitudeText(bounds.south),
                                   ArcText(bounds.lat),        LongitudeText(bounds.west),
                                   LongitudeText(bounds.east), ArcText(bounds.lon)};
                PrepareDesign();
                ASSERT_FALSE(Design.ProjOffMap);
                ASSERT_TRUE(Check());
                const bool lines = code <= 3;
                EXPECT_EQ(recorder.lines.empty(), !lines);
                EXPECT_EQ(recorder.dots.empty(), code != 1 && code != 4);
                const int dotted = code == 1 || code == 4 ? Design.LatGridCount + Design.LonGridCount + 2 : 0;
                EXPECT_EQ(recorder.breaks, static_cast<int>(recorder.lines.size()) + dotted);
            }
        }
    }
}

TEST_F(GridSweep, WholeWorldsWithTheirPoles) {
    for (const std::int16_t projNum : Codes{2, 6, 8, 12, 16, 40, 41, 42}) {
        for (const Spacing& spacing : Spacings) {
            SCOPED_TRACE(testing::Message() << "ProjNum " << projNum << ", grid " << ArcText(spacing.lat));
            if (180 * D % spacing.lat != 0) {
                continue;
            }
            StartDesign(projNum);
            Design.GridText[GridTextLatSpacing] = ArcText(spacing.lat);
            Design.GridText[GridTextLonSpacing] = ArcText(spacing.lon);
            PrepareDesign();
            ASSERT_TRUE(Check());
        }
    }
}

TEST_F(GridSweep, LobesOfTheInterruptedMollweide) {
    StartDesign(ProjInterruptedMollweide);
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    Design.GridText[GridTextWest] = "020    00    00    E";
    Design.GridText[GridTextEast] = "020    00    00    E";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    Design.LobeText = {"2", "2"};
    const std::array<int, 8> boundaries = {20, -100, 0, 20, 20, 140, -70, 20};
    for (std::size_t i = 0; i < boundaries.size(); ++i) {
        Design.LobeLonText[i] = LongitudeText(boundaries[i] * D);
        Design.LobeLonDeg[i] = boundaries[i];
    }
    PrepareDesign();
    LonInterruptOffset();
    for (const std::int16_t lobe : Codes{1, 2, 3, 5, 6, 7}) {
        SCOPED_TRACE(testing::Message() << "lobe " << lobe);
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral[static_cast<std::size_t>(lobe)];
        ASSERT_TRUE(Check());
        EXPECT_EQ(recorder.lines.size(), 10U + static_cast<std::size_t>(Design.LonGridCount) + 1U);
    }
}

TEST_F(GridSweep, MetresOfUtm) {
    for (const std::int16_t code : Codes{1, 2, 3, 4, 5}) {
        Start(ProjUtm, code);
        ASSERT_TRUE(Check());
        const std::array<std::size_t, 5> lines = {4, 4, 13, 0, 0};
        EXPECT_EQ(recorder.lines.size(), lines.at(static_cast<std::size_t>(code - 1)));
    }
}

// ---- Slow: every centre and range. QUELMONT_EXHAUSTIVE=1 runs it.

TEST_F(GridSweep, ExhaustiveDiscs) {
    if (std::getenv("QUELMONT_EXHAUSTIVE") == nullptr) {
        GTEST_SKIP() << "set QUELMONT_EXHAUSTIVE to run it";
    }
    std::size_t turn = 0;
    for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
        const std::int32_t widest = (projNum >= 30 ? 180 : projNum == 26 ? 89 : 90) * D;
        for (std::int32_t centre = -90 * D; centre <= 90 * D; centre += 1800) {
            for (std::int32_t range = D; range <= widest; range += D) {
                const Spacing& spacing = Spacings[turn++ % 5];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
}

} // namespace
} // namespace quelmont
