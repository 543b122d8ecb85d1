#pragma once

#include <cstdint>
#include <vector>

/// What the files of the grid share: the state of one pass and its procedures. A pass walks the
/// parallels, then the meridians, with steps of its own. Longitudes are relative; on an azimuthal
/// map relative longitude 180 is the central meridian and LonSpan 360.

namespace quelmont {

/// Steps of a pass, degrees (metres on UTM).
struct GridSteps {
    double LatLineStep = 0.0;  ///< between parallels
    double LonLineStep = 0.0;  ///< between meridians
    double LatPointStep = 0.0; ///< along a meridian
    double LonPointStep = 0.0; ///< along a parallel
};

struct GridPass {
    GridSteps steps;
    bool DiskOut = false; ///< points also go to the export file
    double ClipLatMax = 0.0, ClipLatMin = 0.0, ClipLonMax = 0.0, ClipLonMin = 0.0;
    bool CircleClip = false; ///< the map's circle cuts the globe: each line has to be cut to it
    double RangeDeg = 0.0;
    double TanLatCentral = 0.0;
    /// Latitudes, beyond the poles if need be, that the circle reaches on the central meridian.
    std::int32_t NorthReachSec = 0, SouthReachSec = 0;
    std::int32_t PoleGapSec = 0; ///< range less the distance of the centre from the equator
    double HalfLonReach = 0.0;   ///< how far east and west of the centre the circle reaches
    bool LineActive = false;     ///< the current line has a plotted point
    bool SecondPiece = false;    ///< the meridian has a second piece, up to SecondLatMax
    double SecondLatMax = 0.0;
    std::vector<double> LonList; ///< longitudes of one parallel near the antipode
};

/// Segments plotted per grid spacing along a meridian and along a parallel, by projection.
std::int16_t LatPointsPerMark();
std::int16_t LonPointsPerMark();

/// The clipping values of an azimuthal map.
void AzimuthalBounds(GridPass& pass);

/// Where the parallel ProjLat meets the circle: ClipLonMin, ClipLonMax. RunTimeError where the
/// parallel does not meet it.
void CutParallel(GridPass& pass);

/// Where the meridian ProjLon meets the circle: ClipLatMin, ClipLatMax, and SecondPiece with
/// SecondLatMax when it leaves the circle in its middle.
void CutMeridian(GridPass& pass);

/// Plots the parallel ProjLat with steps that turn the azimuth at the map's centre by about one
/// degree each, for whole-globe maps near the antipode.
void AntipodalParallel(GridPass& pass);

/// Plots the meridian ProjLon, from ClipLatMin to ClipLatMax, one degree of azimuth at a time.
void MeridianByAzimuth(GridPass& pass);

/// Projects ProjLat, ProjLon and draws to it, breaking the line where the map does.
void PlotPoint(GridPass& pass);

/// Draws ProjX, ProjY on the surface and into the export file.
void PlotProjected(const GridPass& pass);

/// All parallels, all meridians. False when Escape was pressed.
bool Parallels(GridPass& pass);
bool Meridians(GridPass& pass);

/// -LatCentral, the latitude of the antipode, within rounding.
bool IsAntipodalLatitude(double latitude);

} // namespace quelmont
