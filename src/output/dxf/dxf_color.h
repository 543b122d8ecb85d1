#pragma once

#include "core/standard_colors.h"

#include <array>
#include <cstdint>
#include <string>

/// Numbers of colours in a DXF file: the colour index of the drawing programs that read it.

namespace quelmont {

struct IndexedColor {
    ColorValue color;   ///< 0x00BBGGRR
    std::int16_t index; ///< 1 to 255
};

// clang-format off
/// Every colour of the picker's table, and shades beside them, by index.
constexpr std::array IndexedColors = std::to_array<IndexedColor>({
    {0x0000E6,   1}, {0x0000FF,   1}, {0x1A1AFF,   1}, {0x3333FF,   1},
    {0x00E6E6,   2}, {0x00FFFF,   2}, {0x1AFFFF,   2}, {0x33FFFF,   2},
    {0x00E600,   3}, {0x00FF00,   3}, {0x1AFF1A,   3}, {0x33FF33,   3},
    {0xE6E600,   4}, {0xFFFF00,   4}, {0xFFFF1A,   4}, {0xFFFF33,   4},
    {0xE60000,   5}, {0xFF0000,   5}, {0xFF1A1A,   5}, {0xFF3333,   5},
    {0xE600E6,   6}, {0xFF00FF,   6}, {0xFF1AFF,   6}, {0xFF33FF,   6},
    {0x000000,   7}, {0x000001,   7}, {0x111111,   7}, {0x222222,   7},
    {0x4D4DFF,  11}, {0x6666FF,  11}, {0x8080FF,  11},
    {0x000099,  12}, {0x0000B3,  12}, {0x0000CC,  12},
    {0x000080,  14},
    {0x00004D,  16}, {0x000066,  16},
    {0x4DA6FF,  21}, {0x7399D9,  21}, {0x80A6E6,  21}, {0x9999FF,  21},
    {0x3C669F,  23}, {0x406CA6,  23},
    {0x264D73,  25}, {0x305480,  25}, {0x33598C,  25}, {0x395993,  25},
    {0x0073E6,  30}, {0x0080FF,  30}, {0x1A8CFF,  30}, {0x3399FF,  30},
    {0x66B3FF,  31}, {0x80BFFF,  31}, {0x93B3F2,  31}, {0x99CCFF,  31}, {0xA6C6FF,  31}, {0xB3B3FF,  31}, {0xB3CCFF,  31},
    {0x004D99,  32}, {0x0059B3,  32}, {0x0066CC,  32},
    {0x4573B3,  33}, {0x4D78BF,  33}, {0x668099,  33},
    {0x004080,  34},
    {0x00264D,  36}, {0x003366,  36},
    {0xB3D9FF,  41}, {0xBFD9FF,  41}, {0xCCE6FF,  41},
    {0x598CCC,  43}, {0x668C99,  43},
    {0x4DFFFF,  51}, {0x66FFFF,  51}, {0x80FFFF,  51}, {0x99FFFF,  51}, {0xB3FFFF,  51},
    {0x009999,  52}, {0x00B3B3,  52}, {0x00CCCC,  52},
    {0x669999,  53},
    {0x008080,  54},
    {0x004D4D,  56}, {0x006666,  56},
    {0xB3FFD9,  61},
    {0x00E673,  70}, {0x00FF80,  70}, {0x1AFF8C,  70}, {0x33FF99,  70},
    {0x66FFB3,  71}, {0x80FFBF,  71}, {0x99FFCC,  71},
    {0x00994D,  72}, {0x00B359,  72}, {0x00CC66,  72},
    {0x669980,  73},
    {0x008040,  74},
    {0x004D26,  76}, {0x006633,  76},
    {0x4DFFA6,  81},
    {0x4DFF4D,  91}, {0x66FF66,  91}, {0x80FF80,  91}, {0x99FF99,  91}, {0xB3FFB3,  91},
    {0x009900,  92}, {0x00B300,  92}, {0x00CC00,  92},
    {0x669966,  93},
    {0x006600,  94}, {0x008000,  94},
    {0x004D00,  96},
    {0xA6FF4D, 101},
    {0x73E600, 110}, {0x80FF00, 110}, {0x8CFF1A, 110}, {0x99FF33, 110},
    {0xB3FF66, 111}, {0xBFFF80, 111}, {0xCCFF99, 111},
    {0x4D9900, 112}, {0x59B300, 112}, {0x66CC00, 112},
    {0x809966, 113},
    {0x408000, 114},
    {0x264D00, 116}, {0x336600, 116},
    {0xD9FFB3, 121},
    {0x739966, 122},
    {0xFFFF4D, 131}, {0xFFFF66, 131}, {0xFFFF80, 131}, {0xFFFF99, 131}, {0xFFFFB3, 131},
    {0x999900, 132}, {0xB3B300, 132}, {0xCCCC00, 132},
    {0x999966, 133},
    {0x808000, 134},
    {0x4D4D00, 136}, {0x666600, 136},
    {0xFFD9B3, 141},
    {0xE67300, 150}, {0xFF8000, 150}, {0xFF8C1A, 150}, {0xFF9933, 150},
    {0xFFB366, 151}, {0xFFBF80, 151}, {0xFFCC99, 151},
    {0x994D00, 152}, {0xB35900, 152}, {0xCC6600, 152},
    {0x997366, 153}, {0x998066, 153},
    {0x804000, 154},
    {0x4D2600, 156}, {0x663300, 156},
    {0xFFA64D, 161},
    {0xFF4D4D, 171}, {0xFF6666, 171}, {0xFF8080, 171}, {0xFF9999, 171}, {0xFFB3B3, 171},
    {0x990000, 172}, {0xB30000, 172}, {0xCC0000, 172},
    {0x800000, 174},
    {0x4D0000, 176}, {0x660000, 176},
    {0xFF4DA6, 181},
    {0x996666, 183},
    {0xE60073, 190}, {0xFF0080, 190}, {0xFF1A8C, 190}, {0xFF3399, 190},
    {0xFF66B3, 191}, {0xFF80BF, 191}, {0xFF99CC, 191}, {0xFFB3D9, 191},
    {0x99004D, 192}, {0xB30059, 192}, {0xCC0066, 192},
    {0x996680, 193},
    {0x800040, 194},
    {0x4D0026, 196}, {0x660033, 196},
    {0xFF4DFF, 211}, {0xFF66FF, 211}, {0xFF80FF, 211}, {0xFF99FF, 211}, {0xFFB3FF, 211},
    {0x990099, 212}, {0xB300B3, 212}, {0xCC00CC, 212},
    {0x996699, 213},
    {0x800080, 214},
    {0x4D004D, 216}, {0x660066, 216},
    {0xD9B3FF, 221},
    {0x8C6699, 223},
    {0x7300E6, 230}, {0x8000FF, 230}, {0x8C1AFF, 230}, {0x9933FF, 230},
    {0xB366FF, 231}, {0xBF80FF, 231}, {0xCC99FF, 231},
    {0x4D0099, 232}, {0x5900B3, 232}, {0x6600CC, 232},
    {0x806699, 233},
    {0x400080, 234},
    {0x26004D, 236}, {0x330066, 236},
    {0xA64DFF, 241},
    {0x666699, 243},
    {0x333333, 250}, {0x444444, 250}, {0x555555, 250},
    {0x666666, 251}, {0x777777, 251}, {0x808080, 251},
    {0x888888, 252}, {0x999999, 252},
    {0xAAAAAA, 253}, {0xBBBBBB, 253}, {0xC0C0C0, 253},
    {0xCCCCCC, 254}, {0xDDDDDD, 254}, {0xEEEEEE, 254},
    {0xCCCCFF, 255}, {0xCCFFCC, 255}, {0xCCFFE6, 255}, {0xCCFFFF, 255}, {0xE6CCFF, 255}, {0xE6FFCC, 255}, {0xFFCCCC, 255}, {0xFFCCE6, 255}, {0xFFCCFF, 255}, {0xFFE6CC, 255}, {0xFFFFCC, 255}, {0xFFFFFF, 255},
});
// clang-format on

/// The text of a colour's number, empty for a colour that has none. The palette flag is taken off.
std::string DxfColor(ColorValue color);

/// The same of areas, whose colour need not be exact, but must not become white when it is pale: the number
/// that DxfColor has, or that of the nearest hue, shade and tint. 10 to 249 are 24 hues in steps of 15
/// degrees, five shades of each, behind each of which stands its tint; 250 to 255 are greys.
std::string DxfAreaColor(ColorValue color);

} // namespace quelmont
