#include "desktop/heads_line.h"

#include "core/column_heads.h"
#include "desktop/qt_text.h"

#include <QPainter>

#include <algorithm>

namespace quelmont {

HeadsLine::HeadsLine(const MaskedEdit& edit_, QWidget* parent) : QWidget(parent), edit(edit_) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize HeadsLine::sizeHint() const { return {edit.sizeHint().width(), fontMetrics().height()}; }

void HeadsLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (const ColumnHead& head : ColumnHeads(edit.Mask())) {
        const QString text = Text(head.text);
        const int middle = (edit.LeftOf(head.begin) + edit.LeftOf(head.end)) / 2;
        const int left = std::max(middle - fontMetrics().horizontalAdvance(text) / 2, 0);
        painter.drawText(left, fontMetrics().ascent(), text);
    }
}

} // namespace quelmont
