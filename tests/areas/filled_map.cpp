#include "areas/filled_map.h"

#include "areas/caps.h"
#include "areas/fill_areas.h"
#include "areas/plot_distortion.h"
#include "commandline/design_options.h"
#include "mainwindow/start_up.h"
#include "output/draw_target.h"
#include "output/scale_screen.h"
#include "projection/inverse_place.h"

#include <algorithm>
#include <variant>

namespace quelmont {

namespace {

constexpr double Twips = 15.0;

ColorValue ColorOf(std::optional<AreaClass> area) {
    if (!area) {
        return Paper;
    }
    return *area == AreaClass::Land ? LandColor : *area == AreaClass::Lake ? LakeColor : SeaColor;
}

} // namespace

FilledMap::FilledMap() {
    StartUp();
    Design.SmoothLines = false; // each pixel then has the colour of one area
}

bool FilledMap::Take(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--map", mapName, "a.png"});
    auto result = ReadDrawOptions(arguments, "");
    if (const auto* wrong = std::get_if<WrongUsage>(&result)) {
        ADD_FAILURE() << wrong->reason;
        return false;
    }
    return ApplyOptions(std::get<DrawOptions>(result));
}

void FilledMap::WriteMap(const std::string& name, const std::string& contents) {
    mapName = folder / name;
    WriteWholeFile(mapName, contents);
}

bool FilledMap::Fill(const FillChoice& choice) {
    Design.Fill = choice;
    return Paint(FillAreas);
}

bool FilledMap::Show(const DistortionChoice& choice) {
    Design.Distortion = choice;
    return Paint(PlotDistortion);
}

bool FilledMap::Paint(void (*plot)()) {
    Design.TwipsPerPixelX = Design.TwipsPerPixelY = static_cast<float>(Twips);
    Design.FullScreenX = Width;
    Design.FullScreenY = Height;
    ImageSurface surface(Width, Height);
    surface.Clear(Paper);
    SilentMachine silent(surface);
    int turns = 0;
    silent.onEvents = [&] {
        if (++turns == escapeAt) {
            Design.PlotStopReason = StopReason::Escape;
        }
    };
    ScaleScreen();
    SelectDevice();
    Design.LobeFirst = true;
    plot();
    picture = surface.Pixels();
    return silent.boxes == 0;
}

PlanePoint FilledMap::PlaneAt(double x, double y) {
    return {(x * Twips - Design.ScreenOriginX) / Design.ScreenScaleX + Design.MapXMin,
            (Design.ScreenOriginY - y * Twips) / Design.ScreenScaleY + Design.MapYMin};
}

std::optional<AreaClass> FilledMap::ClassOf(double x, double y) {
    const PlanePoint point = PlaneAt(x, y);
    const std::optional<GlobePlace> place = PlaceAt(point.x, point.y);
    return place ? std::optional(ClassAt(place->lat, place->lon)) : std::nullopt;
}

int FilledMap::CompareWithCaps(int step) const {
    int compared = 0;
    int wrong = 0;
    for (int y = step / 2; y < Height; y += step) {
        for (int x = step / 2; x < Width; x += step) {
            constexpr double margin = 1.5;
            const std::optional<AreaClass> expected = ClassOf(x, y);
            bool same = true;
            for (const double dx : {-margin, 0.0, margin}) {
                for (const double dy : {-margin, 0.0, margin}) {
                    same = same && ClassOf(x + dx, y + dy) == expected;
                }
            }
            if (!same) {
                continue;
            }
            ++compared;
            if (At(x, y) != ColorOf(expected) && ++wrong < 5) {
                ADD_FAILURE() << "pixel " << x << ", " << y << " of projection " << Design.ProjNum << " is "
                              << std::hex << At(x, y) << " and not " << ColorOf(expected);
            }
        }
    }
    EXPECT_EQ(wrong, 0);
    return compared;
}

int FilledMap::Count(ColorValue color) const {
    return static_cast<int>(std::count(picture.pixels.begin(), picture.pixels.end(), color));
}

double FilledMap::ShareOf(ColorValue color) const {
    return static_cast<double>(Count(color)) / (Width * Height - Count(Paper));
}

} // namespace quelmont
