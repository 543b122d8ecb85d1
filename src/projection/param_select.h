#pragma once

namespace quelmont {

/// Computes the working constants of the projection and finds the extent of the map, by projecting
/// chosen points of its boundary.
///
/// Reads   ProjNum, LatNorth, LatSouth, LatNorthText, LatSouthText, LonZero, LonSpan, LonCentral,
///         LatCentral, SinLatCentral, StdParNorth, StdParSouth, RangeSec, VpDistanceKm; for the
///         interrupted projection LobeText 0 and 1, LobeCentral.
/// Writes  CosStdPar; ConeConstant, ConicG, ConicF, ConicC, ConicRho0; VpP, HorizonCos(3), and for
///         the vertical perspective RangeSec, CosRange, GridText(8); MapXMin to MapYMax (projection
///         units); BoundsProjNum; the point cell; PlotStopReason (emptied).
/// Inputs are not checked. A failed statement shows "Error in ParamSelect" and is passed over: its
/// field keeps its value. An unknown ProjNum leaves the extent as it is.
/// Sources: Snyder 1987, eq. 14-2 to 14-14, 15-2 to 15-8, 16-2 to 16-4, 23-1 to 23-4.
void ParamSelect();

} // namespace quelmont
