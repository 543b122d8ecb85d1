#pragma once

namespace quelmont {

/// Projects a place alone, no part of a line. False where it has none on the map: beyond a horizon, or where
/// a coordinate fails or is not finite, as at a pole that lies at infinity.
///
/// lat, lon: degrees, as ProjectSelect takes ProjLat and ProjLon.
/// Writes  ProjLat, ProjLon, ProjX, ProjY, ProjOffMap, ProjTestMode. What fails shows the message box of
///         ProjectSelect; within a MapInHand it shows none.
bool ProjectPlace(double lat, double lon);

} // namespace quelmont
