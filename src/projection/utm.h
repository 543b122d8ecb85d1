#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace quelmont {

/// A named spheroid: equatorial radius in metres and the inverse of the flattening.
struct Spheroid {
    std::string_view name;
    double equatorialRadius;
    double inverseFlattening;
};

// clang-format off
/// In the order in which the dialog lists them.
constexpr std::array<Spheroid, 9> Spheroids = {{
    {"Airy 1830",          6377563.396, 299.3249646  },
    {"Everest 1830",       6377276.345, 300.8017     },
    {"Bessel 1841",        6377397.155, 299.1528128  },
    {"Clarke 1866",        6378206.4,   294.9786982  },
    {"Clarke 1880",        6378249.145, 293.465      },
    {"International 1924", 6378388.0,   297.0        },
    {"Krasovsky 1940",     6378245.0,   298.3        },
    {"Australian 1965",    6378160.0,   298.25       },
    {"WGS84 1984",         6378137.0,   298.257223563},
}};
// clang-format on

/// Turns the texts of a zone into the constants of its series.
///
/// Reads   UtmText(0) to (4), SpheroidName.
/// Writes  LonCentralSec, LonCentral (true degrees), LonCentralText, LonMiddle, LatCentralSec,
///         LatCentral, LatCentralText, SpheroidA, SpheroidF, SpheroidE2, SpheroidEp2, UtmK0,
///         UtmFalseEasting, UtmFalseNorthing, UtmMeridianC0 to C3, UtmM0.
/// A name that is in no row leaves the spheroid as it was; the series is computed all the same.
/// A failure shows "Error in CalcUtmZone" and ends the routine.
/// Source: Snyder 1987, eq. 3-21, with the sines of multiple angles turned into powers of cos 2 phi
/// and the e^6 term of the first coefficient added.
void CalcUtmZone();

/// Forward series of the zone. In: ProjLat, ProjLon in true degrees; out: ProjLat northing, ProjLon
/// easting in metres. RunTimeError where the series has no finite value. Source: Snyder 1987, eq.
/// 8-9 to 8-15.
void UtmForward();

/// Metres. South to north and west to east.
struct MetreBox {
    double south, north, west, east;
};

/// A box that holds every place of UtmForward for the points of a box in true degrees, and the whole
/// metres next to it. Not the smallest: some kilometres too large for a box of a degree near the zone,
/// more for larger ones and farther off.
///
/// Nothing when west is east of east, south north of north, for a box that reaches beyond 89 degrees of
/// latitude, and for one across the meridian opposite of the central one.
std::optional<MetreBox> UtmEnclosure(double south, double north, double west, double east);

} // namespace quelmont
