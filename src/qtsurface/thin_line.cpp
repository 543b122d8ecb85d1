#include "qtsurface/thin_line.h"

#include <algorithm>
#include <cstddef>

namespace quelmont {

namespace {

/// Products of two lengths of 33 bits.
__extension__ using Wide = __int128;

Wide FloorDivide(Wide a, Wide b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }
Wide CeilDivide(Wide a, Wide b) { return -FloorDivide(-a, b); }

/// One axis of a line, or of the grid.
struct Axis {
    std::int64_t start;  ///< coordinate of the line's first pixel
    std::int64_t length; ///< of the line, without sign
    std::int64_t sign;
    std::int64_t size;    ///< of the grid
    std::ptrdiff_t index; ///< from one pixel of the grid to the next
};

Axis MakeAxis(std::int32_t from, std::int32_t to, std::int32_t size, std::ptrdiff_t index) {
    const std::int64_t length = static_cast<std::int64_t>(to) - from;
    return {from, length < 0 ? -length : length, length < 0 ? -1 : 1, size, index};
}

/// Steps of the line whose pixels lie on the grid.
struct Steps {
    std::int64_t first;
    std::int64_t end;
};

/// The steps at which start + sign * step lies on the axis.
Steps OnAxis(const Axis& axis) {
    return axis.sign > 0 ? Steps{-axis.start, axis.size - axis.start}
                         : Steps{axis.start - axis.size + 1, axis.start + 1};
}

/// A line in steps along its longer axis: at step k it is floor((2 k minor + tie) / (2 major)) away
/// from its start along the shorter one.
struct Walk {
    Axis major;
    Axis minor;
    std::int64_t tie;

    Walk(const Axis& x, const Axis& y)
        : major(x.length >= y.length ? x : y), minor(x.length >= y.length ? y : x),
          // Half a step, one part less where rounding up would go up or left on the picture.
          tie(minor.sign > 0 ? major.length : major.length - 1) {}

    Wide Error(std::int64_t step) const { return Wide{2} * step * minor.length + tie; }
};

Steps StepsInside(const Walk& walk) {
    Steps steps = OnAxis(walk.major);
    steps.first = std::max<std::int64_t>(steps.first, 0);
    steps.end = std::min(steps.end, walk.major.length);
    // The distance along the shorter axis never falls, so it allows one stretch of steps.
    const Steps distance = OnAxis(walk.minor);
    if (walk.minor.length == 0) {
        return distance.first <= 0 && distance.end > 0 ? steps : Steps{0, 0};
    }
    const Wide twiceMajor = Wide{2} * walk.major.length;
    const Wide twiceMinor = Wide{2} * walk.minor.length;
    const Wide first = CeilDivide(twiceMajor * distance.first - walk.tie, twiceMinor);
    const Wide end = CeilDivide(twiceMajor * distance.end - walk.tie, twiceMinor);
    steps.first = static_cast<std::int64_t>(std::max<Wide>(steps.first, first));
    steps.end = static_cast<std::int64_t>(std::min<Wide>(steps.end, end));
    return steps;
}

void Run(const PixelGrid& grid, const Walk& walk, const Steps& steps, std::int64_t distance,
         std::int64_t error, std::uint32_t pixel) {
    std::ptrdiff_t index = (walk.major.start + walk.major.sign * steps.first) * walk.major.index +
                           (walk.minor.start + walk.minor.sign * distance) * walk.minor.index;
    const std::ptrdiff_t along = walk.major.sign * walk.major.index;
    const std::ptrdiff_t aside = walk.minor.sign * walk.minor.index;
    const std::int64_t twiceMajor = 2 * walk.major.length;
    const std::int64_t twiceMinor = 2 * walk.minor.length;
    for (std::int64_t step = steps.first; step < steps.end; ++step) {
        grid.pixels[index] = pixel;
        error += twiceMinor;
        const bool aStepAside = error >= twiceMajor;
        index += along + (aStepAside ? aside : 0);
        error -= aStepAside ? twiceMajor : 0;
    }
}

/// The same walk where nothing has to be cut off and all numbers are small: most segments of a map
/// are a few pixels long, so what stands before the loop counts more than the loop.
void RunInside(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel) {
    const std::int32_t dx = to.x - from.x;
    const std::int32_t dy = to.y - from.y;
    const std::int32_t lengthX = dx < 0 ? -dx : dx;
    const std::int32_t lengthY = dy < 0 ? -dy : dy;
    const std::int32_t stepX = dx < 0 ? -1 : 1;
    const std::int32_t stepY = dy < 0 ? -grid.width : grid.width;
    const bool flat = lengthX >= lengthY;
    const std::int32_t major = flat ? lengthX : lengthY;
    const std::int32_t minor = flat ? lengthY : lengthX;
    const std::ptrdiff_t along = flat ? stepX : stepY;
    const std::ptrdiff_t aside = flat ? stepY : stepX;
    std::int32_t error = major - ((flat ? dy : dx) < 0 ? 1 : 0);
    std::ptrdiff_t index = static_cast<std::ptrdiff_t>(from.y) * grid.width + from.x;
    for (std::int32_t left = major; left > 0; --left) {
        grid.pixels[index] = pixel;
        error += 2 * minor;
        const bool aStepAside = error >= 2 * major;
        index += along + (aStepAside ? aside : 0);
        error -= aStepAside ? 2 * major : 0;
    }
}

/// Both ends on one side of the grid.
bool Misses(const Axis& axis) {
    const std::int64_t end = axis.start + axis.sign * axis.length;
    return std::max(axis.start, end) < 0 || std::min(axis.start, end) >= axis.size;
}

} // namespace

void DrawThinLine(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel) {
    grid.Take(pixel);
    if (grid.Holds(from) && grid.Holds(to)) {
        RunInside(grid, from, to, pixel);
        return;
    }
    const Axis x = MakeAxis(from.x, to.x, grid.width, 1);
    const Axis y = MakeAxis(from.y, to.y, grid.height, grid.width);
    if (Misses(x) || Misses(y)) {
        return;
    }
    const Walk walk(x, y);
    const Steps steps = StepsInside(walk);
    if (steps.first >= steps.end) {
        return;
    }
    const Wide error = walk.Error(steps.first);
    const Wide distance = error / (Wide{2} * walk.major.length);
    Run(grid, walk, steps, static_cast<std::int64_t>(distance),
        static_cast<std::int64_t>(error - distance * 2 * walk.major.length), pixel);
}

} // namespace quelmont
