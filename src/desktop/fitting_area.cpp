#include "desktop/fitting_area.h"

#include <QScrollBar>

#include <algorithm>

namespace quelmont {

namespace {

/// Units that are seen around a widget that was scrolled into sight.
constexpr int SeenAround = 4;

} // namespace

FittingArea::FittingArea(QWidget* parent) : QScrollArea(parent) {
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* contents = new QWidget;
    setWidget(contents);
    // The dialog's own ground shows through.
    contents->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void FittingArea::SetRoom(QSize room_) {
    room = room_;
    updateGeometry();
}

void FittingArea::BringIntoSight(const QWidget& inside) {
    const QRect place(inside.mapTo(widget(), QPoint(0, 0)), inside.size());
    const QSize half = place.size() / 2 + QSize(SeenAround, SeenAround);
    ensureVisible(place.center().x(), place.center().y(), std::min(half.width(), viewport()->width() / 2),
                  std::min(half.height(), viewport()->height() / 2));
}

QSize FittingArea::sizeHint() const {
    const QSize contents = widget()->sizeHint();
    QSize size = contents;
    if (contents.height() > room.height()) {
        size.rwidth() += verticalScrollBar()->sizeHint().width();
    }
    if (size.width() > room.width()) {
        size.rheight() += horizontalScrollBar()->sizeHint().height();
        if (contents.height() <= room.height() && size.height() > room.height()) {
            size.rwidth() += verticalScrollBar()->sizeHint().width();
        }
    }
    return size.boundedTo(room);
}

} // namespace quelmont
