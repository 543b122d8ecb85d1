#pragma once

#include "platform/main_window.h"
#include "qtsurface/image_surface.h"

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

namespace quelmont {

/// What the mouse did over the drawing area.
struct AreaMouse {
    enum class Kind { Press, DoubleClick, Move, Release, Wheel };
    Kind kind = Kind::Move;
    QPointF place;                         ///< device pixels from the corner of the area
    SurfacePoint pixel;                    ///< of the picture
    Qt::MouseButton button = Qt::NoButton; ///< that was pressed or released
    Qt::KeyboardModifiers modifiers;
    int turned = 0; ///< of the wheel, away from the person, eighths of a degree
};

/// The inside of the main window: shows the back image, pixel for pixel on the screen.
///
/// The back image keeps the size of its last clearing. A larger area shows the theme's colour
/// beside it, a smaller one a part of it. It has device pixels; on a screen of another ratio than
/// the one that it was drawn for it is shown scaled. A preview lies on a copy of it.
class DrawingArea final : public QWidget {
public:
    explicit DrawingArea(QWidget* parent = nullptr);
    ~DrawingArea() override;

    /// The whole device pixels inside the area.
    QSize DeviceSize() const;

    /// Gives the back image the area's size and fills it with a colour, 0x00BBGGRR. Until something is drawn
    /// on it a hint stands over it. RunTimeError "Out of memory".
    void Clear(std::uint32_t color);
    /// Something is about to be drawn on the back image.
    void TakeHintOff();
    /// Whether a map can be drawn without another choice: the hint before the first picture then speaks of
    /// the draw alone.
    void SetReadyToDraw(bool ready);
    /// Tells a screen reader what the picture shows, until another one begins.
    void Describe(const QString& words);
    /// False before the first clearing.
    bool HasPicture() const { return hasPicture; }
    /// True when the back image is as large as the area.
    bool Fits() const { return DeviceSize() == QSize(surface.Width(), surface.Height()); }
    /// The back image; of no size before the first clearing.
    ImageSurface& Surface() { return surface; }
    const ImageSurface& Surface() const { return surface; }

    /// The picture's operations of MainWindow; what a picture lacks has that colour, 0x00BBGGRR.
    void KeepPicture() { kept = surface.Image().copy(); }
    void ForgetPicture() { kept = QImage(); }
    void PutBackPicture(std::uint32_t color);
    void ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint,
                     std::uint32_t color);
    void HidePreview();

    /// Shows the picture as it now is, whatever is drawn on it, until LetGo, but for some tenths of a second
    /// at most: a short draw is seen when it is done.
    void Hold();
    void LetGo();

    /// Called with all that the mouse does.
    void OnMouse(std::function<void(const AreaMouse&)> handler) { mouse = std::move(handler); }
    /// Called with the pixel of the picture that the mouse is over, and with nothing when it leaves the area.
    void OnPointed(std::function<void(std::optional<SurfacePoint>)> handler) { pointed = std::move(handler); }
    /// Called when a menu about a pixel of the picture is asked for, with the place of the screen to show it
    /// at: the pixel under the mouse, or by a key without the mouse the middle of the area.
    void OnMenuWanted(std::function<void(SurfacePoint, QPoint)> handler) { menuWanted = std::move(handler); }
    /// Called when the area has got another size.
    void OnResized(std::function<void()> handler) { resized = std::move(handler); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect DeviceRect() const;
    /// Where the picture begins, device pixels from the area's corner.
    QPointF PictureCorner() const;
    /// The pixel of the picture at a place of the area, in units of the screen.
    SurfacePoint PixelAt(QPointF place) const;
    QString Hint() const;
    void PaintHint();
    void PaintPicture();
    /// Large enough for the picture and for the area.
    QSize WholeSize() const;

    ImageSurface surface{0, 0};
    /// Hands on what a button of the mouse did, or its move.
    void Tell(AreaMouse::Kind kind, const QMouseEvent& event);
    bool IsHeld() const;

    QImage kept;                         ///< null when none is
    std::optional<ImageSurface> preview; ///< the picture with the preview on it
    QImage held;                         ///< what is shown instead of the picture; null when nothing is
    QElapsedTimer sinceHold;
    QRect previewed; ///< where it differs from the picture
    bool hasPicture = false;
    bool hinted = true; ///< nothing was drawn yet
    bool readyToDraw = false;
    qreal ratio = 1.0; ///< device pixels per unit of the screen that the picture was drawn for
    std::function<void(const AreaMouse&)> mouse;
    std::function<void(std::optional<SurfacePoint>)> pointed;
    std::function<void(SurfacePoint, QPoint)> menuWanted;
    std::function<void()> resized;
};

} // namespace quelmont
