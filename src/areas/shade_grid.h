#pragma once

#include "areas/shade_patch.h"
#include "core/map_extras.h"
#include "output/area_rings.h"

#include <cstddef>
#include <vector>

namespace quelmont {

/// Distortion on the nodes of a patch, and the lines of equal distortion between them.
class ShadeGrid {
public:
    /// kind: Area or Angle. The patch has to outlive the grid.
    ShadeGrid(const ShadePatch& patch, DistortionKind kind);

    /// The least and the largest value: scales of areas, degrees. least is above most when there is none.
    double Least() const { return least; }
    double Most() const { return most; }

    /// Puts what bounds the part with values from a threshold on behind rings, projection units. By marching
    /// squares (Lorensen and Cline 1987, in the plane).
    void CutFrom(double threshold, PlaneRings& rings) const;
    /// The same of all of the patch.
    void CutWhole(PlaneRings& rings) const;

private:
    class Tracer;

    bool Holds(int column, int row) const {
        return column >= 0 && row >= 0 && column <= patch.columns && row <= patch.rows;
    }
    double ValueAt(int column, int row) const {
        return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(patch.columns + 1) +
                      static_cast<std::size_t>(column)];
    }

    const ShadePatch& patch;
    bool logarithms;            ///< of scales
    std::vector<double> values; ///< by rows; not a number where there is none
    double least = 0.0, most = 0.0;
};

} // namespace quelmont
