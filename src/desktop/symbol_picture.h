#pragma once

#include <QColor>
#include <QImage>

namespace quelmont {

/// A symbol type, 1 to 12, as a map shows it, in one colour on another. The size is in device pixels.
QImage SymbolPicture(int type, QSize size, const QColor& ink, const QColor& paper);

} // namespace quelmont
