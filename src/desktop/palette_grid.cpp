#include "desktop/palette_grid.h"

#include "desktop/qt_text.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QtMath>

#include <algorithm>

namespace quelmont {

namespace {

/// Width of the line that frames the whole.
constexpr int Border = 1;
/// Pixels of a cell at least.
constexpr int SmallestCell = 8;

} // namespace

QColor QColorOf(std::uint32_t value) {
    return {static_cast<int>(value & 0xFFU), static_cast<int>(value >> 8U & 0xFFU),
            static_cast<int>(value >> 16U & 0xFFU)};
}

PaletteGrid::PaletteGrid(std::function<void(int)> hovered_, std::function<void(int)> chosen_, QWidget* parent)
    : QWidget(parent), hovered(std::move(hovered_)), chosen(std::move(chosen_)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PaletteGrid::Show(const Control& control) {
    colors = control.colors;
    columns = std::max(1, control.columns);
    current = control.value;
    marked = control.marked;
    setAccessibleDescription(Text(control.text));
    if (const QString now = Text(control.text); now != words) {
        words = now;
        QAccessibleEvent event(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    }
    update();
}

int PaletteGrid::CellSize() const {
    // On a small screen all of them are seen, beside what else the dialog has to say.
    const int letter = fontMetrics().height();
    const QSize room = screen()->availableGeometry().size() - QSize(4 * letter, 11 * letter);
    const int fitting = std::min(room.width() / columns, room.height() / std::max(1, Rows()));
    return std::clamp(fitting, SmallestCell, std::max(SmallestCell, letter * 3 / 2));
}

int PaletteGrid::Rows() const { return (static_cast<int>(colors.size()) + columns - 1) / columns; }

QSize PaletteGrid::sizeHint() const {
    return QSize(columns, Rows()) * CellSize() + QSize(2 * Border, 2 * Border);
}

QRect PaletteGrid::CellRect(int cell) const {
    return {QPoint(Border + cell % columns * CellSize(), Border + cell / columns * CellSize()),
            QSize(CellSize(), CellSize())};
}

int PaletteGrid::CellAt(QPointF place) const {
    const QPoint inside(qFloor(place.x()) - Border, qFloor(place.y()) - Border);
    const int column = inside.x() / CellSize();
    const int cell = inside.y() / CellSize() * columns + column;
    const bool isCell =
        inside.x() >= 0 && inside.y() >= 0 && column < columns && cell < static_cast<int>(colors.size());
    return isCell ? cell : -1;
}

void PaletteGrid::Frame(QPainter& painter, int cell, bool inUse) const {
    // Black and white together are seen on every colour.
    const QRect outer = CellRect(cell).adjusted(0, 0, -1, -1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(outer);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(outer.adjusted(1, 1, -1, -1));
    if (inUse) {
        const QPoint middle = CellRect(cell).center();
        const int radius = CellSize() / 5;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::white);
        painter.setPen(QPen(Qt::black, 1));
        painter.drawEllipse(middle, radius, radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
}

void PaletteGrid::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int cell = 0; cell < static_cast<int>(colors.size()); ++cell) {
        painter.fillRect(CellRect(cell), QColorOf(colors[static_cast<std::size_t>(cell)]));
    }
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (marked >= 0) {
        Frame(painter, marked, true);
    }
    if (current >= 0) {
        Frame(painter, current, false);
    }
}

void PaletteGrid::mouseMoveEvent(QMouseEvent* event) { hovered(CellAt(event->position())); }

void PaletteGrid::mouseReleaseEvent(QMouseEvent* event) {
    const int cell = CellAt(event->position());
    if (event->button() == Qt::LeftButton && cell >= 0) {
        chosen(cell);
    }
}

void PaletteGrid::leaveEvent(QEvent* /*event*/) { hovered(-1); }

int PaletteGrid::AfterKey(int key) const {
    const int last = static_cast<int>(colors.size()) - 1;
    if (current < 0) {
        return marked >= 0 ? marked : 0;
    }
    const int column = current % columns;
    switch (key) {
    case Qt::Key_Left:
        return std::max(0, current - 1);
    case Qt::Key_Right:
        return std::min(last, current + 1);
    case Qt::Key_Up:
        return current < columns ? current : current - columns;
    case Qt::Key_Down:
        return current + columns > last ? current : current + columns;
    case Qt::Key_Home:
        return current - column;
    case Qt::Key_End:
        return std::min(last, current - column + columns - 1);
    default:
        return -1;
    }
}

void PaletteGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        hovered(AfterKey(event->key()));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (current >= 0) {
            chosen(current);
        }
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace quelmont
