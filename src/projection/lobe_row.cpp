#include "projection/lobe_row.h"

#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/run_time_error.h"

namespace quelmont {

std::int16_t LobeInterruptions(std::size_t hemisphere) {
    const std::int16_t count = RoundToInt16(ValueOf(Design.LobeText[hemisphere]));
    if (count < 0 || count > 3) {
        throw RunTimeError(ErrorSubscript);
    }
    return count;
}

LobeRow LobesOf(std::size_t hemisphere) {
    const std::size_t first = hemisphere == 0 ? 1 : LobesOf(0).last + 2;
    return {first, first + static_cast<std::size_t>(LobeInterruptions(hemisphere))};
}

} // namespace quelmont
