#include "reports/report_numbers.h"

#include "core/angle_text.h"
#include "core/number_text.h"
#include "core/text_encoding.h"

#include <cmath>

namespace quelmont {

std::string AngleText(double degrees, std::string_view kind) {
    std::string text;
    DegMinSec(degrees, text, kind, 1);
    return text;
}

std::string TransformedText(double value, std::string_view picture) {
    return FormatNumber(value, std::fabs(value) >= 1000.0 ? "0,000,000" : picture);
}

std::string NameText(std::string_view name) {
    std::string text = ToUtf8(name);
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            c = ' ';
        }
    }
    return text;
}

} // namespace quelmont
