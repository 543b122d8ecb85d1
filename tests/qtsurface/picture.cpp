#include "qtsurface/picture.h"

namespace quelmont {

Sheet::Sheet(int width, int height, int penWidth) : surface(width, height) {
    surface.Clear(White);
    surface.SelectObject(surface.CreatePen(PenStyleSolid, penWidth, Red));
    surface.SelectObject(surface.GetStockObject(StockNullBrush));
}

void Sheet::Line(SurfacePoint from, SurfacePoint to) {
    surface.MoveToEx(from.x, from.y);
    surface.LineTo(to.x, to.y);
}

std::vector<std::string> Sheet::Rows() const {
    const QImage image = surface.Image();
    std::vector<std::string> rows;
    for (int y = 0; y < image.height(); ++y) {
        std::string& row = rows.emplace_back();
        for (int x = 0; x < image.width(); ++x) {
            switch (image.pixel(x, y)) {
            case 0xFFFF0000:
                row += '#';
                break;
            case 0xFF0000FF:
                row += 'o';
                break;
            case 0xFFFFFFFF:
                row += '.';
                break;
            default:
                row += '?';
                break;
            }
        }
    }
    return rows;
}

std::set<std::pair<int, int>> Sheet::RedPixels() const {
    std::set<std::pair<int, int>> pixels;
    const QImage image = surface.Image();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == 0xFFFF0000) {
                pixels.emplace(x, y);
            }
        }
    }
    return pixels;
}

} // namespace quelmont
