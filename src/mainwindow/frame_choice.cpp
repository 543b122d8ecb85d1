#include "mainwindow/frame_choice.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mainwindow/settings.h"
#include "surround/scale_bar_units.h"

#include <charconv>
#include <optional>
#include <sstream>
#include <vector>

namespace quelmont {

namespace {

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
    std::string text = SettingOfFlag(choice.frame) + " " + std::string(WordOf(choice.unit));
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
    const std::optional<ScaleBarUnit> unit = ScaleBarUnitOf(words[1]);
    const std::optional<std::int32_t> latitude = words.size() > 2 ? LatitudeOf(words[2]) : std::nullopt;
    if (!frame || !unit || (words.size() > 2 && !latitude)) {
        return;
    }
    Design.Frame = {*frame, *unit, latitude ? std::optional(DegreesOf(*latitude)) : std::nullopt};
}

} // namespace quelmont
