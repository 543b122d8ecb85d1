#pragma once

#include "output/fan_out.h"

#include <string>

namespace quelmont {

/// Writes the projected map as text, a point to a line: x and y in lengths of the x axis from the
/// lower left corner, "0.5000000  00.2500000". After each line the pair 5, 5, which lies outside of
/// every map, tells that the pen is lifted.
class AsciiWriter final : public FileWriter {
public:
    /// Reads   ProjX, ProjY, MapXMin, MapYMin, AsciiScale.  Writes  PointCount.
    void Point() override;
    /// Writes  ProjX, ProjY.
    void LineBreak() override;

private:
    std::string line; ///< kept for its memory
};

} // namespace quelmont
