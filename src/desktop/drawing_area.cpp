#include "desktop/drawing_area.h"

#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace quelmont {

namespace {

/// What a widget's place is off a whole device pixel by rounding alone.
constexpr qreal Tolerance = 1e-6;
/// How much of the theme's text colour the hint has: dimmed, but still to be read.
constexpr float HintStrength = 0.6F;

int FirstWhole(qreal place) { return static_cast<int>(std::ceil(place - Tolerance)); }
int LastWhole(qreal place) { return static_cast<int>(std::floor(place + Tolerance)); }

/// The longest time that a picture is held.
constexpr qint64 HoldMilliseconds = 200;

/// How light a background is from which on dark letters can be read on it, 0 to 255.
constexpr int LightBackground = 128;

/// A drawing area is a picture to screen readers, which read its name and description out.
QAccessibleInterface* AccessiblePicture(const QString& /*className*/, QObject* object) {
    auto* area = dynamic_cast<DrawingArea*>(object);
    return area == nullptr ? nullptr : new QAccessibleWidget(area, QAccessible::Graphic);
}

} // namespace

DrawingArea::DrawingArea(QWidget* parent) : QWidget(parent) {
    QAccessible::installFactory(AccessiblePicture); // once, however often it is called
    setAccessibleName(QStringLiteral("Map"));
    setAccessibleDescription(Hint());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

DrawingArea::~DrawingArea() = default;

QRect DrawingArea::DeviceRect() const {
    const qreal now = devicePixelRatioF();
    const QPoint corner = mapTo(window(), QPoint(0, 0));
    const int left = FirstWhole(corner.x() * now);
    const int top = FirstWhole(corner.y() * now);
    const int right = LastWhole((corner.x() + width()) * now);
    const int bottom = LastWhole((corner.y() + height()) * now);
    return {left, top, std::max(right - left, 1), std::max(bottom - top, 1)};
}

QSize DrawingArea::DeviceSize() const { return DeviceRect().size(); }

void DrawingArea::Clear(std::uint32_t color) {
    const QSize size = DeviceSize();
    surface.Resize(size.width(), size.height(), color);
    hasPicture = true;
    hinted = true;
    ratio = devicePixelRatioF();
    setAccessibleDescription(Hint());
    update();
}

void DrawingArea::TakeHintOff() {
    if (hinted) {
        setAccessibleDescription(QString());
    }
    hinted = false;
    update();
}

void DrawingArea::SetReadyToDraw(bool ready) {
    if (readyToDraw == ready) {
        return;
    }
    readyToDraw = ready;
    if (hinted) {
        setAccessibleDescription(Hint());
        update();
    }
}

void DrawingArea::Describe(const QString& words) {
    if (!hinted) {
        setAccessibleDescription(words);
    }
}

QSize DrawingArea::WholeSize() const { return DeviceSize().expandedTo(surface.Image().size()); }

void DrawingArea::PutBackPicture(std::uint32_t color) {
    if (!hasPicture) {
        Clear(color);
    }
    if (kept.isNull()) {
        KeepPicture();
    }
    TakeHintOff();
    const QSize whole = WholeSize().expandedTo(kept.size());
    surface.Resize(whole.width(), whole.height(), color);
    surface.Copy(kept, kept.rect(), color);
    update();
}

void DrawingArea::ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint,
                              std::uint32_t color) {
    if (!hasPicture) {
        ratio = devicePixelRatioF();
    }
    if (const QSize whole = WholeSize(); !preview || QSize(preview->Width(), preview->Height()) != whole) {
        preview.emplace(whole.width(), whole.height());
        previewed = QRect(QPoint(0, 0), whole);
    }
    preview->Copy(surface.Image(), previewed, color);
    paint(*preview);
    previewed = QRect(box.left, box.top, box.width, box.height);
    update();
}

void DrawingArea::Hold() {
    held = surface.Image().copy();
    sinceHold.start();
}

void DrawingArea::LetGo() {
    held = QImage();
    update();
}

