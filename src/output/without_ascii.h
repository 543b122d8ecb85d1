#pragma once

#include "core/map_design.h"

#include <string>
#include <utility>

namespace quelmont {

/// Takes the export in text off as long as it lives, and while a draw is not stopped: its files are of the
/// grid and of map files, one each.
class WithoutAscii {
public:
    WithoutAscii() : armed(std::exchange(Design.OutputAscii, false)) {
        if (armed) {
            name = std::exchange(Design.OutputFileName, {});
        }
    }
    ~WithoutAscii() {
        if (armed && Design.PlotStopReason != StopReason::Escape) {
            Design.OutputAscii = true;
            Design.OutputFileName = name;
        }
    }
    WithoutAscii(const WithoutAscii&) = delete;
    WithoutAscii& operator=(const WithoutAscii&) = delete;

private:
    bool armed;
    std::string name;
};

} // namespace quelmont
