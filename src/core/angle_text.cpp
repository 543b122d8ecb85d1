#include "core/angle_text.h"

#include "core/coordinates.h"
#include "core/error_box.h"
#include "core/number_text.h"
#include "core/rounding.h"

#include <cmath>

namespace quelmont {

namespace {

/// Where the groups of a layout begin.
struct Layout {
    std::size_t degreeColumns;
    std::size_t minutes;
    std::size_t seconds;
    std::size_t letter;
};
constexpr Layout LatitudeLayout{2, 7, 13, 19};
constexpr Layout LongitudeLayout{3, 8, 14, 20};

double GroupValue(std::string_view text, std::size_t first, std::size_t last) {
    return ValueOf(Columns(text, first, last));
}

std::int32_t SecondsOfText(std::string_view text, const Layout& layout) {
    return RoundToInt32(GroupValue(text, 1, layout.degreeColumns) * SecPerDegree +
                        GroupValue(text, layout.minutes, layout.minutes + 1) * SecPerMinute +
                        GroupValue(text, layout.seconds, layout.seconds + 1));
}

std::string Compact(std::string_view text, const Layout& layout) {
    std::string result(Columns(text, 1, layout.degreeColumns));
    result += ' ';
    result += Columns(text, layout.minutes, layout.minutes + 1);
    result += ' ';
    result += Columns(text, layout.seconds, layout.seconds + 1);
    return result;
}

std::string WithLastLetter(std::string compact, std::string_view text) {
    compact += ' ';
    if (!text.empty()) {
        compact += text.back();
    }
    return compact;
}

} // namespace

std::string_view Columns(std::string_view text, std::size_t first, std::size_t last) {
    return first > text.size() ? std::string_view() : text.substr(first - 1, last - first + 1);
}

void DegMinSec(double Value, std::string& Text, std::string_view Kind, std::int16_t Gap) {
    Guarded("DegMinSec", [&] {
        if (Gap < 0) {
            throw RunTimeError(ErrorInvalidCall);
        }
        const double absolute = std::fabs(Value);
        std::int32_t degrees = RoundToInt32(std::floor(absolute));
        const double rest = absolute - degrees;
        std::int32_t minutes = RoundToInt32(std::floor(rest * SecPerMinute));
        std::int32_t seconds = RoundToInt32((rest - minutes / 60.0) * SecPerDegree);
        if (seconds == 60) {
            minutes += 1;
            seconds = 0;
        }
        if (minutes == 60) {
            degrees += 1;
            minutes = 0;
        }
        const std::string gap(static_cast<std::size_t>(Gap), ' ');
        const bool latitude = Kind == "LAT";
        std::string result = FormatNumber(degrees, latitude ? "00" : "000") + gap +
                             FormatNumber(minutes, "00") + gap + FormatNumber(seconds, "00") + gap;
        result += latitude ? (Value < 0.0 ? 'S' : 'N') : (Value < 0.0 ? 'W' : 'E');
        if (Kind == "ARC") {
            result.resize(result.size() - gap.size() - 1);
        }
        Text = result;
    });
}

std::int32_t LatitudeSeconds(std::string_view text) {
    const std::int32_t seconds = SecondsOfText(text, LatitudeLayout);
    return Columns(text, 19, 19) == "S" ? -seconds : seconds;
}

std::int32_t LongitudeSeconds(std::string_view text) {
    const std::int32_t seconds = SecondsOfText(text, LongitudeLayout);
    return Columns(text, 20, 20) == "W" ? -seconds : seconds;
}

std::int32_t ArcSeconds(std::string_view text) { return SecondsOfText(text, LongitudeLayout); }

std::string CompactLatitude(std::string_view text) {
    return WithLastLetter(Compact(text, LatitudeLayout), text);
}
std::string CompactLongitude(std::string_view text) {
    return WithLastLetter(Compact(text, LongitudeLayout), text);
}
std::string CompactArc(std::string_view text) { return Compact(text, LongitudeLayout); }

} // namespace quelmont