bool DrawingArea::IsHeld() const {
    return !held.isNull() && sinceHold.elapsed() < HoldMilliseconds && held.size() == surface.Image().size();
}

void DrawingArea::HidePreview() {
    preview.reset();
    update();
}

QString DrawingArea::Hint() const {
    return hasPicture || readyToDraw ? QStringLiteral("Draw Map (Alt+D) draws the map")
                                     : QStringLiteral("Choose a projection, then Draw Map (Alt+D)");
}

void DrawingArea::PaintHint() {
    QPainter painter(this);
    QColor dimmed = palette().color(QPalette::WindowText);
    if (hasPicture) {
        const bool light = qGray(surface.Image().pixel(0, 0)) >= LightBackground;
        dimmed = light ? QColor(Qt::black) : QColor(Qt::white);
    }
    dimmed.setAlphaF(HintStrength);
    painter.setPen(dimmed);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, Hint());
}

QPointF DrawingArea::PictureCorner() const {
    return DeviceRect().topLeft() - QPointF(mapTo(window(), QPoint(0, 0))) * ratio;
}

SurfacePoint DrawingArea::PixelAt(QPointF place) const {
    // Where the screen has another ratio now, the picture is shown scaled from the corner.
    const QPointF corner = ratio == devicePixelRatioF() ? PictureCorner() : QPointF();
    const QPointF pixel = place * ratio - corner;
    return {static_cast<std::int32_t>(std::floor(pixel.x() + Tolerance)),
            static_cast<std::int32_t>(std::floor(pixel.y() + Tolerance))};
}

void DrawingArea::PaintPicture() {
    QPainter painter(this);
    if (ratio == devicePixelRatioF()) {
        // The area may begin inside a device pixel; the picture begins at the first whole one, so
        // that no pixel of it is spread over two.
        painter.scale(1.0 / ratio, 1.0 / ratio);
        painter.translate(PictureCorner());
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.scale(1.0 / ratio, 1.0 / ratio);
    }
    painter.drawImage(0, 0, preview ? preview->Image() : IsHeld() ? held : surface.Image());
}

void DrawingArea::paintEvent(QPaintEvent* /*event*/) {
    if (HasPicture() || preview) {
        PaintPicture();
    }
    if (hinted && !preview) {
        PaintHint();
    }
}

void DrawingArea::Tell(AreaMouse::Kind kind, const QMouseEvent& event) {
    if (mouse) {
        mouse({kind, event.position() * devicePixelRatioF(), PixelAt(event.position()), event.button(),
               event.modifiers(), 0});
    }
}

void DrawingArea::mousePressEvent(QMouseEvent* event) { Tell(AreaMouse::Kind::Press, *event); }

void DrawingArea::mouseDoubleClickEvent(QMouseEvent* event) { Tell(AreaMouse::Kind::DoubleClick, *event); }

void DrawingArea::mouseReleaseEvent(QMouseEvent* event) { Tell(AreaMouse::Kind::Release, *event); }

void DrawingArea::mouseMoveEvent(QMouseEvent* event) {
    Tell(AreaMouse::Kind::Move, *event);
    if (pointed) {
        pointed(PixelAt(event->position()));
    }
}

void DrawingArea::wheelEvent(QWheelEvent* event) {
    if (mouse) {
        mouse({AreaMouse::Kind::Wheel, event->position() * devicePixelRatioF(), PixelAt(event->position()),
               Qt::NoButton, event->modifiers(), event->angleDelta().y()});
    }
    event->accept();
}

void DrawingArea::contextMenuEvent(QContextMenuEvent* event) {
    if (menuWanted) {
        const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
        const QPoint under = underMouse() ? mapFromGlobal(QCursor::pos()) : rect().center();
        const QPoint place = byMouse ? event->pos() : under;
        menuWanted(PixelAt(place), mapToGlobal(place));
    }
}

void DrawingArea::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    if (pointed) {
        pointed(PixelAt(event->position()));
    }
}

void DrawingArea::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (pointed) {
        pointed(std::nullopt);
    }
}

void DrawingArea::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (resized) {
        resized();
    }
}

} // namespace quelmont
