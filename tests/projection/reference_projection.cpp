#include "projection/reference_projection.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <charconv>
#include <cmath>
#include <numbers>

namespace quelmont {

namespace {

constexpr double Degree = std::numbers::pi / 180.0;

std::string Digits(double value) {
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), value).ptr;
    return {text, end};
}

} // namespace

std::string Definition(const std::string& name,
                       std::initializer_list<std::pair<const char*, double>> arguments) {
    std::string text = "+proj=" + name;
    bool ownSize = false;
    for (const auto& [key, value] : arguments) {
        text += " +" + std::string(key) + "=" + Digits(value);
        ownSize = ownSize || key == std::string("a");
    }
    return text + (ownSize ? " +no_defs" : " +R=1 +no_defs");
}

void ReferenceProjection::Free::operator()(pj_ctx* freed) const { proj_context_destroy(freed); }
void ReferenceProjection::Free::operator()(PJconsts* freed) const { proj_destroy(freed); }

ReferenceProjection::ReferenceProjection(const std::string& definition) : context(proj_context_create()) {
    proj_log_level(context.get(), PJ_LOG_NONE);
    operation.reset(proj_create(context.get(), definition.c_str()));
    if (operation == nullptr) {
        ADD_FAILURE() << "PROJ does not understand " << definition;
    }
}

std::optional<ReferencePlace> ReferenceProjection::Forward(double lat, double lon) const {
    proj_errno_reset(operation.get());
    const PJ_COORD out =
        proj_trans(operation.get(), PJ_FWD, proj_coord(lon * Degree, lat * Degree, 0.0, HUGE_VAL));
    if (proj_errno(operation.get()) != 0 || !std::isfinite(out.xy.x) || !std::isfinite(out.xy.y)) {
        return std::nullopt;
    }
    return ReferencePlace{out.xy.x, out.xy.y};
}

std::optional<GlobePoint> ReferenceProjection::Inverse(double x, double y) const {
    proj_errno_reset(operation.get());
    const PJ_COORD out = proj_trans(operation.get(), PJ_INV, proj_coord(x, y, 0.0, HUGE_VAL));
    if (proj_errno(operation.get()) != 0 || !std::isfinite(out.lp.lam) || !std::isfinite(out.lp.phi)) {
        return std::nullopt;
    }
    return GlobePoint{out.lp.phi / Degree, out.lp.lam / Degree};
}

double DistanceDegrees(GlobePoint a, GlobePoint b) {
    const double sinP = std::sin((a.lat - b.lat) * Degree / 2.0);
    const double sinQ = std::sin((a.lon - b.lon) * Degree / 2.0);
    const double h = sinP * sinP + std::cos(a.lat * Degree) * std::cos(b.lat * Degree) * sinQ * sinQ;
    return 2.0 * std::atan2(std::sqrt(h), std::sqrt(std::fmax(0.0, 1.0 - h))) / Degree;
}

} // namespace quelmont
