#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quelmont {

/// Exit codes of quelmont-convert.
constexpr int ConvertDone = 0;
constexpr int ConvertFailed = 1;     ///< as the error stream tells; the output is as it was before
constexpr int ConvertWrongUsage = 2; ///< the command line cannot be understood

/// quelmont-convert: reads the source, brings its lines into shape, writes the target.
///
/// What the target cannot hold is told on errors, and how far a long conversion is when that is a
/// terminal. Only what is asked for goes to output: help, version, statistics. arguments are those
/// behind the program's name. Gives the exit code.
int ConvertCommand(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
                   bool terminal);

} // namespace quelmont
