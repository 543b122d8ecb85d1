#pragma once

#include <string>

namespace quelmont {

/// What stands below the options in the help of quelmont-draw: the projections and spheroids, map files,
/// designs, examples, the exit status.
std::string HelpBelowOptions();

} // namespace quelmont
