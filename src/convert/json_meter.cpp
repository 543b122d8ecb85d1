#include "convert/json_meter.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr std::string_view Features = "features";
constexpr std::size_t Outermost = 1;     ///< depth within the outermost object
constexpr std::size_t FeaturesDepth = 2; ///< depth within its array of features

bool IsSpecialInString(char c) { return c == '"' || c == '\\'; }
/// Of a quote, or a bracket of either kind.
bool IsSpecial(char c) { return c == '"' || (c | 0x20) == '{' || (c | 0x20) == '}'; }

} // namespace

void JsonMeter::Take(std::string_view text) {
    while (!text.empty()) {
        // Most characters mean nothing here; they are counted by the run.
        const auto special = std::find_if(text.begin(), text.end(), [this](char c) {
            return inString ? IsSpecialInString(c) : IsSpecial(c);
        });
        const auto run = static_cast<std::size_t>(special - text.begin());
        if (inString && depth == Outermost && key.size() <= Features.size()) {
            key += text.substr(0, std::min(run, Features.size() + 1));
        }
        escaped = escaped && run == 0;
        Count(run);
        text.remove_prefix(run);
        if (!text.empty()) {
            Count(1);
            TakeSpecial(text.front());
            text.remove_prefix(1);
        }
    }
}

void JsonMeter::Count(std::size_t bytes) { (inFeatures ? element : outside) += bytes; }

void JsonMeter::TakeSpecial(char c) {
    if (inString) {
        if (escaped) {
            escaped = false;
        } else if (c == '\\') {
            escaped = true;
        } else {
            inString = false;
        }
    } else if (c == '"') {
        inString = true;
        key.clear();
    } else if (c == '{' || c == '[') {
        Open(c);
    } else {
        Close();
    }
}

void JsonMeter::Open(char bracket) {
    if (depth == Outermost && bracket == '[' && key == Features) {
        inFeatures = true;
        element = 0;
    }
    ++depth;
}

void JsonMeter::Close() {
    depth -= depth > 0 ? 1 : 0;
    if (inFeatures && depth <= FeaturesDepth) {
        element = 0;
        inFeatures = depth == FeaturesDepth;
    }
}

} // namespace quelmont
