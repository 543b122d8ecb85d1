#include "reports/parameter_report.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "reports/report_numbers.h"
#include "reports/reports_state.h"
#include "reports/scale_samples.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quelmont {

namespace {

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? ""
               : std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

ReportSection Heading() {
    return {"",
            {TextLines({"Quelmont Version " + Design.VersionText + " Parameter Report"}),
             TextLines({"Projection Type: " + Design.ProjName}),
             TextLines({"Grid Type: " + Trimmed(Design.GridTypeText)})}};
}

ReportRow CentralLatitude(const char* label, std::string text) {
    return {"Central Latitude:", AngleText(Design.LatCentral, "LAT"), label, std::move(text)};
}

ReportRow CentralLongitude(const char* label, std::string text) {
    return {"Central Longitude:", AngleText(Design.LonMiddle, "LON"), label, std::move(text)};
}

/// By the texts of the design: behind a draw of the interrupted projection the numbers are those of its last
/// lobe.
std::vector<ReportBlock> DegreeBounds() {
    const auto& text = Design.GridText;
    ReportBlock block{{
        ReportRow{"Northernmost Latitude:", CompactLatitude(text[GridTextNorth]),
                  "Westernmost Longitude:", CompactLongitude(text[GridTextWest])},
        ReportRow{"Southernmost Latitude:", CompactLatitude(text[GridTextSouth]),
                  "Easternmost Longitude:", CompactLongitude(text[GridTextEast])},
        ReportRow{"Latitude Spacing:", CompactArc(text[GridTextLatSpacing]),
                  "Longitude Spacing:", CompactArc(text[GridTextLonSpacing])},
    }};
    if (IsConic(Design.ProjNum)) {
        block.rows.push_back(CentralLatitude("Northern Std Parallel:", AngleText(Design.StdParNorth, "LAT")));
        block.rows.push_back(
            CentralLongitude("Southern Std Parallel:", AngleText(Design.StdParSouth, "LAT")));
    }
    return {block};
}

std::vector<ReportBlock> MetreBounds() {
    const auto northing = [](double metres) { return FormatNumber(metres, "00,000,000"); };
    const auto easting = [](double metres) { return FormatNumber(metres, "0,000,000"); };
    return {
        {{
            ReportRow{"Spheroid:", NameText(Design.SpheroidName),
                      "Eq Radius (m):", FormatNumber(Design.SpheroidA, "#,###,###")},
            ReportRow{"1/F:", FormatNumber(Divide(1.0, Design.SpheroidF), "###.0000"),
                      "Scale Factor of Central Longitude:", Trimmed(Design.UtmText[UtmTextScale])},
        }},
        {{
            ReportRow{"Northern Boundary (m):", northing(Design.LatNorth),
                      "Western Boundary (m):", easting(Design.LonZero)},
            ReportRow{"Southern Boundary (m):", northing(Design.LatSouth),
                      "Eastern Boundary (m):", easting(Design.LonSpan)},
            ReportRow{"Grid Spacing (m):", northing(Design.LatGrid),
                      "Grid Spacing (m):", easting(Design.LonGrid)},
            ReportRow{"False Easting (m):", easting(Design.UtmFalseEasting),
                      "Central Longitude:", AngleText(Design.LonMiddle, "LON")},
            ReportRow{"False Northing (m):", northing(Design.UtmFalseNorthing),
                      "Latitude of Map Origin:", AngleText(Design.LatCentral, "LAT")},
        }},
    };
}

std::vector<ReportBlock> DiscBounds() {
    std::vector<ReportBlock> blocks;
    if (Design.ProjNum == ProjVerticalPerspective) {
        const auto distance = [](double length) { return FormatNumber(length, "##,###,###"); };
        const double nauticalMiles = NauticalMilesOf(Design.VpDistanceKm);
        blocks.push_back({{
            ReportRow{"Distance above earth's surface (kilometers):", distance(Design.VpDistanceKm)},
            ReportRow{"Distance above earth's surface (statute miles):",
                      distance(StatuteMilesOf(nauticalMiles))},
            ReportRow{"Distance above earth's surface (nautical miles):", distance(nauticalMiles)},
        }});
    }
    blocks.push_back({{
        ReportRow{"Range of Projection:", AngleText(DegreesOf(Design.RangeSec), "ARC")},
        CentralLatitude("Latitude Spacing:", AngleText(Design.LatGrid, "ARC")),
        CentralLongitude("Longitude Spacing:", AngleText(Design.LonGrid, "ARC")),
    }});
    return blocks;
}

ReportSection Bounds() {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::MetricGrid:
        return {" Map Coordinates ", MetreBounds()};
    case ProjectionFamily::Azimuthal:
        return {" Map Coordinates ", DiscBounds()};
    default:
        return {" Map Coordinates ", DegreeBounds()};
    }
}

