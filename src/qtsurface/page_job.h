#pragma once

#include "platform/printers.h"
#include "qtsurface/page_surface.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <cstdint>
#include <functional>

class QPagedPaintDevice;

namespace quelmont {

/// What jobs on paper and in a file have in common: pages of a device, one painter for all of them.
class PageJob : public PrintJob {
public:
    PageJob(const PageJob&) = delete;
    PageJob& operator=(const PageJob&) = delete;

    DrawSurface& Surface() override { return surface; }
    /// Holds for all pages that begin after it.
    bool SelectClip(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool StartPage() override;
    int EndPage() override;

protected:
    /// As the constructor of PageSurface.
    explicit PageJob(std::size_t vertices = 0, std::function<void()> afterVertices = {})
        : surface(vertices, std::move(afterVertices)) {}

    /// Begins on the device, which must outlive the painting. The corner of the printable area in its dots.
    bool BeginPainting(QPagedPaintDevice& onto, QPointF printableCorner = {});
    bool IsPainting() const { return painter.isActive(); }
    /// Ends what was begun; true when there was something to end.
    bool EndPainting();
    /// Whether everything so far has gone where it should.
    virtual bool IsSound() { return true; }
    /// A page was begun that is not the first.
    virtual void PageAdded() {}

private:
    QPainter painter;
    PageSurface surface;
    QPagedPaintDevice* device = nullptr;
    QPointF corner;
    QRectF clip;
    bool hasPages = false;
};

} // namespace quelmont
