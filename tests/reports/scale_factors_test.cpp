#include "core/map_design.h"
#include "reports/report_fixture.h"

#include <proj.h>

#include <charconv>
#include <memory>
#include <string>
#include <utility>

namespace quelmont {
namespace {

/// Scale factors of the PROJ library.
class ReferenceFactors {
public:
    explicit ReferenceFactors(const std::string& definition)
        : context(proj_context_create(), proj_context_destroy),
          operation(proj_create(context.get(), (definition + " +R=1 +no_defs").c_str()), proj_destroy) {
        EXPECT_NE(operation, nullptr) << definition;
    }
    PJ_FACTORS At(double lat, double lon) const {
        return proj_factors(operation.get(), proj_coord(proj_torad(lon), proj_torad(lat), 0.0, 0.0));
    }

private:
    std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context;
    std::unique_ptr<PJ, decltype(&proj_destroy)> operation;
};

std::string Argument(const char* name, double value) {
    char text[32];
    return " +" + std::string(name) + "=" +
           std::string(text, std::to_chars(std::begin(text), std::end(text), value).ptr);
}

/// Values are printed with five digits; PROJ takes some of its derivatives numerically.
constexpr double Tolerance = 6e-5;

class ScaleFactors : public ReportTest {
protected:
    static void ExpectAsReference(const ReferenceFactors& reference, double lat, double lon) {
        const PJ_FACTORS factors = reference.At(lat, lon);
        EXPECT_NEAR(Sampled().h / factors.meridional_scale, 1.0, Tolerance) << lat << ' ' << lon;
        EXPECT_NEAR(Sampled().k / factors.parallel_scale, 1.0, Tolerance) << lat << ' ' << lon;
        EXPECT_NEAR(Sampled().area / factors.areal_scale, 1.0, Tolerance) << lat << ' ' << lon;
    }
    /// At latitudes all over the map; its scale does not depend on the longitude.
    static void ExpectParallels(const std::string& definition, double lowest, double highest) {
        const ReferenceFactors reference(definition);
        for (double lat = lowest; lat <= highest; lat += 1.75) {
            SampleAt(lat, 0.0);
            ExpectAsReference(reference, lat, 10.0);
        }
    }
};

TEST_F(ScaleFactors, CylindersAreThoseOfAnIndependentLibrary) {
    Start(ProjMercator);
    ExpectParallels("+proj=merc", -79.9, 79.9);
    for (const double parallel : {0.0, 30.0, 45.0}) {
        Start(ProjEquirectangular);
        Design.StdParNorth = parallel;
        ExpectParallels("+proj=eqc" + Argument("lat_ts", parallel), -89.0, 89.0);
        Start(ProjCylindricalEqualArea);
        Design.StdParNorth = parallel;
        ExpectParallels("+proj=cea" + Argument("lat_ts", parallel), -89.0, 89.0);
    }
}

TEST_F(ScaleFactors, OvalsAreThoseOfAnIndependentLibrary) {
    for (const auto& [projNum, name] :
         {std::pair{ProjHammer, "+proj=hammer"}, {ProjMollweide, "+proj=moll"}}) {
        SCOPED_TRACE(name);
        Start(projNum);
        const ReferenceFactors reference(name);
        for (double lat = -84.0; lat <= 84.0; lat += 7.0) {
            for (double lon = 0.0; lon <= 170.0; lon += 17.0) {
                SampleAt(lat, Design.LonCentral + lon);
                ExpectAsReference(reference, lat, lon);
            }
        }
    }
}

TEST_F(ScaleFactors, ConesAreThoseOfAnIndependentLibrary) {
    struct Bounds {
        const char* north;
        const char* south;
        double lowest, highest;
    };
    for (const Bounds& bounds : {Bounds{"75    00    00    N", "15    00    00    N", 5.0, 85.0},
                                 Bounds{"15    00    00    S", "75    00    00    S", -85.0, -5.0},
                                 Bounds{"80    00    00    N", "20    00    00    S", -30.0, 85.0}}) {
        for (const auto& [projNum, name] : {std::pair{ProjEquidistantConic, "+proj=eqdc"},
                                            {ProjConformalConic, "+proj=lcc"},
                                            {ProjAlbers, "+proj=aea"}}) {
            SCOPED_TRACE(name);
            Start(projNum);
            SetBounds(bounds.north, bounds.south, "010    00    00");
            ExpectParallels(name + Argument("lat_1", Design.StdParNorth) +
                                Argument("lat_2", Design.StdParSouth),
                            bounds.lowest, bounds.highest);
        }
    }
}

TEST_F(ScaleFactors, DiscsAreThoseOfAnIndependentLibraryAlongTheCentralMeridian) {
    struct Disc {
        std::int16_t projNum;
        std::string name;
        double range;
    };
    for (const Disc& disc :
         {Disc{ProjGnomonic, "+proj=gnom", 80.0}, Disc{ProjStereographic, "+proj=stere", 90.0},
          Disc{ProjOrthographic, "+proj=ortho", 88.0},
          Disc{ProjVerticalPerspective, "+proj=nsper" + Argument("h", 35840.0 / 6371.0), 80.0},
          Disc{ProjAzimuthalEquidistant, "+proj=aeqd", 130.0},
          Disc{ProjAzimuthalEqualArea, "+proj=laea", 130.0}}) {
        SCOPED_TRACE(disc.name);
        Start(disc.projNum);
        const ReferenceFactors reference(disc.name + Argument("lat_0", 40.0));
        for (double away = 1.3; away < disc.range; away += 3.7) {
            const bool beyond = away > 50.0;
            const double lat = beyond ? 140.0 - away : 40.0 + away;
            SampleAt(lat, beyond ? 180.0 : 0.0);
            ExpectAsReference(reference, lat, beyond ? 180.0 : 0.0);
        }
    }
}

} // namespace
} // namespace quelmont
