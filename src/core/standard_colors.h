#pragma once

#include <array>
#include <cstdint>

namespace quelmont {

/// A colour as 0x00BBGGRR. A stored design colour also carries SolidColorFlag.
using ColorValue = std::uint32_t;

/// Asks a device with a palette for its nearest solid colour. Every colour that the design stores
/// carries it; whoever paints, writes or compares a colour takes ColorBits of it.
constexpr ColorValue SolidColorFlag = 0x02000000;
constexpr ColorValue ColorMask = 0x00FFFFFF;

constexpr ColorValue Rgb(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8U | blue << 16U;
}
constexpr ColorValue SolidColor(ColorValue color) { return color | SolidColorFlag; }
constexpr ColorValue ColorBits(ColorValue color) { return color & ColorMask; }

// clang-format off
/// The sixteen standard colours by number.
constexpr std::array<ColorValue, 16> StandardColors = {
    Rgb(  0,   0,   0), //  0 black
    Rgb(  0,   0, 128), //  1 blue
    Rgb(  0, 128,   0), //  2 green
    Rgb(  0, 128, 128), //  3 cyan
    Rgb(128,   0,   0), //  4 red
    Rgb(128,   0, 128), //  5 magenta
    Rgb(128, 128,   0), //  6 yellow
    Rgb(192, 192, 192), //  7 light grey
    Rgb(128, 128, 128), //  8 grey
    Rgb(  0,   0, 255), //  9 light blue
    Rgb(  0, 255,   0), // 10 light green
    Rgb(  0, 255, 255), // 11 light cyan
    Rgb(255,   0,   0), // 12 light red
    Rgb(255,   0, 255), // 13 light magenta
    Rgb(255, 255,   0), // 14 light yellow
    Rgb(255, 255, 255), // 15 white
};
// clang-format on

} // namespace quelmont
