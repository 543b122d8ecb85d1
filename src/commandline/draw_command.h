#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quelmont {

/// Exit codes of quelmont-draw.
constexpr int ExitDone = 0;
constexpr int ExitFailed = 1;     ///< refused, or something failed, as the error stream tells
constexpr int ExitWrongUsage = 2; ///< the command line cannot be understood

/// quelmont-draw: brings the program up, takes the options, draws, writes the picture.
///
/// A refused design writes nothing but its message box to errors. When a map file or anything else fails in
/// the draw, its message box goes there and the picture of what was drawn is written all the same. Only what
/// is asked for goes to output: help, version, statistics. A failure of that stream is a failure.
/// arguments are those behind the program's name. Gives the exit code.
int DrawCommand(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors);

} // namespace quelmont
