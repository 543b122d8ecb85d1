#include "convert/convert_tally.h"

#include <cpl_json.h>

#include <algorithm>

namespace quelmont {

namespace {

/// "1 point ..." or "7 points ...".
std::string Counted(std::int64_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

void ConvertTally::Count(std::int16_t feature, const std::string& name, std::int64_t lines,
                         std::int64_t points) {
    Feature& counted = features[feature];
    counted.name = name;
    counted.lines += lines;
    counted.points += points;
}

void ConvertTally::CountRow(std::int16_t feature, const std::string& earlierName) {
    earlierRows[feature].insert(earlierName);
}

std::vector<std::string> ConvertTally::MergedRows() const {
    std::vector<std::string> merged;
    for (const auto& [number, names] : earlierRows) {
        if (names.size() < 2) {
            continue;
        }
        constexpr std::size_t most = 5;
        std::string list;
        std::size_t listed = 0;
        for (const std::string& name : names) {
            if (listed < most) {
                list += (listed == 0 ? "\"" : ", \"") + name + "\"";
                ++listed;
            }
        }
        if (names.size() > most) {
            list += " and " + std::to_string(names.size() - most) + " more";
        }
        merged.push_back(std::to_string(names.size()) + " features became one, \"" +
                         features.at(number).name + "\": " + list);
    }
    return merged;
}

void ConvertTally::Extend(const MapLine& line) {
    for (const LonLat& point : line) {
        if (!extent) {
            extent = LonLatBounds{point.Lon, point.Lat, point.Lon, point.Lat};
        }
        extent->West = std::min(extent->West, point.Lon);
        extent->South = std::min(extent->South, point.Lat);
        extent->East = std::max(extent->East, point.Lon);
        extent->North = std::max(extent->North, point.Lat);
    }
}

std::vector<std::string> ConvertTally::Notes(const std::string& ending) const {
    std::vector<std::string> notes;
    const auto add = [&](std::int64_t count, const char* one, const char* many, const std::string& rest) {
        if (count > 0) {
            notes.push_back(Counted(count, one, many) + rest);
        }
    };
    add(source.emptyFeatures, "feature", "features", " without a geometry");
    add(source.unknownLines + unknownLines, "line", "lines", " of no known feature left out");
    add(source.heights, "feature", "features", " lost the heights of the points");
    add(source.measures, "feature", "features", " lost the measures of the points");
    add(source.polygons, "polygon", "polygons", " became closed lines");
    add(source.curvePoints, "point", "points",
        " put in between: what is straight in the source's projection is not so in degrees");
    for (const std::string& merged : MergedRows()) {
        notes.push_back(merged);
    }
    add(farPoints, "point", "points", " left out: too far from the zone");
    add(repeatedPoints, "repeated point", "repeated points",
        " left out: " + ending + " cannot tell them from the point before");
    add(shrunkLines, "line", "lines", " became a single point by that");
    add(longStepPoints, "point", "points",
        " put in between: steps are no longer than 20 degrees of longitude");
    add(addedPoints, "point", "points",
        " put in between: steps of " + ending + " are no longer than 127 seconds");
    add(dividedLines, "line", "lines", " divided: " + ending + " counts no more points in one");
    add(lostLabels, "label", "labels", " left out: " + ending + " has none");
    add(changedLabels, "label", "labels",
        " changed: no double quotes, line ends or endless texts in " + ending);
    if (features.empty()) {
        notes.emplace_back("there was nothing to write, and what was written is empty");
    }
    return notes;
}

std::string ConvertTally::StatisticsLine() const {
    std::int64_t points = 0;
    std::int64_t lines = 0;
    CPLJSONArray list;
    for (const auto& [number, feature] : features) {
        points += feature.points;
        lines += feature.lines;
        CPLJSONObject entry;
        entry.Add("feature", static_cast<int>(number));
        entry.Add("name", feature.name);
        entry.Add("lines", static_cast<GInt64>(feature.lines));
        entry.Add("points", static_cast<GInt64>(feature.points));
        list.Add(entry);
    }
    CPLJSONObject line;
    line.Add("points", static_cast<GInt64>(points));
    line.Add("lines", static_cast<GInt64>(lines));
    line.Add("features", list);
    if (extent) {
        CPLJSONArray bounds;
        for (const double edge : {extent->West, extent->South, extent->East, extent->North}) {
            bounds.Add(edge);
        }
        line.Add("bounds", bounds);
    }
    return line.Format(CPLJSONObject::PrettyFormat::Plain) + "\n";
}

} // namespace quelmont
