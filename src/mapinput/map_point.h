#pragma once

#include "core/coordinates.h"
#include "core/map_design.h"
#include "mapinput/map_input_state.h"
#include "projection/project_select.h"

#include <cstdint>

namespace quelmont {

/// What a point has to pass to be drawn, by projection.
enum class ClippingFamily {
    Rectangle, ///< bounded by parallels and meridians
    Metres,    ///< bounded by northings and eastings: UTM
    Circle,    ///< bounded by a circle about the centre: the azimuthal projections
    None,      ///< an unknown projection draws nothing
};

/// The pipeline of a point of a map file or circle from its source to the devices: bounds, clipping,
/// projection, drawing. One object serves one call of MapPlot.
///
/// A source writes PointLatSec and PointLonSec of Design, true seconds of arc, and calls TestBounds,
/// for the first point of a line StartNewLine, and PlotStep.
///
/// Longitudes are relative from TestBounds on: 0 on the western boundary, growing eastward. On UTM
/// latitudes and longitudes become northings and eastings in whole metres there.
///
/// RunTimeError where a position has no value or does not fit its field.
class MapPoint {
public:
    /// Begins a map file: takes the projection's family and clears what belongs to one file. Its first
    /// point begins a line, whatever its source says, unless the last point of the files before lies
    /// outside: then it enters the map from there.
    void BeginFile();

    /// Turns the point into the map's frame and tests it against its bounds, which are inside.
    /// A full circle is added once at most: on a map from 180 west, 180 east is the eastern edge.
    void TestBounds();

    /// The same for a point that is in metres already.
    void CompareBounds();

    /// The point begins a line of its source.
    void StartNewLine();

    /// Draws to the point from the one before it, or as much of that as lies on the map; the point
    /// is the previous one then. False when Escape was pressed.
    bool PlotStep();

    /// Counts a point that was read. Every 800th lets the picture be shown and events run; false
    /// when Escape was pressed meanwhile.
    bool CountPoint() { return ++PointsRead % PointsPerTurn != 0 || LetEventsRun(); }

    /// Counts points that are stepped over and lets events run at once, however few they are; false
    /// when Escape was pressed meanwhile.
    bool SkipPoints(std::int64_t count);

    /// How many points may be passed over by PassOutside before the next turn of events; none unless the
    /// last point was outside of a map bounded by parallels and meridians.
    std::int64_t OutsideLimit() const {
        return family == ClippingFamily::Rectangle && !PointInBounds && !MapInputNow.StartLine
                   ? PointsPerTurn - 1 - PointsRead % PointsPerTurn
                   : 0;
    }

    /// Passes over points of one line that all lie outside, as PlotStep would: nothing leads from one to
    /// the next. The last of them, in PointLatSec and PointLonSec, is the previous point then.
    void PassOutside(std::int64_t count);

    std::int64_t PointsRead = 0;    ///< of the file
    std::int64_t PointsPlotted = 0; ///< of the file, cut points included
    bool PointInBounds = false;
    bool PrevInBounds = false;

private:
    static constexpr int PointsPerTurn = 800;

    /// A place in the frame of PointLatSec and PointLonSec.
    struct Place {
        std::int32_t lat, lon;
    };

    static bool LetEventsRun();
    static bool RunEvents();
    void ConvertToMetres();

    /// Projects the point and hands it to the devices.
    void PlotPoint();
    void PlotEdge(std::int32_t lon);
    /// The next point that is drawn begins a new line.
    static void BreakLine();

    // Clipping, a family each: both ends of the segment inside, entering the map, leaving it.
    void ClipRectangle();
    void EnterRectangle();
    void LeaveRectangle();
    void ClipMetres();
    void ClipCircle();
    void TestCircle();

    /// Draws between two points inside, around the globe if that is the way of the segment.
    void JoinInside();
    void CrossSeam(std::int64_t LonStep);

    // The cut point, EdgeLat and EdgeLon, of the segment whose outer end is given.
    void EdgeByLatitude(std::int32_t outsideLat);
    bool EdgeByLatitude(std::int32_t outsideLat, std::int32_t& outsideLon, std::int64_t LonStep);
    void ClipToCorner(std::int32_t outsideLat, std::int32_t outsideLon);

    /// Draws the part of the segment on one side of the cut point. What was changed to find the cut
    /// is given back: prev is the true previous point, point the true current one.
    void DrawFromCut(Place prev, bool acrossSeam);
    void DrawToCut(Place point, bool acrossSeam);

    ClippingFamily family = ClippingFamily::None;
    AzimuthalTerms tested;    ///< of the point that TestCircle found inside
    bool hasPrevious = false; ///< a point of this map's files has passed PlotStep
    /// The last cut point of the file, at first the equator on the western boundary. Where the tests
    /// of a rectangle find no crossing of a segment, it is cut there.
    std::int32_t EdgeLat = 0, EdgeLon = 0;
};

} // namespace quelmont
