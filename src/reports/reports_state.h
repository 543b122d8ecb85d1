#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quelmont {

/// Rows that the table of scale errors has at most.
constexpr std::size_t ScaleErrRowsMost = 14;

/// A column of the table, by ScaleErrIndex; entry 0 is not used.
using ScaleErrColumn = std::array<std::string, ScaleErrRowsMost + 1>;

/// What DistErrSelect works on, and the table of scale errors that it fills.
struct ReportsState {
    // ---- The sample. Written by whoever chooses the samples.
    double ScaleErrLat = 0.0; ///< degrees; on UTM radians
    /// Degrees: relative on the pseudocylindrical projections, true on the others; on UTM the distance from
    /// the central meridian, metres east.
    double ScaleErrLon = 0.0;
    std::int16_t ScaleErrIndex = 0; ///< row of the table, from 1

    // ---- The table. Written by DistErrSelect, read by the report. Scales are map value to true value.
    ScaleErrColumn ScaleErrMeridian, ScaleErrParallel, ScaleErrArea;
    ScaleErrColumn ScaleErrLatText, ScaleErrLonText; ///< of the sample; northing and easting on UTM
    std::array<std::string, 3> ScaleErrNotes;        ///< lines beneath the table, 1 and 2
};

/// The state.
extern ReportsState ReportsNow;

/// Makes the state that of a program's start.
void ResetReports();

} // namespace quelmont
