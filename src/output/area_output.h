#pragma once

#include "core/standard_colors.h"
#include "output/area_rings.h"

#include <string_view>

namespace quelmont {

/// How many units of the finest device a projection unit is: pixels of the surface in use, logical units of a
/// file that is armed and takes areas.
/// Reads   the fit of ScaleScreen, DevicePixelX, DevicePixelY, LogicalScale, the output flags.
double DeviceUnitsPerUnit();

/// Fills areas on the surface in use and, as long as it lives, into the file that is armed; an ASCII file has
/// no areas.
class AreaOutput {
public:
    /// Opens the file. RunTimeError as OpenExport.
    AreaOutput();
    ~AreaOutput();
    AreaOutput(const AreaOutput&) = delete;
    AreaOutput& operator=(const AreaOutput&) = delete;

    /// The areas that follow are of a kind with this title.
    void Begin(std::string_view title) const;
    /// Fills what lies inside an odd number of the rings; points are thinned to the device's. A surface
    /// operation that fails shows its message box under "Windows API Error", a failure of the file "Error in
    /// FillAreas".
    void Fill(ColorValue color, const PlaneRings& rings);

private:
    bool toFile = false;
};

} // namespace quelmont
