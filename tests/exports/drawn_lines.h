#pragma once

#include "support/recording_surface.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The lines and symbols of a map as different devices have them, in one form.

namespace quelmont {

/// 0x00BBGGRR, or a number of a DXF file, or neither.
struct DrawnColor {
    std::optional<std::uint32_t> bits;
    std::string number;
};

/// A line in logical units, y upward.
struct DrawnLine {
    std::vector<SurfacePoint> points;
    DrawnColor color;
    int width = 0; ///< 0 when the device does not tell it
};

/// A symbol of types 3 to 12.
struct DrawnSymbol {
    std::string kind;       ///< "plus", "filled square"
    SurfacePoint low, high; ///< corners of the box around it
    DrawnColor color;
    int width = 0; ///< of strokes and outlines, 0 when the device does not tell it
};

/// A map's lines, the centres of its dots, and its symbols.
struct DrawnMap {
    std::vector<DrawnLine> lines;
    std::vector<SurfacePoint> dots;
    std::vector<DrawnSymbol> symbols;
};

/// What a window was asked to draw, taken from device pixels to logical units.
DrawnMap MapOfSurface(const RecordingSurface& surface);

/// What the bytes of a file say. Chains that were cut for their length are one line again; a lone point is
/// one point in each format. Plus and cross are two lines in CGM and DXF files. A dot of a drawing is one of
/// its squares that have no outline.
DrawnMap MapOfCgm(std::string_view bytes);
DrawnMap MapOfDxf(std::string_view bytes);
DrawnMap MapOfWmf(std::string_view bytes);
DrawnMap MapOfSvg(std::string_view bytes);
/// Of a text file; a file of dots is one line.
DrawnMap MapOfText(std::string_view bytes);

} // namespace quelmont
