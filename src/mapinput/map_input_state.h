#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// What the map readers keep between their calls.
struct MapInputState {
    bool StartLine = false; ///< the current point begins a line of its source
    /// An ASCII file of at least so many bytes, some million points, has its numbers read ahead by a second
    /// thread, where the machine has more than one processor.
    std::int64_t AheadFrom = std::int64_t{20} * 1000 * 1000;
    /// The files in degrees that were read to their end since the draw began, of which no first column
    /// was -1, 0 or 1: probably latitude stands there. Files without points are not among them.
    std::vector<std::string> FilesWithoutLineStarts;

    /// Of the reading of the map files, in bytes.
    struct Progress {
        std::vector<std::int64_t> sizes; ///< of the files of the list
        double bytesOfDraw = 0.0;        ///< of all files in all passes
        double bytesBefore = 0.0;        ///< of the files that were read before this one
        std::int64_t bytesOfFile = 0;    ///< of this one
        std::int64_t position = 0;       ///< read of this one, or stepped over
        double share = 0.0;              ///< as it was shown last
    };
    Progress progress;
};

/// The state.
extern MapInputState MapInputNow;

/// Makes the state that of a program's start.
void ResetMapInput();

} // namespace quelmont
