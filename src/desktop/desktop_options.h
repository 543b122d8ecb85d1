#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// What the arguments of quelmont, without its own name, ask for in place of a window: the text of --help or
/// --version; nothing for all others.
std::optional<std::string> DesktopAnswer(const std::vector<std::string>& arguments);

} // namespace quelmont
