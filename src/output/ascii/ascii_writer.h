#pragma once

#include "output/fan_out.h"

#include <string>

namespace quelmont {

/// Writes the projected map as text, a point to a line: x and y in lengths of the x axis from the
/// lower left corner, "0.5000000  00.2500000". After each line the pair 5, 5, which lies outside of
/// every map, tells that the pen is lifted.
class AsciiWriter final : public FileWriter {
public:
    /// Each stage has a file of its own, which a later pass of an interrupted map goes on with.
    /// Reads   AsciiFileName.  Writes  OutputFileName.
    void OpenStretch(std::size_t slot) override;
    /// Reads   ProjX, ProjY, MapXMin, MapYMin, AsciiScale.  Writes  PointCount.
    void Point() override;
    /// Writes  ProjX, ProjY.
    void LineBreak() override;
    /// The files of a map take their places together.
    void Finish() override;

private:
    std::string line; ///< kept for its memory
};

} // namespace quelmont
