#pragma once

#include "core/text_encoding.h"

#include <QString>

#include <string>
#include <string_view>

namespace quelmont {

/// A text in UTF-8 as Qt has it. The name of a file may be no UTF-8: its letters are then those of
/// Windows-1252, as in a map, and the text is not the file's name to Qt.
inline QString Text(std::string_view text) {
    if (!IsUtf8(text)) {
        return QString::fromStdString(ToUtf8(text));
    }
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text without the mark of its mnemonic, as a screen reader says it.
inline QString Spoken(QString text) {
    const QString mark = QStringLiteral("&");
    text.replace(mark + mark, QString(QChar(0)));
    return text.remove(mark).replace(QChar(0), mark);
}

} // namespace quelmont
