#pragma once

#include "core/standard_colors.h"

#include <array>
#include <cstdint>
#include <string>

namespace quelmont {

/// The highest feature number that a map file can have.
constexpr std::int16_t MaxFeatureRows = 72;

/// What a plotted point means. 1 joins points by lines, 2 sets one pixel, 3 to 12 are symbols;
/// 99 is used by file writers while they write text.
enum SymbolType : std::int16_t {
    SymbolLine = 1,
    SymbolDot = 2,
    SymbolPlus = 3,
    SymbolCross = 4,
    SymbolOpenSquare = 5,
    SymbolFilledSquare = 6,
    SymbolOpenDiamond = 7,
    SymbolFilledDiamond = 8,
    SymbolOpenTriangle = 9,
    SymbolFilledTriangle = 10,
    SymbolOpenCircle = 11,
    SymbolFilledCircle = 12,
    SymbolText = 99,
};

/// The number of symbol types that a file can have.
constexpr std::int16_t SymbolTypes = 12;

/// Square, diamond, triangle and circle, by their outline or filled.
constexpr bool IsOpenShape(std::int16_t symbolType) {
    return symbolType == SymbolOpenSquare || symbolType == SymbolOpenDiamond ||
           symbolType == SymbolOpenTriangle || symbolType == SymbolOpenCircle;
}
constexpr bool IsFilledShape(std::int16_t symbolType) {
    return symbolType == SymbolFilledSquare || symbolType == SymbolFilledDiamond ||
           symbolType == SymbolFilledTriangle || symbolType == SymbolFilledCircle;
}

/// Symbols drawn by strokes or outlines, whose pen has a width of its own.
constexpr bool HasBorder(std::int16_t symbolType) {
    return symbolType == SymbolPlus || symbolType == SymbolCross || IsOpenShape(symbolType);
}

/// The font of labels for which none was chosen; its colour is black.
constexpr const char* DefaultLabelFont = "Arial";
constexpr std::int16_t DefaultLabelSize = 10; ///< points

/// How one feature of a map file is drawn. Sizes in twips.
struct FeatureStyle {
    bool Shown = false;
    ColorValue Color = 0;
    std::int16_t LineWidth = 0;
    std::int16_t SymbolSize = 0;  ///< radius
    std::int16_t BorderWidth = 0; ///< outline of an open symbol
};

/// One digital map file of the design, in the order in which they are drawn.
struct InputFileEntry {
    std::string MapFileName;                                    ///< full path
    std::int16_t MapFileType = SymbolLine;                      ///< SymbolType of the whole file
    std::array<FeatureStyle, MaxFeatureRows + 1> Features = {}; ///< row 0 is never shown
    // Of the labels that an ASCII map file may have; empty and 0 until a font is chosen.
    std::string LabelFontName;
    std::int16_t LabelFontSize = 0; ///< points
    ColorValue LabelColor = 0;
    bool LabelBold = false, LabelItalic = false, LabelUnderline = false, LabelStrikeout = false;
};

} // namespace quelmont
