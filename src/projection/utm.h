#pragma once

#include <array>
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

} // namespace quelmont