ReportSection Interruptions() {
    const auto row = [](const char* label, std::size_t count, std::size_t first) {
        ReportRow cells{label};
        const auto most = std::size_t{3};
        const double number = std::clamp(ValueOf(Design.LobeText[count]), 0.0, static_cast<double>(most));
        for (std::size_t i = 0; i < static_cast<std::size_t>(RoundToInt32(number)); ++i) {
            cells.push_back(CompactLongitude(Design.LobeText[first + i]));
        }
        if (cells.size() == 1) {
            cells.emplace_back("None");
        }
        return cells;
    };
    return {" Longitude Interruptions ",
            {ReportBlock{{row("Northern Hemisphere:", LobeTextCountNorth, LobeTextNorth),
                          row("Southern Hemisphere:", LobeTextCountSouth, LobeTextSouth)}}}};
}

ReportSection Extent() {
    const double width = Design.MapXMax - Design.MapXMin;
    const double height = Design.MapYMax - Design.MapYMin;
    const double scale = Divide(Design.XAxisLength, width);
    const auto row = [&](const char* label, double value) {
        return ReportRow{label, TransformedText(value, "#########0.0000"), label,
                         TransformedText(value * scale, "#########0.0000000")};
    };
    return {" Transformed x,y Map Coordinates ",
            {ReportBlock{{ReportRow{"Absolute Values", "", "Relative Axis Length"},
                          row("Max x:", Design.MapXMax), row("Max y:", Design.MapYMax),
                          row("x-axis Length:", width), row("Min x:", Design.MapXMin),
                          row("Min y:", Design.MapYMin), row("y-axis Length:", height)}}}};
}

std::vector<ReportBlock> LobeErrors() {
    return {
        TextLines({"The scale is true along latitudes 40\u00B044' North and South.  The scale is constant",
                   "along parallels, symmetrical about the equator, and symmetrical about the central",
                   "meridian of each lobe."}),
        TextLines({"Scale errors may differ for each lobe of the interrupted projection.  To determine",
                   "scale errors for a particular lobe; draw a Normal Mollweide projection; and set",
                   "the latitude, longitude boundaries of the map to the latitude, longitude limits of",
                   "the lobe of interest.  The Parameter Report for the Normal Mollweide projection",
                   "will list scale errors for the lobe of interest."})};
}

std::vector<ReportBlock> TableOfErrors() {
    const bool metres = Design.ProjNum == ProjUtm;
    const char* const lat = metres ? "Northing" : "Latitude";
    const char* const lon = metres ? "Easting" : "Longitude";
    ReportBlock table{
        {ReportRow{"", "", "", "Ratio (map value/true value)"}, ReportRow{"#", lat, lon, lat, lon, "Area"}}};
    const std::size_t rows = SampleScaleErrors();
    const ReportsState& now = ReportsNow;
    for (std::size_t i = 1; i <= rows; ++i) {
        table.rows.push_back({FormatNumber(static_cast<double>(i), "00"), now.ScaleErrLatText[i],
                              now.ScaleErrLonText[i], now.ScaleErrMeridian[i], now.ScaleErrParallel[i],
                              now.ScaleErrArea[i]});
    }
    std::vector<std::string> notes(now.ScaleErrNotes.begin(), now.ScaleErrNotes.end());
    std::erase(notes, "");
    return {table, TextLines(notes)};
}

