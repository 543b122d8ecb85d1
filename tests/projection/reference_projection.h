#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>

struct pj_ctx;
struct PJconsts;

namespace quelmont {

struct ReferencePlace {
    double x = 0.0;
    double y = 0.0;
};

/// Degrees; lon counts from the centre of the projection, -180 to 180.
struct GlobePoint {
    double lat = 0.0;
    double lon = 0.0;
};

/// Arguments of a definition: Definition("aea", {{"lat_1", 60.0}}) is
/// "+proj=aea +lat_1=60 +R=1 +no_defs", with every digit of the numbers.
std::string Definition(const std::string& name,
                       std::initializer_list<std::pair<const char*, double>> arguments = {});

/// A projection of the PROJ library: the independent source against which ours are held.
class ReferenceProjection {
public:
    /// A definition that PROJ does not understand fails the test.
    explicit ReferenceProjection(const std::string& definition);

    /// Nothing where PROJ has no place for the point.
    std::optional<ReferencePlace> Forward(double lat, double lon) const;
    std::optional<GlobePoint> Inverse(double x, double y) const;

private:
    struct Free {
        void operator()(pj_ctx* context) const;
        void operator()(PJconsts* operation) const;
    };
    std::unique_ptr<pj_ctx, Free> context;
    std::unique_ptr<PJconsts, Free> operation;
};

/// Great-circle distance in degrees between two points, by haversines: good at both ends.
double DistanceDegrees(GlobePoint a, GlobePoint b);

} // namespace quelmont
