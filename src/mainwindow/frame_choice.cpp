#include "mainwindow/frame_choice.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mainwindow/settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <sstream>
#include <vector>

namespace quelmont {

namespace {

struct UnitName {
    std::string_view name;
    ScaleBarUnit unit;
};

constexpr std::array Units = std::to_array<UnitName>({
    {"none", ScaleBarUnit::None},
    {"km", ScaleBarUnit::Kilometres},
    {"mi", ScaleBarUnit::StatuteMiles},
    {"nmi", ScaleBarUnit::NauticalMiles},
});

/// A latitude in seconds of arc.
std::optional<std::int32_t> LatitudeOf(const std::string& word) {
    constexpr std::int32_t pole = 90 * SecPerDegree;
    std::int32_t seconds = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), seconds);
    const bool whole = error == std::errc{} && end == word.data() + word.size();
    return whole && seconds >= -pole && seconds <= pole ? std::optional(seconds) : std::nullopt;
}

} // namespace

std::string FrameText() {
    const FrameChoice& choice = Design.Frame;
    const auto* const unit = std::find_if(Units.begin(), Units.end(),
                                          [&](const UnitName& row) { return row.unit == choice.unit; });
    std::string text = SettingOfFlag(choice.frame) + " " + std::string(unit->name);
    if (choice.latitude) {
        text += " " + std::to_string(RoundToInt32(*choice.latitude * SecPerDegree));
    }
    return text;
}

void TakeFrameText(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    if (words.size() < 2 || words.size() > 3) {
        return;
    }
    const std::optional<bool> frame = FlagOfSetting(words[0]);
    const auto* const unit =
        std::find_if(Units.begin(), Units.end(), [&](const UnitName& row) { return row.name == words[1]; });
    const std::optional<std::int32_t> latitude = words.size() > 2 ? LatitudeOf(words[2]) : std::nullopt;
    if (!frame || unit == Units.end() || (words.size() > 2 && !latitude)) {
        return;
    }
    Design.Frame = {*frame, unit->unit, latitude ? std::optional(DegreesOf(*latitude)) : std::nullopt};
}

} // namespace quelmont
