#include "reports/great_circle_report.h"

#include "core/map_design.h"
#include "core/number_text.h"
#include "reports/report_numbers.h"

#include <utility>

namespace quelmont {

namespace {

constexpr const char* DistancePicture = "00,000";

/// A distance in nautical miles, statute miles and kilometres.
struct Distances {
    std::string nauticalMiles, statuteMiles, kilometres;
};

Distances DistancesOf(double minutes) {
    return {FormatNumber(minutes, DistancePicture), FormatNumber(StatuteMilesOf(minutes), DistancePicture),
            FormatNumber(KilometresOf(minutes), DistancePicture)};
}

std::vector<ReportRow> EndOfRoute(const std::string& which, const GreatCirclePoint& point) {
    const Distances distances = DistancesOf(point.GcDist);
    return {
        ReportRow{which + " latitude:", AngleText(point.GcLat, "LAT")},
        ReportRow{which + " longitude:", AngleText(point.GcLon, "LON")},
        ReportRow{which + " course:", FormatNumber(point.GcAzimuth, "000") + " Degrees"},
        ReportRow{which + " distance:", distances.nauticalMiles + " NM", distances.statuteMiles + " SM",
                  distances.kilometres + " KM"},
    };
}

ReportRow PointRow(int number, const GreatCirclePoint& point) {
    Distances distances = DistancesOf(point.GcDist);
    return {FormatNumber(number, "000"),        AngleText(point.GcLat, "LAT"),
            AngleText(point.GcLon, "LON"),      FormatNumber(point.GcAzimuth, "000.0"),
            std::move(distances.nauticalMiles), std::move(distances.statuteMiles),
            std::move(distances.kilometres)};
}

} // namespace

Report GreatCircleReport() {
    const GreatCircleTable& table = Design.GcTable;
    ReportSection section;
    section.blocks.push_back(TextLines({"Quelmont Version " + Design.VersionText + " Great Circle Report"}));
    if (!table.Rows.empty()) {
        ReportBlock ends{EndOfRoute("Starting", table.Row(table.GcFirst))};
        ends.rows.emplace_back(); // an empty line; the columns go on below it
        const std::vector<ReportRow> ending = EndOfRoute("Ending", table.Row(table.GcLast));
        ends.rows.insert(ends.rows.end(), ending.begin(), ending.end());
        section.blocks.push_back(std::move(ends));
        ReportBlock points{{ReportRow{"#", "Latitude", "Longitude", "Course", "Distance"},
                            ReportRow{"", "", "", "Degrees", "NM", "SM", "KM"}}};
        int number = 0;
        for (std::int32_t i = table.GcFirst;; i += table.GcStep) {
            points.rows.push_back(PointRow(++number, table.Row(static_cast<std::int16_t>(i))));
            if (i == table.GcLast) {
                break;
            }
        }
        section.blocks.push_back(std::move(points));
    }
    return {{std::move(section)}};
}

} // namespace quelmont
