#include "dialogs/bounds/lobe_checks.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "dialogs/dialogs_state.h"
#include "projection/lobe_row.h"

#include <array>
#include <stdexcept>

namespace quelmont {

namespace {

constexpr std::size_t FieldsPerHemisphere = 3;

/// The faults of one hemisphere in the order of their codes. A fault of an interruption takes three
/// codes, one for each.
constexpr std::int16_t Outside = 1;      ///< 1 to 3
constexpr std::int16_t WestOf = 4;       ///< 4 to 6
constexpr std::int16_t RightIsWest = 7;  ///< of the last interruption
constexpr std::int16_t Equals = 8;       ///< 8 to 10
constexpr std::int16_t RightEquals = 11; ///< the last interruption
constexpr std::int16_t NotIntegral = 12; ///< 12 to 14
constexpr std::int16_t CodesPerHemisphere = 14;

constexpr std::string_view HintOfOrder =
    "\n\nAs you view the interrupted projection, the longitude of each interruption\n"
    "should lie east (to the right) of the previous interruption; or, in the case\n"
    "of the first interruption, east (to the right) of the left (western)\n"
    "map boundary.";
constexpr std::string_view HintOfRightBoundary =
    "\n\nAs you view the interrupted projection, the longitude of the right (eastern) map\n"
    "boundary should lie east (to the right) of the last interruption.";

/// The way east from one longitude to another, less than a full circle unless it begins at 180 west
/// and ends at 180 east.
std::int32_t WayEast(std::int32_t from, std::int32_t to) {
    return to < from ? to - from + SecPerCircle : to - from;
}

/// The fault of the last step of a row, from its last interruption to the right boundary. sum is the
/// way east to that interruption.
std::int16_t FaultOfRightBoundary(std::size_t first, std::int16_t interruptions, std::int32_t sum) {
    const auto& boundaries = DialogsNow.LobeLonSec;
    const std::size_t right = first + static_cast<std::size_t>(interruptions) + 1;
    const std::int32_t step = WayEast(boundaries[right - 1], boundaries[right]);
    const std::int32_t limit = boundaries[right] == boundaries[first] ? SecPerCircle : Design.LonSpanSec;
    if (sum + step > limit) {
        return RightIsWest;
    }
    return step == 0 ? RightEquals : std::int16_t{0};
}

/// The first fault of a row whose left boundary stands at first. Each step between neighbours is
/// tested in this order: outside the map, west of its neighbour, equal to it, no whole number of
/// grid spacings. A row without interruptions has nothing to test.
std::int16_t FaultOfRow(std::size_t first, std::int16_t interruptions) {
    const auto& boundaries = DialogsNow.LobeLonSec;
    std::int32_t sum = 0;
    std::int32_t relativeBefore = 0;
    for (std::int16_t interruption = 0; interruption < interruptions; ++interruption) {
        const std::size_t here = first + static_cast<std::size_t>(interruption) + 1;
        const std::int32_t step = WayEast(boundaries[here - 1], boundaries[here]);
        const std::int32_t relative = WayEast(boundaries[first], boundaries[here]);
        sum += step;
        if (sum > Design.LonSpanSec) {
            return static_cast<std::int16_t>(Outside + interruption);
        }
        if (relative < relativeBefore) {
            return static_cast<std::int16_t>(WestOf + interruption);
        }
        if (step == 0) {
            return static_cast<std::int16_t>(Equals + interruption);
        }
        if (Remainder(step, Design.LonGridSec) != 0) {
            return static_cast<std::int16_t>(NotIntegral + interruption);
        }
        relativeBefore = relative;
    }
    return interruptions == 0 ? std::int16_t{0} : FaultOfRightBoundary(first, interruptions, sum);
}

std::string Number(std::int16_t number) { return "#" + std::to_string(number); }

/// What an interruption is compared with: "interrupted longitude #1" for the second.
std::string Previous(std::int16_t number) {
    return "interrupted longitude " + Number(static_cast<std::int16_t>(number - 1));
}

/// The message of a code within a hemisphere.
std::string Message(std::int16_t code, const std::string& hemisphere) {
    const std::string in = " in the " + hemisphere + " hemisphere";
    const auto subject = [&](std::int16_t family) {
        return "Interrupted longitude " + Number(static_cast<std::int16_t>(code - family + 1)) + in;
    };
    if (code < WestOf) {
        const std::string text = subject(Outside) + " lies outside the\nmap boundaries.";
        return code == Outside ? text : text + std::string(HintOfOrder);
    }
    if (code < RightIsWest) {
        return subject(WestOf) + " is west (to the left)\nof " +
               (code == WestOf ? "the left (western) map boundary"
                               : Previous(static_cast<std::int16_t>(code - WestOf + 1))) +
               "." + std::string(HintOfOrder);
    }
    if (code == RightIsWest) {
        return "The longitude of the right (eastern) map boundary" + in +
               "\nis west (to the left) of the last interrupted longitude." +
               std::string(HintOfRightBoundary);
    }
    if (code < RightEquals) {
        return subject(Equals) +
               (code == Equals ? " equals the left\n(western) map boundary"
                               : " equals\n" + Previous(static_cast<std::int16_t>(code - Equals + 1))) +
               "." + std::string(HintOfOrder);
    }
    if (code == RightEquals) {
        return "The last interrupted longitude" + in + " equals the\nright (eastern) map boundary." +
               std::string(HintOfOrder);
    }
    const auto number = static_cast<std::int16_t>(code - NotIntegral + 1);
    const std::string difference = "In the " + hemisphere +
                                   " hemisphere, the longitude difference between interrupted\nlongitude " +
                                   Number(number) + " and ";
    return number == 1
               ? difference + "the left (western) map boundary does not yield an integral\nnumber of "
                              "divisions when divided by the GRID SPACING."
               : difference + Previous(number) +
                     " does not yield an integral number\nof divisions when divided by the GRID SPACING.";
}

/// The interruption, counted from 0 within its hemisphere, that a code is about.
std::size_t InterruptionAtFault(std::int16_t code, std::int16_t interruptions) {
    if (code == RightIsWest || code == RightEquals) {
        return static_cast<std::size_t>(interruptions - 1);
    }
    for (const std::int16_t family : {NotIntegral, Equals, WestOf}) {
        if (code >= family) {
            return static_cast<std::size_t>(code - family);
        }
    }
    return static_cast<std::size_t>(code - Outside);
}

} // namespace

std::string InterruptionControl(std::size_t index) { return "LonInt(" + std::to_string(index) + ")"; }

Refusal CheckInterruption(std::size_t index, std::string_view text) {
    if (index >= 2 * FieldsPerHemisphere) {
        throw std::out_of_range("no interruption " + std::to_string(index));
    }
    const std::string title = "Error: Interrupted longitude #" +
                              std::to_string(index % FieldsPerHemisphere + 1) + " in " +
                              (index < FieldsPerHemisphere ? "Northern" : "Southern") + " hemisphere";
    return CheckAngleField(InterruptionControl(index),
                           {AngleFieldKind::Longitude, title, 180, "Longitude cannot be > 180  00  00"},
                           text);
}

std::int16_t LonInterruptErrors() {
    std::int16_t code = 0;
    Guarded("LonInterruptErrors", [&] {
        const std::int16_t north = LobeInterruptions(0);
        const std::int16_t south = LobeInterruptions(1);
        code = FaultOfRow(0, north);
        if (code == 0) {
            code = FaultOfRow(static_cast<std::size_t>(north) + 2, south);
            code = static_cast<std::int16_t>(code == 0 ? 0 : code + CodesPerHemisphere);
        }
    });
    return code;
}

std::string LonInterruptMessage(std::int16_t code) {
    if (code < 1 || code > 2 * CodesPerHemisphere) {
        return "";
    }
    return code <= CodesPerHemisphere
               ? Message(code, "Northern")
               : Message(static_cast<std::int16_t>(code - CodesPerHemisphere), "Southern");
}

Refusal AcceptLatLonInterrupt() {
    const std::int16_t code = LonInterruptErrors();
    if (code == 0) {
        return {};
    }
    const std::size_t hemisphere = code <= CodesPerHemisphere ? 0 : 1;
    const auto inRow = static_cast<std::int16_t>(hemisphere == 0 ? code : code - CodesPerHemisphere);
    const std::size_t index =
        hemisphere * FieldsPerHemisphere + InterruptionAtFault(inRow, LobeInterruptions(hemisphere));
    return RefuseAcceptance(InterruptionControl(index), "Interrupted Longitude Error",
                            LonInterruptMessage(code));
}

} // namespace quelmont
