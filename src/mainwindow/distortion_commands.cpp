#include "mainwindow/distortion_commands.h"

#include "areas/equal_circles.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "dialogs/look/distortion_form.h"
#include "platform/machine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <sstream>

namespace quelmont {

namespace {

struct KindWord {
    std::string_view word;
    DistortionKind kind;
};

constexpr std::array Kinds = std::to_array<KindWord>({
    {"none", DistortionKind::None},
    {"ellipses", DistortionKind::Ellipses},
    {"area", DistortionKind::Area},
    {"angle", DistortionKind::Angle},
});

/// An arc of whole seconds in degrees; nothing for what is no number.
std::optional<double> DegreesOfWord(const std::string& word) {
    std::int32_t seconds = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), seconds);
    return error == std::errc{} && end == word.data() + word.size() ? std::optional(DegreesOf(seconds))
                                                                    : std::nullopt;
}

std::string SecondsWord(double degrees) { return std::to_string(RoundToInt32(degrees * SecPerDegree)); }

} // namespace

void ChooseDistortion(int /*index*/) {
    DistortionForm dialog;
    Machine().forms->Show(dialog);
}

std::optional<DistortionKind> DistortionKindOf(std::string_view word) {
    const auto* const row =
        std::find_if(Kinds.begin(), Kinds.end(), [&](const KindWord& kind) { return kind.word == word; });
    return row == Kinds.end() ? std::nullopt : std::optional(row->kind);
}

std::string DistortionSetting() {
    const DistortionChoice& choice = Design.Distortion;
    const auto* const row = std::find_if(Kinds.begin(), Kinds.end(),
                                         [&](const KindWord& kind) { return kind.kind == choice.kind; });
    return std::string(row->word) + " " + SecondsWord(choice.radius) + " " + SecondsWord(choice.spacing);
}

void TakeDistortionSetting(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::string kindWord, radiusWord, spacingWord, more;
    stream >> kindWord >> radiusWord >> spacingWord;
    const std::optional<DistortionKind> kind = DistortionKindOf(kindWord);
    const std::optional<double> radius = DegreesOfWord(radiusWord);
    const std::optional<double> spacing = DegreesOfWord(spacingWord);
    if (kind && radius && spacing && IsCircleRadius(*radius) && IsCircleSpacing(*spacing) &&
        !(stream >> more)) {
        Design.Distortion = {*kind, *radius, *spacing};
    }
}

} // namespace quelmont
