#pragma once

#include <QString>

#include <string_view>

namespace quelmont {

/// A text in UTF-8 as Qt has it.
inline QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text without the mark of its mnemonic, as a screen reader says it.
inline QString Spoken(QString text) {
    const QString mark = QStringLiteral("&");
    text.replace(mark + mark, QString(QChar(0)));
    return text.remove(mark).replace(QChar(0), mark);
}

} // namespace quelmont
