#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quelmont {

/// Exit codes of quelmont-convert.
constexpr int ConvertDone = 0;
constexpr int ConvertFailed = 1;     ///< the error stream has the reason; an earlier output file is unchanged
constexpr int ConvertWrongUsage = 2; ///< the command line cannot be understood

/// quelmont-convert: reads the source, brings its lines into shape, writes the target.
///
/// Notes on what the target cannot hold go to errors, and the progress of a long conversion when that is
/// a terminal. Only what is asked for goes to output: help, version, statistics. arguments are those
/// behind the program's name. Gives the exit code.
int ConvertCommand(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
                   bool terminal);

} // namespace quelmont
