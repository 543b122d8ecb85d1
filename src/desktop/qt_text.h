#pragma once

#include <QString>

#include <string_view>

namespace quelmont {

/// A text in UTF-8 as Qt has it.
inline QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace quelmont
