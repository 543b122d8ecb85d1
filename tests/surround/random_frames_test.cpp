#include "core/map_design.h"
#include "core/number_text.h"
#include "designfile/designs.h"
#include "graticule/map_outline.h"
#include "mainwindow/map_draw.h"
#include "projection/inverse_place.h"
#include "projection/inverse_select.h"
#include "projection/map_in_hand.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"
#include "surround/scale_bar_place.h"
#include "surround/surround_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

/// Whole draws of thousands of random designs with frames and scale bars: the bar stands on the page beside
/// the map, and is as long as what it says.

namespace quelmont {
namespace {

using testing::IsEmpty;

constexpr int Designs = QUELMONT_SANITIZED ? 500 : 10000;
constexpr double EarthKm = 6371.0;

/// "Scale at 12°30'15\"S" and "Scale along the equator" as degrees.
double LatitudeOfWords(const std::string& words) {
    const std::size_t at = words.find("Scale at ");
    if (at == std::string::npos) {
        return 0.0;
    }
    std::array<double, 3> groups = {};
    std::size_t group = 0;
    std::string digits;
    for (const char c : words.substr(at + 9)) {
        if (c >= '0' && c <= '9') {
            digits += c;
        } else if (!digits.empty() && group < groups.size()) {
            groups[group++] = ValueOf(digits);
            digits.clear();
        }
    }
    const double lat = groups[0] + groups[1] / 60.0 + groups[2] / 3600.0;
    return words.find('S', at + 1) == std::string::npos ? lat : -lat;
}

/// The way on the map along a parallel, in small steps of the forward projection: projection units.
double WayAlongParallel(double lat, double km) {
    constexpr int steps = 400;
    const MapInHand map;
    const double span = km / (EarthKm * std::cos(lat * DegToRad)) / DegToRad;
    double way = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (int i = 0; i <= steps; ++i) {
        Design.ProjLat = lat;
        Design.ProjLon = Design.LonCentral + span * (static_cast<double>(i) / steps - 0.5);
        ProjectSelect();
        way += i == 0 ? 0.0 : std::hypot(Design.ProjX - x, Design.ProjY - y);
        x = Design.ProjX;
        y = Design.ProjY;
    }
    return way;
}

class RandomFrames : public DesignFiles {
protected:
    int Dice(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }

    void MakeDesign() {
        MakeRandomDesign(random);
        Design.InputFiles.clear();
        Design.MapFileCount = 0;
        Design.GridTypeCode = 5;
        window.scaleWidth = 15.0 * Dice(80, 2000);
        window.scaleHeight = 15.0 * Dice(80, 1500);
        Design.MapReduce = Dice(30, 100) / 100.0;
        Design.Frame.frame = Dice(0, 3) > 0;
        Design.Frame.unit = static_cast<ScaleBarUnit>(Dice(0, 3));
        Design.Frame.latitude.reset();
        if (Dice(0, 2) == 0) {
            Design.Frame.latitude = Dice(-90, 90);
        }
        Design.GridLabels.place = static_cast<GridLabelPlace>(Dice(0, 2));
        Design.Fonts[GridLabelFontSlot].FontSize = Dice(4, 30);
        surface = RecordingSurface();
    }

    static PlanePlace PlaceOf(double x, double y) {
        return {(x - Design.ScreenOriginX) / Design.ScreenScaleX + Design.MapXMin,
                (Design.ScreenOriginY - y) / Design.ScreenScaleY + Design.MapYMin};
    }
    static void ExpectBesideMap(const ScaleBar& bar);
    static void ExpectTrue(const ScaleBar& bar);
    static void ExpectOnEdge(const MapOutline& outline);

    std::mt19937 random{20261122};
};

void RandomFrames::ExpectBesideMap(const ScaleBar& bar) {
    const TextBox& box = bar.box;
    EXPECT_GE(box.middle.x - box.halfWidth, 0.0);
    EXPECT_GE(box.middle.y - box.halfHeight, 0.0);
    EXPECT_LE(box.middle.x + box.halfWidth, Design.ClientWidth);
    EXPECT_LE(box.middle.y + box.halfHeight, Design.ClientHeight);
    EXPECT_GE(bar.left.x, box.middle.x - box.halfWidth - 1e-6);
    EXPECT_LE(bar.right.x, box.middle.x + box.halfWidth + 1e-6);
    for (int i = 0; i <= 10; ++i) {
        for (int j = 0; j <= 10; ++j) {
            const PlanePlace place = PlaceOf(box.middle.x + box.halfWidth * (i / 5.0 - 1.0),
                                             box.middle.y + box.halfHeight * (j / 5.0 - 1.0));
            EXPECT_FALSE(PlaceAt(place.x, place.y)) << "over the map";
        }
    }
}

void RandomFrames::ExpectTrue(const ScaleBar& bar) {
    const auto place = PlaceOfScaleBar(Design.Frame.latitude);
    ASSERT_TRUE(place);
    const double length = bar.right.x - bar.left.x;
    const double halfPixel = 0.5 * Design.TwipsPerPixelX;
    if (!place->sameAlongBar) {
        EXPECT_NEAR(*DistanceUnderBar(*place, bar.km) * length / bar.km, length, halfPixel);
        EXPECT_NEAR(bar.km * place->unitsPerKm * Design.ScreenScaleX, length, halfPixel);
    } else if (IsAzimuthal(Design.ProjNum)) {
        EXPECT_NEAR(bar.km / EarthKm * Design.ScreenScaleX, length, halfPixel) << "true from the centre";
    } else if (Design.ProjNum != ProjUtm) {
        const double way = WayAlongParallel(LatitudeOfWords(place->words), bar.km);
        EXPECT_NEAR(way * Design.ScreenScaleX, length, halfPixel) << place->words;
    } else {
        // Within a zone the scale is that of the central meridian to a percent.
        EXPECT_NEAR(bar.km * 1000.0 * Design.UtmK0 * Design.ScreenScaleX, length, length / 100.0);
    }
}

void RandomFrames::ExpectOnEdge(const MapOutline& outline) {
    for (const auto& ring : outline.rings) {
        for (const PlanePlace& point : ring) {
            const auto place = InverseSelect(point.x, point.y);
            if (!place || std::fabs(place->lat) > 89.5) {
                continue;
            }
            const double off =
                std::min({std::fabs(place->lat - Design.LatNorth), std::fabs(place->lat - Design.LatSouth),
                          std::fabs(place->lon - Design.LonZero), std::fabs(place->lon - Design.LonSpan)});
            EXPECT_LT(off, 1e-6) << place->lat << ", " << place->lon;
        }
    }
}

TEST_F(RandomFrames, BarsStandOnThePageBesideTheMapAndAreAsLongAsTheySay) {
    int bars = 0;
    for (int i = 0; i < Designs && !HasFailure(); ++i) {
        MakeDesign();
        SCOPED_TRACE(testing::Message() << "design " << i << ", " << Design.ProjName);
        MapDraw();
        EXPECT_THAT(Told(machine.boxes.Taken()), IsEmpty());
        if (SurroundNow.bar) {
            ++bars;
            ExpectBesideMap(*SurroundNow.bar);
            ExpectTrue(*SurroundNow.bar);
        }
        if (!IsAzimuthal(Design.ProjNum) && Design.ProjNum != ProjUtm &&
            Design.ProjNum != ProjInterruptedMollweide) {
            ExpectOnEdge(OutlineOfMap());
        }
    }
    // A quarter wants none, and many a random latitude lies off its map.
    EXPECT_GT(bars, Designs / 8);
}

} // namespace
} // namespace quelmont
