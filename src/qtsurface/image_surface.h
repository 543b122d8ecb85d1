#pragma once

#include "platform/fine_lines.h"
#include "platform/main_window.h"
#include "qtsurface/area_coverage.h"
#include "qtsurface/line_coverage.h"
#include "qtsurface/object_surface.h"
#include "qtsurface/pixel_grid.h"
#include "qtsurface/round_pen.h"
#include "qtsurface/smooth_ellipse.h"

#include <QImage>

#include <cstdint>
#include <optional>
#include <vector>

namespace quelmont {

/// A surface whose picture lies in memory: the window's back image and the picture of a file.
/// Text is antialiased, in shades between its colour and what lies behind; lines and symbols are as long as
/// smooth lines are on.
///
/// A pen is one pixel wide or round. The outline of a rectangle or an ellipse runs through the centres of
/// the outermost pixels of its box, whatever the pen's width. Smooth lines between whole pixels, too, have an
/// even pen lean to the upper left by half a pixel, so that upright and level ones are sharp. A polygon
/// between whole pixels without an outline is never smooth; a fine one is.
class ImageSurface final : public ObjectSurface, public FineLines {
public:
    /// A black picture. Sizes in pixels, 0 to 32767; RunTimeError "Invalid procedure call or
    /// argument" outside that, "Out of memory".
    ImageSurface(std::int32_t width, std::int32_t height);

    std::int32_t Width() const { return grid.width; }
    std::int32_t Height() const { return grid.height; }

    /// Gives the picture another size, with the failures of the constructor, and fills it.
    /// Pens, brushes and the current position stay.
    void Resize(std::int32_t width, std::int32_t height, std::uint32_t color);
    /// Fills the picture with a colour, 0x00BBGGRR.
    void Clear(std::uint32_t color);

    /// The picture as it is, for painting it at once: the pixels are the surface's own and go with
    /// its next change of size. Image().copy() is a picture to keep.
    QImage Image() const;
    /// A copy of its pixels.
    PixelImage Pixels() const;
    /// Makes the pixels of a box those of another picture at the same places, and a colour, 0x00BBGGRR,
    /// where that one has none. What of the box lies outside is left alone. The other one is in the format of
    /// Image.
    void Copy(const QImage& from, const QRect& box, std::uint32_t color);

    /// RunTimeError "Out of memory" when there is no room for the coverage of pixels.
    FineLines* Smooth(bool on) override;
    SurfaceHandle CreateFinePen(double width, std::uint32_t color) override;
    void MoveToFine(std::int32_t x, std::int32_t y) override;
    void LineToFine(std::int32_t x, std::int32_t y) override;
    bool PolyPolygonFine(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override;

    void MoveToEx(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    bool Polyline(std::span<const SurfacePoint> points) override;
    bool Polygon(std::span<const SurfacePoint> points) override;
    bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override;
    bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override;
    bool TextOutA(std::int32_t x, std::int32_t y, std::string_view text) override;

private:
    void PenSelected() override;
    void TakeRoundPen();
    /// Memory for smooth lines, and the pen. RunTimeError "Out of memory".
    void GetReadyForLines();
    /// The place of a whole pixel on smooth lines of the current pen.
    FinePoint Leaning(SurfacePoint at) const;
    void MoveSmooth(FinePoint to);
    void SmoothSegment(FinePoint from, FinePoint to);
    void Segment(SurfacePoint from, SurfacePoint to);
    /// A closed line.
    void Outline(std::span<const SurfacePoint> points);
    /// The line ends here, and something else is painted.
    void EndLine() {
        smoothLine.Finish(grid);
        areas.Forget();
    }

    /// Whether a shape in a box, its outline included, changes no pixel: outside of the picture, or in the
    /// one colour that the picture has.
    bool ChangesNothing(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) const;

    std::vector<std::uint32_t> pixels;
    PaintedSpans painted;
    PixelGrid grid;
    std::optional<RoundPen> round; ///< of the current pen, from two pixels on
    std::int32_t roundWidth = 0;
    bool smooth = false;
    /// The line in hand: painted on the picture when it ends, or when the picture is asked for.
    mutable LineCoverage smoothLine;
    FinePoint finePosition;
    AreaCoverage areas;
    SmoothEllipses ellipses;
};

} // namespace quelmont
