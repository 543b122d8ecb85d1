#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// A word above the columns begin up to end of a field.
struct ColumnHead {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string text;
    bool operator==(const ColumnHead&) const = default;
};

/// The heads of an angle's field, by its mask (masked_text.h): degrees, minutes, seconds. None for a
/// number.
std::vector<ColumnHead> ColumnHeads(std::string_view mask);

/// What is read out about an angle's field: what its columns hold. Empty for a number.
std::string ColumnWords(std::string_view mask);

} // namespace quelmont
