#pragma once

#include "core/map_design.h"

#include <string>
#include <string_view>

/// The rule that every field of an angle in a dialog obeys when the focus leaves it. The texts of
/// angles are those of angle_text.h.

namespace quelmont {

/// What a field holds: its columns and the letters that may stand at its end.
enum class AngleFieldKind {
    Latitude,      ///< "N" or "S"
    NorthLatitude, ///< a latitude that must be north
    Longitude,     ///< "W" or "E"
    Arc,           ///< no letter: a spacing or a range
};

/// Whether a field has the two columns of degrees of a latitude; the others have three.
constexpr bool IsLatitude(AngleFieldKind kind) {
    return kind == AngleFieldKind::Latitude || kind == AngleFieldKind::NorthLatitude;
}

struct AngleField {
    AngleFieldKind kind = AngleFieldKind::Latitude;
    std::string title;        ///< of the message box
    int degreeLimit = 0;      ///< most degrees
    std::string_view atLimit; ///< text for minutes or seconds beyond the limit
    std::string_view zero{};  ///< text for an arc of zero, empty when zero is allowed
};

/// The three numbers of a text, and the letter behind them (0 when there is none).
struct AngleGroups {
    double degrees = 0.0;
    double minutes = 0.0;
    double seconds = 0.0;
    char letter = 0;
};
AngleGroups SplitAngle(AngleFieldKind kind, std::string_view text);

/// The digits of a text alone.
std::string BareDigits(std::string_view text);

/// The text of the first test that a field fails, in the order hemisphere, seconds, minutes,
/// degrees, limit, zero; empty when it passes. A blank group counts as 0.
std::string AngleFieldFault(const AngleField& field, std::string_view text);

/// Tells in a message box with Retry and Cancel that a control's text was refused. Retry asks for the focus,
/// Cancel for the last accepted text; the result holds what the dialog has to do.
Refusal RefuseField(std::string_view control, std::string_view title, std::string_view text);

/// The same in a message box with OK alone: the focus goes to the control, nothing is written back.
Refusal RefuseAcceptance(std::string_view control, std::string_view title, std::string_view text);

/// Tests a control's text and shows the message box of the first fault. An empty refusal when it passes.
Refusal CheckAngleField(std::string_view control, const AngleField& field, std::string_view text);

/// Whether something was refused.
inline bool IsRefused(const Refusal& refusal) { return !refusal.Field.empty(); }

} // namespace quelmont
