#include "core/map_design.h"
#include "projection/inverse_select.h"
#include "projection/inverse_utm.h"
#include "projection/param_select.h"
#include "projection/project_select.h"
#include "projection/utm.h"

#include <benchmark/benchmark.h>
#include <proj.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

/// Nanoseconds per point of each projection, forward and inverse, beside PROJ's array call on the same points
/// in the same run. The last lines give the ratios; forward, less than a half is what we want.

namespace {

using namespace quelmont;

constexpr std::size_t PointCount = 100'000;
constexpr double Degree = std::numbers::pi / 180.0;
constexpr double CentralLatitude = 40.0;
/// Behind the name of a projection in that of a benchmark.
constexpr const char* Inverse = "Inverse";

/// Degrees; lon from the centre of the map.
struct Point {
    double lat, lon;
};

struct Plane {
    double x, y;
};

struct Contest {
    const char* name;
    std::int16_t projNum;
    const char* definition; ///< PROJ's, on the unit sphere
    double furthest;        ///< from the centre 40 N, degrees, for what shows less than the globe
};

constexpr Contest Contests[] = {
    {"Mercator", ProjMercator, "+proj=merc +R=1", 180.0},
    {"Equirectangular", ProjEquirectangular, "+proj=eqc +lat_ts=45 +R=1", 180.0},
    {"CylindricalEqualArea", ProjCylindricalEqualArea, "+proj=cea +lat_ts=45 +R=1", 180.0},
    {"Hammer", ProjHammer, "+proj=hammer +R=1", 180.0},
    {"Mollweide", ProjMollweide, "+proj=moll +R=1", 180.0},
    {"InterruptedMollweide", ProjInterruptedMollweide, "+proj=moll +R=1", 180.0},
    {"Robinson", ProjRobinson, "+proj=robin +R=1", 180.0},
    {"EquidistantConic", ProjEquidistantConic, "+proj=eqdc +lat_1=60 +lat_2=20 +lat_0=40 +R=1", 180.0},
    {"ConformalConic", ProjConformalConic, "+proj=lcc +lat_1=60 +lat_2=20 +lat_0=40 +R=1", 180.0},
    {"Albers", ProjAlbers, "+proj=aea +lat_1=60 +lat_2=20 +lat_0=40 +R=1", 180.0},
    {"Gnomonic", ProjGnomonic, "+proj=gnom +lat_0=40 +R=1", 80.0},
    {"Stereographic", ProjStereographic, "+proj=stere +lat_0=40 +R=1", 90.0},
    {"Orthographic", ProjOrthographic, "+proj=ortho +lat_0=40 +R=1", 89.0},
    {"VerticalPerspective", ProjVerticalPerspective, "+proj=nsper +lat_0=40 +h=5.625490503845551 +R=1", 80.0},
    {"AzimuthalEquidistant", ProjAzimuthalEquidistant, "+proj=aeqd +lat_0=40 +R=1", 179.0},
    {"AzimuthalEqualArea", ProjAzimuthalEqualArea, "+proj=laea +lat_0=40 +R=1", 179.0},
    {"UTM", ProjUtm, "+proj=tmerc +approx +k_0=0.9996 +x_0=500000 +ellps=clrk66", 3.0},
};

/// Uniform in latitude and longitude, as far from the centre as the map shows; for UTM a zone.
std::vector<Point> RandomPoints(const Contest& contest) {
    std::mt19937 generator(1);
    const double sinCentre = std::sin(CentralLatitude * Degree);
    const double cosCentre = std::cos(CentralLatitude * Degree);
    const bool zone = contest.projNum == ProjUtm;
    std::uniform_real_distribution<double> lat(-85.0, 85.0);
    std::uniform_real_distribution<double> lon(zone ? -3.0 : -180.0, zone ? 3.0 : 180.0);
    std::vector<Point> points;
    while (points.size() < PointCount) {
        const Point point{lat(generator), lon(generator)};
        const double cosDistance = sinCentre * std::sin(point.lat * Degree) +
                                   cosCentre * std::cos(point.lat * Degree) * std::cos(point.lon * Degree);
        if (zone || cosDistance >= std::cos(contest.furthest * Degree)) {
            points.push_back(point);
        }
    }
    return points;
}

void SetDesign(std::int16_t projNum) {
    Design = MapDesign{};
    Design.ProjNum = projNum;
    Design.LatNorth = 85.0;
    Design.LatSouth = -5.0; // the middle of the map is at 40 N
    Design.LonSpan = 360.0;
    Design.LonCentral = 180.0;
    Design.LatCentral = CentralLatitude;
    Design.CosLatCentral = std::cos(CentralLatitude * DegToRad);
    Design.SinLatCentral = std::sin(CentralLatitude * DegToRad);
    Design.HorizonCos = {0.0, -1.0, -1e-08, 0.0, -1.0, -1.0};
    Design.RangeSec = 60 * SecPerDegree;
    Design.VpDistanceKm = 35840.0;
    const bool cone =
        projNum == ProjEquidistantConic || projNum == ProjConformalConic || projNum == ProjAlbers;
    Design.StdParNorth = cone ? 60.0 : 45.0;
    Design.StdParSouth = 20.0;
    if (projNum == ProjUtm) {
        Design.SpheroidName = "Clarke 1866";
        Design.UtmText = {"000    00    00    E", "00    00    00    N", "0500000", "00000000", "0.9996"};
        CalcUtmZone();
    } else {
        ParamSelect();
    }
}

void Ours(benchmark::State& state, const Contest& contest) {
    SetDesign(contest.projNum);
    std::vector<Point> points = RandomPoints(contest);
    const bool zone = contest.projNum == ProjUtm;
    for (Point& point : points) {
        point.lon += Design.LonCentral;
    }
    for (auto _ : state) {
        for (const Point& point : points) {
            Design.ProjLat = point.lat;
            Design.ProjLon = point.lon;
            zone ? UtmForward() : ProjectSelect();
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(PointCount));
}

void OursInverse(benchmark::State& state, const Contest& contest) {
    SetDesign(contest.projNum);
    const bool zone = contest.projNum == ProjUtm;
    std::vector<Plane> places;
    for (const Point& point : RandomPoints(contest)) {
        Design.ProjLat = point.lat;
        Design.ProjLon = point.lon + Design.LonCentral;
        zone ? UtmForward() : ProjectSelect();
        places.push_back(zone ? Plane{Design.ProjLon, Design.ProjLat} : Plane{Design.ProjX, Design.ProjY});
    }
    for (auto _ : state) {
        for (const Plane& place : places) {
            if (zone) {
                benchmark::DoNotOptimize(UtmInverse(place.x, place.y));
            } else {
                benchmark::DoNotOptimize(InverseSelect(place.x, place.y));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(PointCount));
}

/// Forward from the points, or inverse from their places.
void Theirs(benchmark::State& state, const Contest& contest, PJ_DIRECTION direction) {
    const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context(proj_context_create(),
                                                                               proj_context_destroy);
    const std::unique_ptr<PJ, decltype(&proj_destroy)> operation(
        proj_create(context.get(), contest.definition), proj_destroy);
    if (!operation) {
        state.SkipWithError("PROJ does not understand the definition");
        return;
    }
    std::vector<PJ_COORD> points;
    for (const Point& point : RandomPoints(contest)) {
        points.push_back(proj_coord(point.lon * Degree, point.lat * Degree, 0.0, 0.0));
    }
    if (direction == PJ_INV) {
        proj_trans_array(operation.get(), PJ_FWD, points.size(), points.data());
    }
    std::vector<PJ_COORD> work;
    for (auto _ : state) {
        state.PauseTiming();
        work = points; // the call works in place
        state.ResumeTiming();
        proj_trans_array(operation.get(), direction, work.size(), work.data());
        benchmark::DoNotOptimize(work.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(PointCount));
}

/// The usual table, and after it the ratio of each pair.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred || (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")) {
                continue;
            }
            nanoseconds[run.run_name.function_name] = run.GetAdjustedCPUTime() * 1e6 / PointCount;
        }
    }

    void Finalize() override {
        PrintRatios("ns per point, forward", "");
        PrintRatios("ns per point, inverse", Inverse);
    }

private:
    void PrintRatios(const char* title, const char* direction) const {
        std::printf("\n%-22s %14s %14s %7s\n", title, "Quelmont", "PROJ", "ratio");
        for (const Contest& contest : Contests) {
            const std::string name = std::string(contest.name) + direction;
            const auto ours = nanoseconds.find(name + "/Quelmont");
            const auto theirs = nanoseconds.find(name + "/PROJ");
            if (ours != nanoseconds.end() && theirs != nanoseconds.end()) {
                std::printf("%-22s %14.1f %14.1f %7.2f\n", contest.name, ours->second, theirs->second,
                            ours->second / theirs->second);
            }
        }
    }

    std::map<std::string, double> nanoseconds;
};

} // namespace

int main(int argc, char** argv) {
    for (const Contest& contest : Contests) {
        const std::string name = contest.name;
        const std::string inverse = name + Inverse;
        for (benchmark::internal::Benchmark* registered :
             {benchmark::RegisterBenchmark((name + "/Quelmont").c_str(), Ours, contest),
              benchmark::RegisterBenchmark((name + "/PROJ").c_str(), Theirs, contest, PJ_FWD),
              benchmark::RegisterBenchmark((inverse + "/Quelmont").c_str(), OursInverse, contest),
              benchmark::RegisterBenchmark((inverse + "/PROJ").c_str(), Theirs, contest, PJ_INV)}) {
            registered->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
