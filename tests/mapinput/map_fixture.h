#pragma once

#include "core/map_design.h"
#include "mapinput/map_point.h"
#include "output/fan_out.h"
#include "support/byte_text.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

/// A place in true seconds of arc, and the way to write one in degrees.
struct TruePlace {
    std::int32_t lat = 0;
    std::int32_t lon = 0;
    bool operator==(const TruePlace&) const = default;
};
TruePlace Degrees(double lat, double lon);

/// What reached the devices: the point cell as a file writer sees it.
struct PlottedPoint {
    bool move = false; ///< begins a line; else drawn from the point before
    double lat = 0.0;  ///< ProjLat: degrees, northing on UTM
    double lon = 0.0;  ///< ProjLon: relative degrees, easting on UTM
    double x = 0.0, y = 0.0;
    bool operator==(const PlottedPoint&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const PlottedPoint& point);

/// A stretch that was drawn.
struct PlottedStroke {
    PlottedPoint from, to;
};

/// A file writer that keeps every point.
class LineRecorder : public FileWriter {
public:
    void Header() override {}
    /// In the place of the writer of DXF files it opens that file.
    void OpenStretch(std::size_t slot) override;
    void Point() override;
    void LineBreak() override { breaksBehind.push_back(points.size()); }

    std::vector<PlottedStroke> Strokes() const;

    std::vector<PlottedPoint> points;
    std::vector<std::size_t> breaksBehind; ///< how many points there were at each line break
};

/// A record of a minute-grid file, and a line of one rank: its first record has the rank. Minutes.
std::string Record(int code, int lat, int lon);
struct Minutes {
    int lat, lon;
};
std::string Line(int rank, const std::vector<Minutes>& places);

/// A program that is about to plot map files. Whatever is plotted is recorded twice: by the window's
/// surface and, in source coordinates, by `recorder`, which stands where the WMF writer would.
class MapTest : public FreshProgramTest {
protected:
    MapTest();
    ~MapTest() override;

    /// The design's bounds in degrees. Equal west and east are all round the world.
    void Rectangle(std::int16_t projNum, double north, double south, double west, double east);
    void WholeWorld(std::int16_t projNum) { Rectangle(projNum, 90.0, -90.0, -180.0, 180.0); }
    void Circle(std::int16_t projNum, double centreLat, double centreLon, double range);
    /// The default zone, 9 W, with bounds in metres.
    void Zone(std::int32_t north, std::int32_t south, std::int32_t west, std::int32_t east);
    /// The first northern lobe of an interrupted map, which reaches from west to east.
    void Lobe(double west, double east);

    /// Points go to the recorder until the next MapPlot has ended.
    static void StartRecording();

    /// Draws a line by a MapPoint of its own file; GoOn draws another one of the same file.
    void Draw(const std::vector<TruePlace>& line);
    void GoOn(const std::vector<TruePlace>& line);

    /// Puts a file into memory and at the end of the list.
    InputFileEntry& AddFile(const std::string& name, std::string_view contents);
    /// What the handler of the Escape key does in a draw.
    static void PressEscape();

    FailingFiles files;
    LineRecorder recorder;
    RecordingSurface& surface = machine.window.surface;

private:
    void Finish(std::int16_t projNum);
    MapPoint road;
};

/// Whole files through MapPlot, on the map of the whole world unless the test takes another one.
class ReaderTest : public MapTest {
protected:
    /// Plots one file alone and forgets what was recorded before.
    void Plot(const std::string& name, const std::string& contents);
    /// The same for the list as it is.
    void PlotList();

    /// True latitude and longitude of the plotted points, degrees; on a map that begins at 180 west.
    std::vector<std::pair<double, double>> PlottedPlaces() const;
    std::size_t Moves() const;
    const DrawStatistics::MapFile& Counted() const { return Design.Statistics.MapFiles.at(0); }
    /// No box was shown and nothing is left open.
    void ExpectCleanEnd();
    /// One box of MapPlot was shown, and nothing is left open.
    void ExpectError(const std::string& description);
};

/// Seconds of a plotted point's degrees.
double LatSeconds(const PlottedPoint& point);
double LonSeconds(const PlottedPoint& point);

} // namespace quelmont
