#include "core/angle_field.h"

#include "core/angle_text.h"
#include "core/number_text.h"
#include "platform/characters.h"
#include "platform/machine.h"

#include <algorithm>
#include <iterator>

namespace quelmont {

namespace {

std::string_view HemisphereFault(AngleFieldKind kind, char letter) {
    switch (kind) {
    case AngleFieldKind::Latitude:
        return letter == 'N' || letter == 'S' ? "" : "Hemisphere must be N or S";
    case AngleFieldKind::NorthLatitude:
        return letter == 'N' ? "" : "Hemisphere must be N";
    case AngleFieldKind::Longitude:
        return letter == 'W' || letter == 'E' ? "" : "Hemisphere must be W or E";
    case AngleFieldKind::Arc:
        break;
    }
    return "";
}

} // namespace

AngleGroups SplitAngle(AngleFieldKind kind, std::string_view text) {
    // A longitude and an arc have one more column of degrees than a latitude.
    const std::size_t shift = IsLatitude(kind) ? 0 : 1;
    const std::string_view letter = Columns(text, 19 + shift, 19 + shift);
    return {ValueOf(Columns(text, 1, 2 + shift)), ValueOf(Columns(text, 7 + shift, 8 + shift)),
            ValueOf(Columns(text, 13 + shift, 14 + shift)), letter.empty() ? '\0' : letter.front()};
}

std::string BareDigits(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
    return digits;
}

std::string AngleFieldFault(const AngleField& field, std::string_view text) {
    const AngleGroups groups = SplitAngle(field.kind, text);
    const std::string_view hemisphere = HemisphereFault(field.kind, groups.letter);
    if (!hemisphere.empty()) {
        return std::string(hemisphere);
    }
    if (groups.seconds > 59.0) {
        return "Seconds must be <= 59";
    }
    if (groups.minutes > 59.0) {
        return "Minutes must be <= 59";
    }
    if (groups.degrees > field.degreeLimit) {
        return "Degrees must be <= " + std::to_string(field.degreeLimit);
    }
    if (groups.degrees == field.degreeLimit && (groups.minutes > 0.0 || groups.seconds > 0.0)) {
        return std::string(field.atLimit);
    }
    if (!field.zero.empty() && ValueOf(BareDigits(text)) == 0.0) {
        return std::string(field.zero);
    }
    return "";
}

Refusal RefuseField(std::string_view control, std::string_view title, std::string_view text) {
    const BoxAnswer answer =
        Machine().boxes->AskAbout(control, title, text, BoxButtons::RetryCancel, BoxIcon::Exclamation);
    return {std::string(control), {std::string(control)}, answer == BoxAnswer::Retry};
}

Refusal RefuseAcceptance(std::string_view control, std::string_view title, std::string_view text) {
    Machine().boxes->AskAbout(control, title, text, BoxButtons::Ok, BoxIcon::Exclamation);
    return {std::string(control), {}, true};
}

Refusal CheckAngleField(std::string_view control, const AngleField& field, std::string_view text) {
    const std::string fault = AngleFieldFault(field, text);
    return fault.empty() ? Refusal{} : RefuseField(control, field.title, fault);
}

} // namespace quelmont
