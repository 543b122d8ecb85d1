#include "areas/distortion_shades.h"

#include "core/color_table.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace quelmont {

namespace {

struct Step {
    double from;
    std::uint32_t color; ///< red, green, blue
    const char* text;
};

// The first step begins below every value. Lines in black can be seen on all of the colours, and people who
// see red and green alike can tell the two sides of the steps of areas apart.
// clang-format off
constexpr std::array AreaSteps = std::to_array<Step>({
    { 0.0,  0x6A9FD4, "below 0.1"},
    { 0.1,  0x86B4DF, "0.1\u20130.25"},
    { 0.25, 0xA6CAE9, "0.25\u20130.5"},
    { 0.5,  0xC3DDF2, "0.5\u20130.8"},
    { 0.8,  0xDFEDF9, "0.8\u20130.95"},
    { 0.95, 0xEDF7E4, "0.95\u20131.05"},
    { 1.05, 0xFDEBD8, "1.05\u20131.25"},
    { 1.25, 0xFBD5B5, "1.25\u20132"},
    { 2.0,  0xF7B98F, "2\u20134"},
    { 4.0,  0xF09A6E, "4\u201310"},
    {10.0,  0xE57C56, "above 10"},
});
constexpr std::array FineAreaSteps = std::to_array<Step>({
    {0.0,   0x6A9FD4, "below 0.95"},
    {0.95,  0x86B4DF, "0.95\u20130.98"},
    {0.98,  0xA6CAE9, "0.98\u20130.99"},
    {0.99,  0xC3DDF2, "0.99\u20130.995"},
    {0.995, 0xDFEDF9, "0.995\u20130.999"},
    {0.999, 0xEDF7E4, "0.999\u20131.001"},
    {1.001, 0xFDEBD8, "1.001\u20131.005"},
    {1.005, 0xFBD5B5, "1.005\u20131.01"},
    {1.01,  0xF7B98F, "1.01\u20131.02"},
    {1.02,  0xF09A6E, "1.02\u20131.05"},
    {1.05,  0xE57C56, "above 1.05"},
});
constexpr std::array AngleSteps = std::to_array<Step>({
    { 0.0, 0xEDF7E4, "below 1\u00B0"},
    { 1.0, 0xF1E9F7, "1\u00B0\u20135\u00B0"},
    { 5.0, 0xE3D4F0, "5\u00B0\u201310\u00B0"},
    {10.0, 0xD0B9E5, "10\u00B0\u201320\u00B0"},
    {20.0, 0xBF9FDB, "20\u00B0\u201330\u00B0"},
    {30.0, 0xAD86D0, "30\u00B0\u201345\u00B0"},
    {45.0, 0x9B6EC4, "45\u00B0\u201360\u00B0"},
    {60.0, 0x8A58B8, "above 60\u00B0"},
});
constexpr std::array FineAngleSteps = std::to_array<Step>({
    {0.0,  0xEDF7E4, "below 0.1\u00B0"},
    {0.1,  0xF1E9F7, "0.1\u00B0\u20130.25\u00B0"},
    {0.25, 0xE3D4F0, "0.25\u00B0\u20130.5\u00B0"},
    {0.5,  0xD0B9E5, "0.5\u00B0\u20131\u00B0"},
    {1.0,  0xBF9FDB, "1\u00B0\u20132\u00B0"},
    {2.0,  0xAD86D0, "2\u00B0\u20133\u00B0"},
    {3.0,  0x9B6EC4, "3\u00B0\u20135\u00B0"},
});
// clang-format on

std::span<const Step> StepsOf(DistortionKind kind, double least, double most) {
    if (kind == DistortionKind::Angle) {
        return most <= 5.0 ? std::span<const Step>(FineAngleSteps) : AngleSteps;
    }
    constexpr double fine = 1.1;
    return most <= fine && least >= 1.0 / fine ? std::span<const Step>(FineAreaSteps) : AreaSteps;
}

/// The number of the step that holds a value.
std::size_t StepOf(std::span<const Step> steps, double value) {
    std::size_t step = 0;
    while (step + 1 < steps.size() && !(value < steps[step + 1].from)) {
        ++step;
    }
    return step;
}

} // namespace

std::vector<DistortionShade> ShadesBetween(DistortionKind kind, double least, double most) {
    const std::span<const Step> steps = StepsOf(kind, least, most);
    std::vector<DistortionShade> shades;
    for (std::size_t step = StepOf(steps, least); step <= StepOf(steps, most); ++step) {
        shades.push_back(
            {steps[step].from, SolidColor(FromRedGreenBlue(steps[step].color)), steps[step].text});
    }
    return shades;
}

std::string TitleOfShades(DistortionKind kind) {
    return kind == DistortionKind::Angle ? "Angle error" : "Area scale";
}

} // namespace quelmont
