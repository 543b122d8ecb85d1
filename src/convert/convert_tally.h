#pragma once

#include "convert/line_steps.h"
#include "convert/source_losses.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quelmont {

/// What was written, and what was lost or changed on the way.
class ConvertTally {
public:
    struct Feature {
        std::string name; ///< empty if it has none
        std::int64_t lines = 0, points = 0;
    };

    void Count(std::int16_t feature, const std::string& name, std::int64_t lines, std::int64_t points);
    /// Of a line that is written.
    void Extend(const MapLine& line);

    /// Of something that is written to a row, and had another name in the map file that it comes from.
    void CountRow(std::int16_t feature, const std::string& earlierName);

    SourceLosses source;
    std::int64_t unknownLines = 0;   ///< of data from a map file, whose rank or code meant nothing
    std::int64_t repeatedPoints = 0; ///< left out: they fell onto the point before
    std::int64_t shrunkLines = 0;    ///< became single points
    std::int64_t longStepPoints = 0; ///< put in where the next point was too far east or west
    std::int64_t addedPoints = 0;    ///< put in where the next point was too far for the format
    std::int64_t dividedLines = 0;   ///< had more points than the format can count
    std::int64_t farPoints = 0;      ///< left out: too far from the zone
    std::int64_t lostLabels = 0;     ///< the format has none
    std::int64_t changedLabels = 0;  ///< had double quotes, line ends or too many letters

    /// Each as a sentence for the user, those that are 0 left out.
    std::vector<std::string> Notes(const std::string& ending) const;
    /// Points, lines, features and bounds as a line of JSON.
    std::string StatisticsLine() const;

private:
    std::vector<std::string> MergedRows() const;

    std::map<std::int16_t, Feature> features;
    std::map<std::int16_t, std::set<std::string>> earlierRows; ///< names, by the row that they became
    std::optional<LonLatBounds> extent;
};

} // namespace quelmont
