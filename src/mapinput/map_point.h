#pragma once

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "mapinput/line_clipping.h"
#include "mapinput/map_input_state.h"

#include <cstdint>

namespace quelmont {

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
class MapPoint : public LineClipping {
public:
    /// Begins a map file: takes the projection's family and clears what belongs to one file. Its first
    /// point begins a line, whatever its source says, unless the last point of the files before lies
    /// outside: then it enters the map from there.
    void BeginFile();

    /// Turns the point into the map's frame and tests it against its bounds, which are inside.
    /// A full circle is added once at most: on a map from 180 west, 180 east is the eastern edge.
    void TestBounds() {
        if (Family() == ClippingFamily::Metres) {
            ConvertToMetres();
        } else {
            const std::int64_t lon = static_cast<std::int64_t>(Design.PointLonSec) - Design.LonWestSec;
            Design.PointLonSec = FitInt32(lon < 0 ? lon + SecPerCircle : lon);
        }
        CompareBounds();
    }

    /// The same for a point that is in metres already.
    void CompareBounds() {
        PointInBounds = Design.LatSouthSec <= Design.PointLatSec &&
                        Design.PointLatSec <= Design.LatNorthSec && Design.LonZeroSec <= Design.PointLonSec &&
                        Design.PointLonSec <= Design.LonSpanSec;
    }

    /// The point begins a line of its source.
    void StartNewLine();

    /// After the last point of a file or a circle: ends the line that the export has open. ASCII files are
    /// simply closed, and so are the symbols of a CGM.
    static void EndLine();

    /// Draws to the point from the one before it, or as much of that as lies on the map; the point
    /// is the previous one then. False when Escape was pressed.
    bool PlotStep() {
        if (!CountPoint()) {
            return false;
        }
        if (MapInputNow.StartLine) {
            PrevInBounds = false;
            RememberPoint();
        }
        Clip();
        MapInputNow.StartLine = false;
        hasPrevious = true;
        PrevInBounds = PointInBounds;
        RememberPoint();
        return true;
    }

    /// Counts a point that was read. Every 800th lets the picture be shown and events run; false
    /// when Escape was pressed meanwhile.
    bool CountPoint() { return ++PointsRead % PointsPerTurn != 0 || LetEventsRun(); }

    /// The same for so many points at once.
    bool CountPoints(std::int64_t count);

    /// Counts points that are stepped over and lets events run at once, however few they are; false
    /// when Escape was pressed meanwhile.
    bool SkipPoints(std::int64_t count);

    /// Whether points of this map are ever passed over.
    bool MayPassOver() const { return Family() == ClippingFamily::Rectangle; }

    /// How many points may be passed over by PassOutside before the next turn of events; none unless the
    /// last point was outside of a map bounded by parallels and meridians.
    std::int64_t OutsideLimit() const {
        return MayPassOver() && !PointInBounds && !MapInputNow.StartLine
                   ? PointsPerTurn - 1 - PointsRead % PointsPerTurn
                   : 0;
    }

    /// Passes over points of one line that all lie outside, as PlotStep would: nothing leads from one to
    /// the next. The last of them, in PointLatSec and PointLonSec, is the previous point then.
    void PassOutside(std::int64_t count);

    std::int64_t PointsRead = 0; ///< of the file

private:
    static constexpr int PointsPerTurn = 800;

    static bool LetEventsRun();
    static bool RunEvents();
    static void ConvertToMetres();
    static std::int32_t FitInt32(std::int64_t value) {
        const auto fitting = static_cast<std::int32_t>(value);
        if (fitting != value) {
            throw RunTimeError(ErrorOverflow);
        }
        return fitting;
    }
    /// The current point is the previous one.
    static void RememberPoint() {
        Design.PointLatSecPrev = Design.PointLatSec;
        Design.PointLonSecPrev = Design.PointLonSec;
    }

    bool hasPrevious = false; ///< a point of this map's files has passed PlotStep
};

} // namespace quelmont
