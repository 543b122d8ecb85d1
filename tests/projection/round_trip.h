#pragma once

#include "projection/inverse_select.h"
#include "projection/map_sweep.h"
#include "projection/reference_projection.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>

/// From the globe to the plane and back, with what the forward itself leaves open.

namespace quelmont {

/// A map that the dialogs accept, at random: bounds and parallels in whole minutes, now and then poles, the
/// equator and the whole globe; view points from one kilometre to the edge of the field.
MapOfSweep RandomMap(std::int16_t projNum, std::mt19937& random);

/// What ProjectSelect makes of a point of the relative frame; nothing where it makes nothing.
std::optional<ReferencePlace> ForwardOf(const RelativePlace& place);

double Apart(const ReferencePlace& a, const ReferencePlace& b);

/// How far apart the forward's answers for the next few numbers of degrees around a place lie, earth radii:
/// no inverse can hit the plane more exactly.
double Grain(const RelativePlace& place);

/// What the roundings inside of the forward do to a place in the plane, earth radii, where they are
/// magnified.
///
/// Azimuthal: the scale has the cosine of the distance from the centre, or what it differs from -1, below a
/// fraction, which tells at the horizon of the gnomonic and near the antipode. Mollweide: the equation of
/// theta has the slope 4 cos^2 theta, and rounds the numbers up to pi that it adds. 0 on the other
/// projections.
double Noise(const RelativePlace& place);

/// The least scale of the forward at a place: the smaller half axis of the ellipse that a small circle on the
/// globe becomes.
double LeastScale(const RelativePlace& place);

/// What round trips met with.
struct RoundTrips {
    int points = 0;
    int plain = 0;  ///< back within 1e-12 earth radii
    int places = 0; ///< of them compared as places
};

/// The point's place in the plane has an inverse; that one lies in the frame of the map, and its place in the
/// plane within 1e-12 earth radii, the grain and the noise; where the least scale is above 0.01, it is the
/// point within 1e-9 degrees, the grain and the noise. A point without a place in the plane is passed over,
/// and one beyond 1e9 earth radii, further than any range of the gnomonic.
testing::AssertionResult ComesBack(const RelativePlace& point, RoundTrips& trips);

/// The same from the plane; nothing to be tested where there is no inverse.
testing::AssertionResult ComesBack(const ReferencePlace& place, RoundTrips& trips);

} // namespace quelmont
