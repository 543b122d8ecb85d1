#include "surround/text_box.h"

#include "core/coordinates.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// Exact in the four directions in which most texts stand, so that their boxes touch without overlapping.
AreaPoint Turned(double degrees) {
    if (std::fmod(degrees, 90.0) == 0.0) {
        const double turns = std::fmod(degrees / 90.0 + 4.0, 4.0);
        constexpr std::array<AreaPoint, 4> directions = {{{1.0, 0.0}, {0.0, -1.0}, {-1.0, 0.0}, {0.0, 1.0}}};
        return directions[static_cast<std::size_t>(turns)];
    }
    return {std::cos(degrees * DegToRad), -std::sin(degrees * DegToRad)};
}

double Dot(AreaPoint a, AreaPoint b) { return a.x * b.x + a.y * b.y; }

/// How far a box reaches from its middle in a direction.
double ReachOf(const TextBox& box, AreaPoint direction) {
    return box.halfWidth * std::fabs(Dot(AlongText(box.angle), direction)) +
           box.halfHeight * std::fabs(Dot(AboveText(box.angle), direction));
}

} // namespace

AreaPoint AlongText(double degrees) { return Turned(degrees); }

AreaPoint AboveText(double degrees) {
    const AreaPoint along = Turned(degrees);
    return {along.y, -along.x};
}

std::array<AreaPoint, 4> CornersOf(const TextBox& box) {
    const AreaPoint along = AlongText(box.angle);
    const AreaPoint above = AboveText(box.angle);
    const auto corner = [&](double w, double h) {
        return AreaPoint{box.middle.x + w * box.halfWidth * along.x + h * box.halfHeight * above.x,
                         box.middle.y + w * box.halfWidth * along.y + h * box.halfHeight * above.y};
    };
    return {corner(-1.0, -1.0), corner(1.0, -1.0), corner(1.0, 1.0), corner(-1.0, 1.0)};
}

TextBox Widened(const TextBox& box, double along, double across) {
    TextBox wide = box;
    wide.halfWidth += along;
    wide.halfHeight += across;
    return wide;
}

AreaPoint HalfExtentOf(const TextBox& box) { return {ReachOf(box, {1.0, 0.0}), ReachOf(box, {0.0, 1.0})}; }

bool Overlap(const TextBox& a, const TextBox& b) {
    // Two rectangles are apart when a side of one of them parts them.
    const AreaPoint between{b.middle.x - a.middle.x, b.middle.y - a.middle.y};
    const auto parts = [&](AreaPoint direction) {
        constexpr double Rounding = 1e-6; // twips
        return std::fabs(Dot(between, direction)) + Rounding >= ReachOf(a, direction) + ReachOf(b, direction);
    };
    return !parts(AlongText(a.angle)) && !parts(AboveText(a.angle)) && !parts(AlongText(b.angle)) &&
           !parts(AboveText(b.angle));
}

TextBox BoxOfText(AreaPoint anchor, double width, double ascent, double descent, double angle) {
    const AreaPoint along = AlongText(angle);
    const AreaPoint above = AboveText(angle);
    const double up = (ascent - descent) / 2.0;
    return {.middle = {anchor.x + along.x * width / 2.0 + above.x * up,
                       anchor.y + along.y * width / 2.0 + above.y * up},
            .halfWidth = width / 2.0,
            .halfHeight = (ascent + descent) / 2.0,
            .angle = angle};
}

} // namespace quelmont
