#pragma once

#include <cstdint>
#include <span>

namespace quelmont {

/// From now on whatever is opened under a file number reads these bytes, which must outlive the
/// reading. Nothing is ever written.
void SetMemoryFile(std::span<const std::uint8_t> contents);

} // namespace quelmont
