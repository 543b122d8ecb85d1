#pragma once

#include "areas/ring.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace quelmont {

/// Where a closed line lies among the others of its file, and what that makes of it.
struct NestedRing {
    static constexpr std::size_t None = std::numeric_limits<std::size_t>::max();
    std::size_t ring = 0;      ///< its number among the lines
    std::size_t around = None; ///< the innermost one about it in the list, whose inside is of another class
    std::size_t depth = 0;     ///< how many are about it
    AreaClass inside = AreaClass::Land;
};

/// The lines that part areas of different classes, larger ones before those inside them. A line inside an
/// area of its own class, and one that is there twice, are left out.
///
/// A line lies inside another if most of some of its places do: lines that were thinned may touch.
std::vector<NestedRing> Nest(const std::vector<Ring>& rings);

} // namespace quelmont
