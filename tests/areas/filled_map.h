#pragma once

#include "areas/area_row.h"
#include "core/map_design.h"
#include "output/area_rings.h"
#include "qtsurface/image_surface.h"
#include "support/fresh_program.h"
#include "support/silent_machine.h"
#include "support/temporary_folder.h"

#include <optional>
#include <string>
#include <vector>

namespace quelmont {

constexpr ColorValue LandColor = Rgb(200, 180, 120);
constexpr ColorValue LakeColor = Rgb(60, 120, 240);
constexpr ColorValue SeaColor = Rgb(180, 220, 250);
/// Where nothing was filled.
constexpr ColorValue Paper = Rgb(255, 255, 255);

/// A picture of 1600 by 1000 pixels on which the areas of a design are filled, and nothing else is drawn.
class FilledMap : public FreshProgramTest {
protected:
    FilledMap();

    /// The design of a command line of quelmont-draw; the map file is the one that was written last.
    bool Take(std::vector<std::string> arguments);
    /// Writes a map file.
    void WriteMap(const std::string& name, const std::string& contents);
    /// Fills the areas of the design. False when a message box was shown.
    bool Fill(const FillChoice& choice = {LandColor, LakeColor, SeaColor});
    /// Shows distortion instead. False when a message box was shown.
    bool Show(const DistortionChoice& choice);

    ColorValue At(int x, int y) const { return picture.pixels[static_cast<std::size_t>(y * Width + x)]; }
    /// The place in the plane of a pixel.
    static PlanePoint PlaneAt(double x, double y);
    /// The place on the globe whose pixel that is, and the class of the world of caps there; Paper's place is
    /// off the map.
    static std::optional<AreaClass> ClassOf(double x, double y);
    /// Compares every so many pixels with what the world of caps has at their places, those excepted that are
    /// a pixel and a half from a border. Gives the number of those that were compared.
    int CompareWithCaps(int step) const;
    /// Of the pixels on the map those in a colour.
    double ShareOf(ColorValue color) const;
    int Count(ColorValue color) const;

    /// Paints by a routine on an empty picture.
    bool Paint(void (*plot)());

    static constexpr int Width = 1600, Height = 1000;
    TemporaryFolder folder;
    std::string mapName;
    PixelImage picture;
    int escapeAt = 0; ///< Escape is pressed when events run for that time
};

} // namespace quelmont
