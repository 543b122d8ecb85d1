#include "core/column_heads.h"

#include "platform/masked_text.h"

#include <algorithm>
#include <array>

namespace quelmont {

std::vector<ColumnHead> ColumnHeads(std::string_view mask) {
    constexpr std::array<std::string_view, 3> texts = {"deg", "min", "sec"};
    std::vector<ColumnHead> heads;
    if (!IsAngleMask(mask)) {
        return heads;
    }
    std::size_t begin = mask.find('%');
    for (const std::string_view text : texts) {
        const std::size_t end = std::min(mask.find_first_not_of('%', begin), mask.size());
        heads.push_back({begin, end, std::string(text)});
        begin = mask.find('%', end);
    }
    return heads;
}

std::string ColumnWords(std::string_view mask) {
    if (!IsAngleMask(mask)) {
        return {};
    }
    return mask.find('?') == std::string_view::npos ? "degrees, minutes, seconds"
                                                    : "degrees, minutes, seconds, hemisphere";
}

} // namespace quelmont
