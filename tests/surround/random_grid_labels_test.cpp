#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "projection/projection_table.h"
#include "surround/grid_labels.h"
#include "surround/label_layout.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <random>

/// Labels of thousands of random grids: none over another, over a text or off the page, and some wherever one
/// has room.

namespace quelmont {
namespace {

using testing::IsEmpty;

constexpr int Designs = QUELMONT_SANITIZED ? 1000 : 10000;

struct Corner {
    double x, y;
};

/// The part of a polygon to the left of a line, by Sutherland and Hodgman.
std::vector<Corner> CutBy(const std::vector<Corner>& polygon, Corner a, Corner b) {
    const auto side = [&](Corner p) { return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x); };
    std::vector<Corner> cut;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Corner p = polygon[i];
        const Corner q = polygon[(i + 1) % polygon.size()];
        const double sp = side(p);
        const double sq = side(q);
        if (sp >= 0.0) {
            cut.push_back(p);
        }
        if ((sp < 0.0) != (sq < 0.0)) {
            const double t = sp / (sp - sq);
            cut.push_back({p.x + (q.x - p.x) * t, p.y + (q.y - p.y) * t});
        }
    }
    return cut;
}

double AreaOf(const std::vector<Corner>& polygon) {
    double area = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Corner p = polygon[i];
        const Corner q = polygon[(i + 1) % polygon.size()];
        area += p.x * q.y - p.y * q.x;
    }
    return area / 2.0;
}

/// A text from its anchor, the angle and its measures; its corners with the inside to their left.
std::vector<Corner> RectangleOf(const TextItem& item, double width, double ascent, double descent) {
    const double angle = item.TextAngle * DegToRad;
    const Corner along{std::cos(angle), -std::sin(angle)};
    const Corner up{-std::sin(angle), -std::cos(angle)};
    const auto at = [&](double w, double h) {
        return Corner{item.TextX + along.x * w + up.x * h, item.TextY + along.y * w + up.y * h};
    };
    return {at(0.0, -descent), at(0.0, ascent), at(width, ascent), at(width, -descent)};
}

double CommonArea(const std::vector<Corner>& a, const std::vector<Corner>& b) {
    std::vector<Corner> common = a;
    for (std::size_t i = 0; i < b.size() && !common.empty(); ++i) {
        common = CutBy(common, b[i], b[(i + 1) % b.size()]);
    }
    return AreaOf(common);
}

class RandomGridLabels : public FreshProgramTest {
protected:
    RandomGridLabels() { Surround() = &surround; }

    int Dice(int from, int to) { return std::uniform_int_distribution<int>(from, to)(dice); }
    template <std::size_t Count>
    int OneOf(const std::array<int, Count>& values) {
        return values[static_cast<std::size_t>(Dice(0, Count - 1))];
    }

    void MakeDesign(std::int16_t projNum);
    void BoundRectangle(int south, int north, int widest);
    void BoundDisc();
    void BoundZone();
    void AddTexts();
    void CheckLabels(const std::vector<GridLabel>& labels);

    // Twips; a font of h pixels has an ascent of h and characters of half of that, whole pixels.
    static double Pixels(const TextItem& item) { return std::rint(item.TextSize * 20.0 / 15.0); }
    static double WidthOf(const TextItem& item) {
        const auto characters = std::count_if(item.TextString.begin(), item.TextString.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
        });
        return static_cast<double>(characters) * std::floor(Pixels(item) / 2.0) * 15.0;
    }

    GridSurround surround; ///< makes room beside the map
    std::mt19937 dice{20261122};
};

/// Degrees; with spacings of whole degrees, or of minutes or seconds.
void RandomGridLabels::BoundRectangle(int south, int north, int widest) {
    const int unit = OneOf(std::array{3600, 3600, 3600, 1800, 60, 1});
    const int latGrid = unit * OneOf(std::array{1, 2, 5, 10, 15});
    const int most = (north - south) * 3600 / latGrid;
    const int low = Dice(0, most - 1);
    const int high = low + Dice(1, std::min(most - low, 40));
    Design.GridText[GridTextSouth] = LatitudeText(south * 3600 + low * latGrid);
    Design.GridText[GridTextNorth] = LatitudeText(south * 3600 + high * latGrid);
    Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
    const int lonGrid = unit * OneOf(std::array{1, 2, 5, 10, 15, 30});
    const int count = Dice(1, std::min(widest * 3600 / lonGrid, 60));
    const int west = Dice(-180, 179) * 3600;
    int east = west + count * lonGrid;
    east -= east > 180 * 3600 ? 360 * 3600 : 0;
    Design.GridText[GridTextWest] = LongitudeText(west);
    Design.GridText[GridTextEast] = LongitudeText(east);
    Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
}

