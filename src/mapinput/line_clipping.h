#pragma once

#include "core/coordinates.h"
#include "core/map_design.h"
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

/// Cuts the segment from the previous point to the current one at the map's edge, so that a line
/// runs to the edge and not merely to its last point inside, and draws what is left. All in source
/// coordinates: those of PointLatSec, PointLonSec and the previous ones of Design, which are relative to the
/// western boundary, or metres.
///
/// RunTimeError where a position has no value or does not fit its field.
class LineClipping {
public:
    std::int64_t PointsPlotted = 0; ///< of the file, cut points included
    bool PointInBounds = false;
    bool PrevInBounds = false;

protected:
    LineClipping() = default;

    ClippingFamily Family() const { return family; }

    /// Begins a map file: takes the projection's family and clears what belongs to one file, all but
    /// whether its previous point was inside.
    void BeginClipping();

    /// Draws what lies on the map of the segment that ends at the current point; a point that begins a line
    /// is drawn by itself. Whether it lies on a map bounded by a circle is tested here.
    void Clip() {
        if (family == ClippingFamily::Rectangle && PointInBounds && PrevInBounds && StaysOffTheSeam()) {
            PlotPoint();
        } else {
            ClipByFamily();
        }
    }

    /// The next point that is drawn begins a new line.
    static void BreakLine();

private:
    /// A place in the frame of PointLatSec and PointLonSec.
    struct SourcePlace {
        std::int32_t lat, lon;
    };

    /// Projects the point and hands it to the devices.
    void PlotPoint();
    void PlotEdge(std::int32_t lon);

    /// The segment is too short to go around the globe: between two points inside nothing of it is cut.
    static bool StaysOffTheSeam() {
        const std::int64_t step = static_cast<std::int64_t>(Design.PointLonSec) - Design.PointLonSecPrev;
        return -SecPer340 < step && step < SecPer340;
    }

    void ClipByFamily();

    // A family each: both ends of the segment inside, entering the map, leaving it.
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
    /// The same on a map all round the world, whose seam the segment may cross: outsideLon is then moved
    /// by a full circle to where the segment is straight. LonStep is the step from the inner end to the
    /// outer one. True when the seam was crossed.
    bool EdgeByLatitude(std::int32_t outsideLat, std::int32_t& outsideLon, std::int64_t LonStep);
    void ClipToCorner(std::int32_t outsideLat, std::int32_t outsideLon);

    /// Draws the part of the segment on one side of the cut point. What was changed to find the cut
    /// is given back: prev is the true previous point, point the true current one.
    void DrawFromCut(SourcePlace prev, bool acrossSeam);
    void DrawToCut(SourcePlace point, bool acrossSeam);

    ClippingFamily family = ClippingFamily::None;
    AzimuthalTerms tested; ///< of the point that TestCircle found inside
    /// The last cut point of the file, at first the equator on the western boundary. A step of 20 to 340
    /// degrees beyond the boundaries of a rectangle does not tell which of them it crosses: it is cut there.
    std::int32_t EdgeLat = 0, EdgeLon = 0;
};

} // namespace quelmont
