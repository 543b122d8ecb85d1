#pragma once

#include "platform/fine_lines.h"
#include "qtsurface/image_surface.h"

#include <QImage>

#include <cmath>
#include <cstdint>
#include <vector>

namespace quelmont {

/// A place in pixels, not whole ones.
struct Place {
    double x = 0.0;
    double y = 0.0;
};

/// A black picture on which smooth lines are drawn in white: what a pixel is covered by is its grey, 0 to
/// 255.
class SmoothSheet {
public:
    SmoothSheet(int width, int height, double penWidth = 1.0) : surface(width, height) {
        lines = surface.Smooth(true);
        Pen(penWidth);
    }

    void Pen(double width) { surface.SelectObject(lines->CreateFinePen(width, 0xFFFFFF)); }
    void Move(Place to) { lines->MoveToFine(Fine(to.x), Fine(to.y)); }
    void LineOn(Place to) { lines->LineToFine(Fine(to.x), Fine(to.y)); }
    /// A line through the places, in parts of a pixel as they can be told.
    void Line(const std::vector<Place>& places) {
        Move(places.front());
        for (const Place& place : places) {
            LineOn(place);
        }
    }
    int At(int x, int y) const { return qBlue(surface.Image().pixel(x, y)); }
    QImage Picture() const { return surface.Image().copy(); }

    ImageSurface surface;
    FineLines* lines = nullptr;

private:
    static std::int32_t Fine(double pixels) {
        return static_cast<std::int32_t>(std::floor(pixels * FinePerPixel));
    }
};

} // namespace quelmont
