#pragma once

#include <cstdint>
#include <string>

/// Numbers of bitmap files and metafiles, lowest byte first.

namespace quelmont {

inline void AppendWord(std::string& bytes, std::uint16_t value) {
    bytes += static_cast<char>(value & 0xFFU);
    bytes += static_cast<char>(value >> 8U);
}

inline void AppendLong(std::string& bytes, std::uint32_t value) {
    AppendWord(bytes, static_cast<std::uint16_t>(value & 0xFFFFU));
    AppendWord(bytes, static_cast<std::uint16_t>(value >> 16U));
}

} // namespace quelmont
