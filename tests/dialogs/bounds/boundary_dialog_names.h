#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// The boundary dialogs that OK opens one after the other where a projection is chosen, the first one first.
std::vector<std::string> BoundaryDialogsOf(std::int16_t projNum);

} // namespace quelmont
