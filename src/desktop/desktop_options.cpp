#include "desktop/desktop_options.h"

#include "platform/system.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr const char* HelpText =
    R"(Opens the window of Quelmont, which draws outline maps on seventeen projections.

Usage: quelmont [OPTIONS] [DESIGN.cnf]

DESIGN.cnf is a map design to begin with, saved in the window or by quelmont-draw.

Options:
  -h, --help       Print this help and exit
  --version        Print the version and exit

and those of Qt, such as -platform NAME and -style NAME.

In the window, Alt+D draws the map and Escape stops it. Maps without a window, from
a script: quelmont-draw. Map files from other data: quelmont-convert.

Exit status: 0 done; 1 there is no display; 2 the command line is wrong.
)";

} // namespace

std::optional<std::string> DesktopAnswer(const std::vector<std::string>& arguments) {
    const auto has = [&](const char* name) {
        return std::find(arguments.begin(), arguments.end(), name) != arguments.end();
    };
    if (has("-h") || has("--help")) {
        return HelpText;
    }
    if (has("--version")) {
        return std::string("quelmont ") + ProgramVersion + "\n";
    }
    return std::nullopt;
}

} // namespace quelmont
