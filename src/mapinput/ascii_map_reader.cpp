#include "mapinput/ascii_map_reader.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/ascii_points_ahead.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/map_formats.h"
#include "mapinput/map_input_state.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <thread>

namespace quelmont {

namespace {

void TestDegrees(MapPoint& point, double lat, double lon) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    Design.PointLatSec = RoundToInt32(lat * SecPerDegree);
    Design.PointLonSec = RoundToInt32(lon * SecPerDegree);
    point.TestBounds();
}

void TestMetres(MapPoint& point, double north, double east) {
    Design.ProjLat = north;
    Design.ProjLon = east;
    Design.PointLatSec = RoundToInt32(north);
    Design.PointLonSec = RoundToInt32(east);
    point.CompareBounds();
}

/// The label stands where the plotting of its point has left the point cell.
void AddLabel(std::string text, const InputFileEntry& file, std::int32_t FileIndex) {
    MapLabel label;
    label.LabelText = std::move(text);
    label.LabelLat = Design.ProjLat;
    label.LabelLon = Design.ProjLon;
    const bool chosen = !file.LabelFontName.empty() && file.LabelFontSize > 0;
    label.LabelFont = chosen ? file.LabelFontName : DefaultLabelFont;
    label.LabelSize = chosen ? file.LabelFontSize : DefaultLabelSize;
    label.LabelColour = chosen ? file.LabelColor : SolidColor(StandardColors[0]);
    label.LabelBold = file.LabelBold;
    label.LabelItalic = file.LabelItalic;
    label.LabelUnderline = file.LabelUnderline;
    label.LabelStrikeout = file.LabelStrikeout;
    label.LabelSymbolIndex = RoundToInt16(FileIndex);
    Design.MapLabels.push_back(std::move(label));
}

/// Each file is kept once, though an interrupted map reads its files for every lobe.
void AddDoubtful(const std::string& name) {
    std::vector<std::string>& names = MapInputNow.FilesWithoutLineStarts;
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
    }
}

/// Points is a walk over the points of the file.
template <typename Points>
bool PlotPoints(Points& points, MapPoint& point, std::int32_t FileIndex) {
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    bool hasPoints = false;
    bool hasFlags = false;
    while (points.Find()) {
        const AsciiMapPoint& read = points.Take();
        hasPoints = true;
        hasFlags = hasFlags || (!read.BreakRounded && std::abs(static_cast<std::int64_t>(read.Break)) <= 1);
        if (Design.UtmPointPath) {
            TestDegrees(point, read.Second, read.Third);
        } else {
            TestMetres(point, read.Third, read.Second);
        }
        if (read.Break != 0 || MapInputNow.StartLine) {
            point.StartNewLine();
        }
        if (!point.PlotStep()) {
            return false;
        }
        if (point.PointInBounds && !read.Label.empty()) {
            AddLabel(ToUtf8(read.Label), file, FileIndex);
        }
    }
    if (hasPoints && !hasFlags && Design.UtmPointPath) {
        AddDoubtful(file.MapFileName);
    }
    return true;
}

bool PlotFile(MapPoint& point, std::int32_t FileIndex) {
    if (FileLength(InputFileNumber) >= MapInputNow.AheadFrom && std::thread::hardware_concurrency() > 1) {
        AsciiPointsAhead points;
        return PlotPoints(points, point, FileIndex);
    }
    ByteReader bytes;
    AsciiPoints points(bytes);
    return PlotPoints(points, point, FileIndex);
}

} // namespace

bool ReadAsciiMap(MapPoint& point, std::int32_t FileIndex, const MapFormat& format) {
    Design.UtmPointPath = format.form != MapFileForm::AsciiMetres;
    TakeFeaturePen(1, FileIndex, SitesAscii);
    if (!PlotFile(point, FileIndex)) {
        return false;
    }
    DeleteMapPen(SiteAsciiEnd);
    return true;
}

} // namespace quelmont
