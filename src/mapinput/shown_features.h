#pragma once

#include "core/map_file_entry.h"
#include "core/run_time_error.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace quelmont {

/// Which features of one file are drawn: those of the format's rows that are switched on. Feature 0
/// and the rows beyond the format's own never are, whatever a design says of them.
class ShownFeatures {
public:
    /// rows: of the format, up to MaxFeatureRows.
    ShownFeatures(const InputFileEntry& file, std::size_t rows) {
        for (std::size_t feature = 1; feature <= rows; ++feature) {
            shown[feature] = file.Features[feature].Shown;
        }
    }

    /// All of them, if the first one is switched on.
    static ShownFeatures AllAsFirst(const InputFileEntry& file, std::size_t rows) {
        ShownFeatures all(file, 0);
        std::fill_n(all.shown.begin() + 1, rows, file.Features[1].Shown);
        return all;
    }

    /// RunTimeError "Subscript out of range" for a feature that no format has.
    bool Shows(std::int16_t feature) const {
        if (feature < 0 || feature > MaxFeatureRows) {
            throw RunTimeError(ErrorSubscript);
        }
        return shown[static_cast<std::size_t>(feature)];
    }

private:
    std::array<bool, MaxFeatureRows + 1> shown = {};
};

} // namespace quelmont
