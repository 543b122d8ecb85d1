#include "qtsurface/text_painter.h"

#include <QPainter>
#include <QRectF>

namespace quelmont {

namespace {

constexpr std::int32_t LargestHeight = 32767;

/// Paints what is not wholly outside.
class Pen {
public:
    Pen(QImage& picture, const QTransform& toPixels_, std::uint32_t color_)
        : painter(&picture), toPixels(toPixels_), whole(picture.rect()), color(QColor::fromRgb(color_)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setTransform(toPixels);
    }
    bool Reaches(const QRectF& box) const { return toPixels.mapRect(box).intersects(whole); }
    void Fill(const QPainterPath& path) {
        painter.fillPath(path, color);
        painted = true;
    }
    void Line(double top, double width, double length) {
        const QRectF line(0.0, top, length, width);
        if (length > 0.0 && Reaches(line)) {
            QPainterPath path;
            path.addRect(line);
            Fill(path);
        }
    }
    bool HasPainted() const { return painted; }

private:
    QPainter painter;
    QTransform toPixels;
    QRectF whole;
    QColor color;
    bool painted = false;
};

} // namespace

bool CanBeFont(const SurfaceFont& font) {
    return font.height >= -LargestHeight && font.height <= LargestHeight;
}

QTransform TextTransform(const TextFace& face, const SurfaceFont& font, const TextPlace& place) {
    const double em = face.EmPixels(font);
    QTransform transform = QTransform::fromTranslate(place.anchor.x, place.anchor.y);
    constexpr int turn = 3600;
    transform.rotate(-((font.escapement % turn + turn) % turn) / 10.0);
    transform.scale(em, em);
    if (place.align == AlignTop) {
        transform.translate(0.0, face.InEm().ascent);
    }
    return transform;
}

bool PaintText(QImage& picture, const SurfaceFont& font, const TextPlace& place, std::string_view utf8) {
    if (utf8.empty() || picture.isNull()) {
        return false;
    }
    TextFace& face = TextFace::Of(font);
    const ShapedText text = face.Shape(utf8);
    Pen pen(picture, TextTransform(face, font, place), place.color);
    for (const std::vector<PlacedOutline>& run : text.runs) {
        // One path for all: characters that join show no seam.
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        for (const PlacedOutline& character : run) {
            if (pen.Reaches(character.outline.controlPointRect().translated(character.place))) {
                path.addPath(character.outline.translated(character.place));
            }
        }
        if (!path.isEmpty()) {
            pen.Fill(path);
        }
    }
    const TextFace::Measures& measures = face.InEm();
    if (font.underline) {
        pen.Line(measures.underline, measures.underlineWidth, text.width);
    }
    if (font.strikeout) {
        pen.Line(measures.strikeout, measures.strikeoutWidth, text.width);
    }
    return pen.HasPainted();
}

} // namespace quelmont
