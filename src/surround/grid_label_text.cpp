#include "surround/grid_label_text.h"

#include "core/map_design.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace quelmont {

namespace {

/// No page has room for more labels along one side.
constexpr std::int64_t MostLines = 200;

constexpr std::int64_t MetresPerKilometre = 1000;

/// One family of lines in whole seconds of arc, or in whole metres.
struct Axis {
    std::int64_t low = 0, high = 0, spacing = 0; ///< in the frame in which lines are drawn
    std::int64_t toTrue = 0;                     ///< what is added for the value that a label tells
    std::int64_t middle = 0;                     ///< twice the place from which outerness counts
    bool closed = false;                         ///< the last line is the first one again
};

/// Every line, or every second, fifth, tenth...
std::int64_t StrideOf(const Axis& axis) {
    const std::int64_t lines = (axis.high - axis.low) / axis.spacing;
    std::int64_t stride = 1;
    for (std::int64_t decade = 1; lines / stride > MostLines; decade *= 10) {
        for (const std::int64_t step : {2 * decade, 5 * decade, 10 * decade}) {
            if (lines / stride > MostLines) {
                stride = step;
            }
        }
    }
    return stride;
}

/// Where the lines stand that are labelled. With a stride they are those of the round values.
std::vector<std::int64_t> PlacesOf(const Axis& axis) {
    std::vector<std::int64_t> places;
    const std::int64_t step = axis.spacing * StrideOf(axis);
    std::int64_t first = axis.low;
    if (step != axis.spacing && (axis.low + axis.toTrue) % axis.spacing == 0) {
        const std::int64_t rest = (axis.low + axis.toTrue) % step;
        first += rest == 0 ? 0 : (rest > 0 ? step : 0) - rest;
    }
    for (std::int64_t place = first; place < axis.high; place += step) {
        places.push_back(place);
    }
    if (!axis.closed && (step == axis.spacing || (axis.high - first) % step == 0)) {
        places.push_back(axis.high);
    }
    return places;
}

double OuternessOf(const Axis& axis, std::int64_t place) {
    const auto half = static_cast<double>(axis.high - axis.low);
    return std::fabs(static_cast<double>(2 * place - axis.middle)) / half;
}

// ---- Angles.

/// How finely the labels of one family tell an angle.
enum class Fineness { Degrees, Minutes, Seconds };

Fineness FinenessOf(const std::vector<std::int64_t>& places, std::int64_t toTrue) {
    Fineness fineness = Fineness::Degrees;
    for (const std::int64_t place : places) {
        const std::int64_t value = place + toTrue;
        if (value % SecPerMinute != 0) {
            return Fineness::Seconds;
        }
        if (value % SecPerDegree != 0) {
            fineness = Fineness::Minutes;
        }
    }
    return fineness;
}

std::string TwoDigits(std::int64_t value) { return (value < 10 ? "0" : "") + std::to_string(value); }

/// What stands behind degrees, minutes and seconds in a style.
struct Marks {
    std::string_view degrees, minutes, seconds;
};

Marks MarksOf(GridLabelStyle style, Fineness fineness) {
    if (style == GridLabelStyle::DegreeSign) {
        return {"\u00B0", "'", "\""};
    }
    return {fineness == Fineness::Degrees ? "" : " ", fineness == Fineness::Seconds ? " " : "", ""};
}

std::string AngleText(std::int64_t seconds, GridLabelStyle style, Fineness fineness, bool latitude) {
    const Marks marks = MarksOf(style, fineness);
    const std::int64_t size = std::abs(seconds);
    std::string text = style == GridLabelStyle::Sign && seconds < 0 ? "-" : "";
    text += std::to_string(size / SecPerDegree);
    text += marks.degrees;
    if (fineness != Fineness::Degrees) {
        text += TwoDigits(size % SecPerDegree / SecPerMinute);
        text += marks.minutes;
    }
    if (fineness == Fineness::Seconds) {
        text += TwoDigits(size % SecPerMinute);
        text += marks.seconds;
    }
    // The equator, the prime meridian and the antimeridian belong to neither side.
    if (style == GridLabelStyle::Sign || size == 0 || (!latitude && size == SecPerHalfCircle)) {
        return text;
    }
    text += style == GridLabelStyle::Letter ? " " : "";
    const char positive = latitude ? 'N' : 'E';
    const char negative = latitude ? 'S' : 'W';
    text += seconds > 0 ? positive : negative;
    return text;
}

/// A longitude within half a circle; both names of the antimeridian stay as they are.
std::int64_t TrueSeconds(std::int64_t seconds) {
    return seconds > SecPerHalfCircle    ? seconds - SecPerCircle
           : seconds < -SecPerHalfCircle ? seconds + SecPerCircle
                                         : seconds;
}

std::vector<GridLine> AngleLines(const Axis& axis, GridLabelStyle style, bool latitude) {
    const std::vector<std::int64_t> places = PlacesOf(axis);
    const Fineness fineness = FinenessOf(places, axis.toTrue);
    std::vector<GridLine> lines;
    lines.reserve(places.size());
    for (const std::int64_t place : places) {
        const std::int64_t value = TrueSeconds(place + axis.toTrue);
        lines.push_back({.at = static_cast<double>(place) / SecPerDegree,
                         .text = AngleText(value, style, fineness, latitude),
                         .outerness = OuternessOf(axis, place)});
    }
    return lines;
}

// ---- Metres.

/// Decimals of a kilometre that the places need, 0 to 3.
int DecimalsOf(const std::vector<std::int64_t>& places) {
    int decimals = 0;
    for (const std::int64_t place : places) {
        std::int64_t unit = MetresPerKilometre;
        for (int count = 0; count < 3 && (count < decimals || place % unit != 0); ++count) {
            unit /= 10;
            decimals = std::max(decimals, count + 1);
        }
    }
    return decimals;
}

std::string KilometreText(std::int64_t metres, int decimals, std::string_view unit) {
    std::string text = metres < 0 ? "-" : "";
    text += std::to_string(std::abs(metres) / MetresPerKilometre);
    if (decimals > 0) {
        const std::string digits = std::to_string(MetresPerKilometre + std::abs(metres) % MetresPerKilometre);
        text += "." + digits.substr(1, static_cast<std::size_t>(decimals));
    }
    text += unit;
    return text;
}

std::vector<GridLine> MetreLines(const Axis& axis, GridLabelStyle style, bool northing) {
    const std::vector<std::int64_t> places = PlacesOf(axis);
    const int decimals = DecimalsOf(places);
    const std::string_view unit = style == GridLabelStyle::Sign ? " km" : northing ? " km N" : " km E";
    std::vector<GridLine> lines;
    lines.reserve(places.size());
    for (const std::int64_t place : places) {
        lines.push_back({.at = static_cast<double>(place),
                         .text = KilometreText(place, decimals, unit),
                         .outerness = OuternessOf(axis, place)});
    }
    return lines;
}

} // namespace

std::vector<GridLine> ParallelsOfGrid(GridLabelStyle style) {
    Axis axis{.low = Design.LatSouthSec, .high = Design.LatNorthSec, .spacing = Design.LatGridSec};
    if (axis.spacing <= 0 || axis.high <= axis.low) {
        return {};
    }
    axis.middle = IsAzimuthal(Design.ProjNum) ? 2 * std::int64_t{Design.LatCentralSec} : axis.low + axis.high;
    return Design.ProjNum == ProjUtm ? MetreLines(axis, style, true) : AngleLines(axis, style, true);
}

std::vector<GridLine> MeridiansOfGrid(GridLabelStyle style) {
    Axis axis{.low = Design.LonZeroSec, .high = Design.LonSpanSec, .spacing = Design.LonGridSec};
    if (axis.spacing <= 0 || axis.high <= axis.low) {
        return {};
    }
    axis.middle = axis.low + axis.high;
    axis.closed = IsAzimuthal(Design.ProjNum);
    if (Design.ProjNum == ProjUtm) {
        return MetreLines(axis, style, false);
    }
    axis.toTrue = Design.LonWestSec;
    return AngleLines(axis, style, false);
}

} // namespace quelmont
