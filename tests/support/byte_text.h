#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace quelmont {

/// Bytes as a text, one character each.
inline std::string Text(std::span<const std::byte> bytes) {
    std::string text;
    for (const std::byte byte : bytes) {
        text += static_cast<char>(byte);
    }
    return text;
}

} // namespace quelmont
