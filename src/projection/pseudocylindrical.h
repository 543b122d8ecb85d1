#pragma once

#include <array>

/// Pseudocylindrical and oval projections: x from the central meridian.

namespace quelmont {

void ForwardHammer();
void ForwardMollweide();
void ForwardRobinson();

/// Auxiliary angle theta of the Mollweide projection, 2 theta + sin 2 theta = pi sin phi, by Newton's rule
/// from phi (radians). No number where its slope is zero.
double MollweideAngle(double phi);

/// Polynomials in the absolute latitude in degrees, by degree, that replace the published table of Robinson
/// 1974 (Snyder 1990): the relative length of a parallel, and its height.
inline constexpr std::array<double, 7> RobinsonLengths = {1.0,
                                                          -0.0007658862163,
                                                          6.7797484678e-05,
                                                          -5.2131392009e-06,
                                                          1.0474391018e-07,
                                                          -1.066164359e-09,
                                                          4.2800356557e-12};
inline constexpr std::array<double, 7> RobinsonHeights = {0.0,
                                                          0.012684924808,
                                                          -4.8919970056e-05,
                                                          2.7603657836e-06,
                                                          -6.7236660474e-08,
                                                          7.3846103164e-10,
                                                          -3.211233692e-12};
/// What they are taken times: the map's half-width is pi times the first, its half-height the second.
constexpr double RobinsonWidth = 0.8487;
constexpr double RobinsonHeight = 1.3523;

} // namespace quelmont
