#pragma once

#include "areas/ring.h"
#include "core/map_file_entry.h"

#include <cstdint>
#include <vector>

namespace quelmont {

/// How exactly lines are wanted.
struct LineDetail {
    /// Places that lie nearer to the one before in latitude and in longitude are left out, seconds.
    std::int32_t least = 1;
    // Latitudes beyond which nothing is seen, seconds: of lines there only the ends are of concern, and how
    // they go round the axis.
    std::int32_t south = -90 * SecPerDegree, north = 90 * SecPerDegree;
    bool operator==(const LineDetail&) const = default;
};

/// Whether ReadAreaRings looks into a file: it is drawn by lines, and on this projection (.utm).
bool MayHaveAreas(const InputFileEntry& file);

/// The closed lines of the rows of a map file that bound areas and are shown: those that end where they
/// begin, and those that do so when lines are joined that meet end to end. Each is there once.
///
/// Only of a file that may have areas. What else stands in the file,
/// unclosed lines and places beyond a pole, is left out. False when Escape was pressed. RunTimeError when the
/// file cannot be opened or read to its end.
bool ReadAreaRings(const InputFileEntry& file, const LineDetail& detail, std::vector<Ring>& rings);

} // namespace quelmont