ReportSection Errors() {
    return {" Scale Errors ", Design.ProjNum == ProjInterruptedMollweide ? LobeErrors() : TableOfErrors()};
}

/// A distance on the globe in four units, each of which is put behind the label.
ReportBlock DistanceOnGlobe(const std::string& label, double nauticalMiles, const char* picture) {
    return {{
        ReportRow{label + " (deg min sec):", AngleText(nauticalMiles / SecPerMinute, "ARC")},
        ReportRow{label + " (kilometers):", FormatNumber(KilometresOf(nauticalMiles), picture)},
        ReportRow{label + " (statute miles):", FormatNumber(StatuteMilesOf(nauticalMiles), picture)},
        ReportRow{label + " (nautical miles):", FormatNumber(nauticalMiles, picture)},
    }};
}

ReportSection GreatCircle() {
    ReportSection section{" Great Circle Information ",
                          {{{
                              ReportRow{"Starting latitude:", CompactLatitude(Design.GcText[0]),
                                        "Starting longitude:", CompactLongitude(Design.GcText[1])},
                              ReportRow{"Ending latitude:", CompactLatitude(Design.GcText[2]),
                                        "Ending longitude:", CompactLongitude(Design.GcText[3])},
                          }}}};
    const GreatCircleTable& table = Design.GcTable;
    if (!table.Rows.empty()) {
        section.blocks.push_back(
            DistanceOnGlobe("Length of great circle", table.Row(table.GcLast).GcDist, "00,000"));
    }
    return section;
}

ReportSection SmallCircles() {
    return {" Small Circle Information ",
            {{{
                 ReportRow{"Latitude of circle center:", CompactLatitude(Design.ScText[0])},
                 ReportRow{"Longitude of circle center:", CompactLongitude(Design.ScText[1])},
                 ReportRow{"Number of concentric circles:", std::to_string(Design.ScSymbolCount)},
             }},
             DistanceOnGlobe("Radius of outer circle", Design.ScRadiusDeg * SecPerMinute, "00,000.0")}};
}

ReportSection MapFiles() {
    std::vector<std::string> names;
    for (const InputFileEntry& file : Design.InputFiles) {
        names.push_back(NameText(file.MapFileName));
    }
    if (names.empty()) {
        names.emplace_back("There are no digital map input files!");
    }
    return {" List of Digital Map Files ", {TextLines(names)}};
}

ReportSection DesignFile() {
    return {" Name of Map Design Configuration File ",
            {TextLines({Design.CnfFileName.empty() ? "No map design CNF file has been loaded!"
                                                   : NameText(Design.CnfFileName)})}};
}

ReportSection DrawingArea() {
    const MainWindow& window = *Machine().window;
    const auto pixels = [](double twips, double perPixel) {
        return std::to_string(RoundToInt32(Divide(twips, perPixel)));
    };
    return {" x, y Pixel Size of Map Drawing Area ",
            {ReportBlock{
                {ReportRow{"Horizontal pixel size:", pixels(window.ScaleWidth(), Design.TwipsPerPixelX)},
                 ReportRow{"Vertical pixel size:", pixels(window.ScaleHeight(), Design.TwipsPerPixelY)}}}}};
}

} // namespace

Report ParameterReport() {
    Report report{{Heading(), Bounds()}};
    if (Design.ProjNum == ProjInterruptedMollweide) {
        report.sections.push_back(Interruptions());
    }
    report.sections.push_back(Extent());
    report.sections.push_back(Errors());
    if (Design.GcDefined) {
        report.sections.push_back(GreatCircle());
    }
    if (Design.ScDefined) {
        report.sections.push_back(SmallCircles());
    }
    report.sections.push_back(MapFiles());
    report.sections.push_back(DesignFile());
    report.sections.push_back(DrawingArea());
    return report;
}

} // namespace quelmont