void RandomGridLabels::BoundDisc() {
    const int lat = OneOf(std::array{90, -90, 0, Dice(-89, 89), Dice(-89, 89)});
    Design.GridText[GridTextCentralLat] = LatitudeText(lat * 3600 + (std::abs(lat) < 89 ? Dice(0, 3599) : 0));
    Design.GridText[GridTextCentralLon] = LongitudeText(Dice(-180, 180) * 3600);
    const int farthest = Design.ProjNum == ProjGnomonic        ? 80
                         : Design.ProjNum == ProjOrthographic  ? 90
                         : Design.ProjNum == ProjStereographic ? 170
                                                               : 180;
    Design.GridText[GridTextRange] = ArcText(3600 * (Dice(0, 2) == 0 ? farthest : Dice(1, farthest)));
    Design.GridText[GridTextHeight] = std::to_string(10000 + Dice(0, 89999));
    Design.GridText[GridTextLatSpacing] = ArcText(OneOf(std::array{1, 2, 5, 10, 15, 30, 45}) * 3600);
    Design.GridText[GridTextLonSpacing] = ArcText(OneOf(std::array{1, 5, 10, 15, 30, 45, 90}) * 3600);
}

void RandomGridLabels::BoundZone() {
    const int grid = OneOf(std::array{100, 250, 1000, 10000, 100000});
    const int south = Dice(0, 90) * 100000;
    const int west = Dice(0, 8) * 100000;
    Design.UtmText[UtmTextSouth] = std::to_string(south);
    Design.UtmText[UtmTextNorth] = std::to_string(south + Dice(1, 20) * grid);
    Design.UtmText[UtmTextNorthingSpacing] = std::to_string(grid);
    Design.UtmText[UtmTextWest] = std::to_string(west);
    Design.UtmText[UtmTextEast] = std::to_string(west + Dice(1, 20) * grid);
    Design.UtmText[UtmTextEastingSpacing] = std::to_string(grid);
}

void RandomGridLabels::AddTexts() {
    const int count = Dice(0, 3) == 0 ? Dice(1, 12) : 0;
    for (int i = 0; i < count; ++i) {
        TextItem item{.TextString = std::string(static_cast<std::size_t>(Dice(1, 20)), 'x'),
                      .TextAngle = static_cast<std::int16_t>(Dice(0, 359)),
                      .TextFont = "Times",
                      .TextSize = static_cast<std::int16_t>(Dice(6, 40))};
        item.TextX = Dice(0, Design.ClientWidth);
        item.TextY = Dice(0, Design.ClientHeight);
        item.TextHeight = static_cast<std::int16_t>(Pixels(item) * 15.0);
        item.TextDescent = static_cast<std::int16_t>(std::floor(Pixels(item) / 4.0) * 15.0);
        Design.TextItems.push_back(item);
    }
}

void RandomGridLabels::MakeDesign(std::int16_t projNum) {
    StartDesign(projNum);
    Design.TextItems.clear();
    machine.window.scaleWidth = 15.0 * Dice(60, 2000);
    machine.window.scaleHeight = 15.0 * Dice(60, 1500);
    Design.MapReduce = Dice(10, 100) / 100.0;
    Design.GridLabels.place = Dice(0, 1) == 0 ? GridLabelPlace::Frame : GridLabelPlace::Lines;
    Design.GridLabels.style = static_cast<GridLabelStyle>(Dice(0, 2));
    Design.Fonts[GridLabelFontSlot].FontSize = Dice(4, 30);
    Design.GridLineWidth = static_cast<float>(15 * Dice(1, 8));
    const ProjectionFamily family = PropertiesOf(projNum).family;
    if (family == ProjectionFamily::Azimuthal) {
        BoundDisc();
    } else if (family == ProjectionFamily::MetricGrid) {
        BoundZone();
    } else if (family == ProjectionFamily::Conic) {
        const bool north = Dice(0, 1) == 0;
        BoundRectangle(north ? 5 : -85, north ? 85 : -5, Dice(0, 3) == 0 ? 360 : 180);
    } else if (projNum == ProjInterruptedMollweide) {
        Design.GridText[GridTextWest] = LongitudeText(100 * 3600);
        Design.GridText[GridTextEast] = LongitudeText(100 * 3600);
        Design.GridText[GridTextLonSpacing] = ArcText(OneOf(std::array{5, 10, 20}) * 3600);
        Design.GridText[GridTextLatSpacing] = ArcText(OneOf(std::array{10, 15, 30}) * 3600);
        Design.LobeText = {"2",
                           "2",
                           "100    00    00    E",
                           "100    00    00    W",
                           "000    00    00    W",
                           "",
                           "140    00    00    E",
                           "060    00    00    W",
                           "",
                           ""};
        Design.LobeLonText = {"100    00    00    E", "100    00    00    W", "000    00    00    E",
                              "100    00    00    E", "100    00    00    E", "140    00    00    E",
                              "060    00    00    W", "100    00    00    E"};
        Design.LobeLonDeg = {100.0, -100.0, 0.0, 100.0, 100.0, 140.0, -60.0, 100.0};
    } else {
        const int reach = projNum == ProjMercator ? 80 : 90;
        BoundRectangle(-reach, reach, 360);
    }
    PrepareDesign();
    if (projNum == ProjInterruptedMollweide) {
        LonInterruptOffset();
        PrepareDesign();
    }
}

