#pragma once

#include "reports/report.h"

namespace quelmont {

/// The points of the great circle from its start to its end, with course and distance from the start.
///
/// Reads   GcTable, VersionText. A table without rows gives a report without them.
Report GreatCircleReport();

} // namespace quelmont
