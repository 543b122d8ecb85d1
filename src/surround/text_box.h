#pragma once

#include <array>

namespace quelmont {

/// A place on the drawing area, twips, y downward.
struct AreaPoint {
    double x = 0.0, y = 0.0;
};

/// The rectangle that a text covers, turned about its middle.
struct TextBox {
    AreaPoint middle;
    double halfWidth = 0.0, halfHeight = 0.0; ///< twips, along the text and across it
    double angle = 0.0;                       ///< degrees, counter-clockwise
};

/// The unit vectors along a text that is turned by so many degrees, and upward from its baseline.
AreaPoint AlongText(double degrees);
AreaPoint AboveText(double degrees);

/// The corners, counter-clockwise.
std::array<AreaPoint, 4> CornersOf(const TextBox& box);

/// The box wider on each side by so many twips.
TextBox Widened(const TextBox& box, double along, double across);

/// Half the width and the height of the upright rectangle about a box, twips.
AreaPoint HalfExtentOf(const TextBox& box);

/// Whether two boxes have more than an edge in common.
bool Overlap(const TextBox& a, const TextBox& b);

/// The box of a text whose baseline begins at an anchor. Twips; ascent and descent count from the baseline.
TextBox BoxOfText(AreaPoint anchor, double width, double ascent, double descent, double angle);

} // namespace quelmont