void RandomGridLabels::CheckLabels(const std::vector<GridLabel>& labels) {
    std::vector<std::vector<Corner>> rectangles;
    for (const GridLabel& label : labels) {
        const TextItem& item = label.item;
        const double ascent = Pixels(item) * 15.0;
        const double descent = std::floor(Pixels(item) / 4.0) * 15.0;
        for (const Corner corner : RectangleOf(item, WidthOf(item), ascent, descent)) {
            EXPECT_GE(corner.x, -1.0) << item.TextString;
            EXPECT_LE(corner.x, Design.ClientWidth + 1.0) << item.TextString;
            EXPECT_GE(corner.y, -1.0) << item.TextString;
            EXPECT_LE(corner.y, Design.ClientHeight + 1.0) << item.TextString;
        }
        // Letters overlap by less than a hundredth of a pixel, which is the rounding of their places.
        const auto letters = RectangleOf(item, WidthOf(item), 0.8 * ascent, 0.0);
        for (const auto& other : rectangles) {
            EXPECT_LT(CommonArea(letters, other), 2.0 * WidthOf(item) + 500.0) << item.TextString;
        }
        rectangles.push_back(letters);
        for (const TextItem& text : Design.TextItems) {
            const auto box = RectangleOf(text, WidthOf(text), text.TextHeight, text.TextDescent);
            EXPECT_LT(CommonArea(letters, box), 2.0 * WidthOf(item) + 500.0) << item.TextString;
        }
    }
}

TEST_F(RandomGridLabels, StandApartOnThePageAndWhereverOneHasRoom) {
    int labelled = 0;
    for (int i = 0; i < Designs && !HasFailure(); ++i) {
        const ProjectionEntry& projection = Projections[static_cast<std::size_t>(i) % Projections.size()];
        SCOPED_TRACE(testing::Message() << "design " << i << ", " << projection.ProjName);
        MakeDesign(projection.ProjNum);
        ASSERT_THAT(machine.boxes.Taken(), IsEmpty()) << "a design that is none";
        AddTexts();
        const std::vector<GridLabel> labels = GridLabelsOfDesign();
        CheckLabels(labels);
        labelled += labels.empty() ? 0 : 1;
        if (labels.empty()) {
            const std::vector<TextBox> texts = TextsOnMap();
            for (const LabelledLine& line : LabelledLines(Design.GridLabels)) {
                EXPECT_THAT(PlaceGridLabels({line}, texts, Design.GridLineWidth / 2.0), IsEmpty())
                    << line.text << " has room alone";
            }
        }
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    }
    EXPECT_GT(labelled, Designs * 8 / 10);
}

TEST_F(RandomGridLabels, OfTheDefaultMapsAreFourAtLeast) {
    for (const ProjectionEntry& projection : Projections) {
        for (const GridLabelPlace place : {GridLabelPlace::Frame, GridLabelPlace::Lines}) {
            StartDesign(projection.ProjNum);
            if (projection.ProjNum == ProjInterruptedMollweide) {
                MakeDesign(projection.ProjNum);
            } else if (projection.family == ProjectionFamily::Conic) {
                Design.GridText[GridTextSouth] = LatitudeText(0);
            } else if (projection.ProjNum == ProjMercator) {
                Design.GridText[GridTextNorth] = LatitudeText(80 * 3600);
                Design.GridText[GridTextSouth] = LatitudeText(-80 * 3600);
                Design.GridText[GridTextLatSpacing] = ArcText(20 * 3600);
            } else if (projection.family == ProjectionFamily::Azimuthal && !projection.wholeGlobe) {
                Design.GridText[GridTextRange] = ArcText(60 * 3600);
            }
            machine.window.scaleWidth = 19200.0;
            machine.window.scaleHeight = 13860.0;
            Design.MapReduce = 1.0;
            Design.TextItems.clear();
            Design.Fonts[GridLabelFontSlot].FontSize = 10;
            Design.GridLabels = {.place = place};
            PrepareDesign();
            EXPECT_GE(GridLabelsOfDesign().size(), 4U) << projection.ProjName;
            CheckLabels(GridLabelsOfDesign());
        }
    }
}

} // namespace
} // namespace quelmont
