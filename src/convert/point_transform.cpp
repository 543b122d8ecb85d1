#include "convert/point_transform.h"

#include <cpl_error.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace quelmont {

std::vector<bool> TransformPoints(OGRCoordinateTransformation& transformation, MapLine& line) {
    constexpr std::size_t blockSize = 1024;
    std::array<double, blockSize> x;
    std::array<double, blockSize> y;
    std::array<int, blockSize> success;
    std::vector<bool> good(line.size());
    // PROJ reports points without a place as errors too.
    const CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    for (std::size_t begin = 0; begin < line.size(); begin += blockSize) {
        const std::size_t count = std::min(blockSize, line.size() - begin);
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = line[begin + i].Lon;
            y[i] = line[begin + i].Lat;
        }
        success.fill(0);
        transformation.Transform(static_cast<int>(count), x.data(), y.data(), nullptr, nullptr,
                                 success.data());
        for (std::size_t i = 0; i < count; ++i) {
            good[begin + i] = success[i] != 0 && std::isfinite(x[i]) && std::isfinite(y[i]);
            if (good[begin + i]) {
                line[begin + i] = {x[i], y[i]};
            }
        }
    }
    return good;
}

} // namespace quelmont
