#pragma once

#include "reports/report.h"

namespace quelmont {

/// The whole map design: projection, bounds, extent, scale errors, circles, files, size of the drawing area.
///
/// Reads   the design, whose bounds were accepted for its projection; the size of the window.
/// Writes  ReportsNow. The failures of SampleScaleErrors; RunTimeError "Overflow" for a number that no
///         picture takes.
Report ParameterReport();

} // namespace quelmont
