#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quelmont {

/// The parts of a text between its commas, one at least; they may be empty.
inline std::vector<std::string_view> SplitAtCommas(std::string_view value) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t comma = value.find(',');
        parts.push_back(value.substr(0, comma));
        if (comma == std::string_view::npos) {
            return parts;
        }
        value.remove_prefix(comma + 1);
    }
}

} // namespace quelmont
