#pragma once

#include <string>
#include <vector>

namespace quelmont {

/// What the map readers keep between their calls.
struct MapInputState {
    bool StartLine = false; ///< the current point begins a line of its source
    /// The files in degrees that were read to their end since the draw began, of which no first column
    /// was -1, 0 or 1: probably latitude stands there. Files without points are not among them.
    std::vector<std::string> FilesWithoutLineStarts;
};

/// The state.
extern MapInputState MapInputNow;

/// Makes the state that of a program's start.
void ResetMapInput();

} // namespace quelmont
