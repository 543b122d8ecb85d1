#include "qtsurface/page_job.h"

#include <QPagedPaintDevice>

namespace quelmont {

namespace {

constexpr int PageFailed = -1;

} // namespace

bool PageJob::SelectClip(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    if (left > right || top > bottom) {
        return false;
    }
    clip = QRectF(QPointF(left, top), QPointF(right, bottom));
    return true;
}

bool PageJob::BeginPainting(QPagedPaintDevice& onto, QPointF printableCorner) {
    if (IsPainting() || !painter.begin(&onto)) {
        return false;
    }
    device = &onto;
    corner = printableCorner;
    return true;
}

bool PageJob::StartPage() {
    if (!IsPainting() || (hasPages && !device->newPage())) {
        return false;
    }
    if (hasPages) {
        PageAdded();
    }
    hasPages = true;
    surface.Begin(painter, corner, clip);
    return IsSound();
}

int PageJob::EndPage() {
    surface.End();
    return hasPages && IsPainting() && IsSound() ? 1 : PageFailed;
}

bool PageJob::EndPainting() {
    surface.End();
    return IsPainting() && painter.end();
}

} // namespace quelmont
