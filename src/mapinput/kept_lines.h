#pragma once

#include "core/file_numbers.h"
#include "core/kept_values.h"
#include "mapfiles/minute_grid_lines.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quelmont {

/// The lines of minute-grid files, kept from one pass over them to the next: the window draws the same files
/// many times a second while a map is moved, and six times each on the interrupted projection.
class KeptLines {
public:
    /// The lines of the file that has just been opened under file number 1, which is at its beginning again
    /// then. Null for a file that is long, that has been changed just now or changes while it is read, and
    /// for one that cannot be read to its end: those are to be read record by record.
    std::shared_ptr<const MinuteGridLines> OfOpenFile();

private:
    static constexpr std::size_t Limit = std::size_t{100} * 1000 * 1000;
    /// Of a file, bytes: so many are read in the time of a picture, without a look at the keyboard.
    static constexpr std::int64_t LongestFile = std::int64_t{16} * 1000 * 1000;

    KeptValues<FileStamp, MinuteGridLines> lines{Limit};
};

/// Put here by a program that draws the same files again and again; nullptr: nothing is kept.
KeptLines*& KeptMapLines();

} // namespace quelmont
