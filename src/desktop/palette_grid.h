#pragma once

#include "platform/form.h"

#include <QColor>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <vector>

namespace quelmont {

/// A colour 0x00BBGGRR.
QColor QColorOf(std::uint32_t value);

/// Cells of colours in rows. The one in use has a mark, the one under the mouse or the arrow keys a
/// frame; a release of the mouse or Enter chooses. A screen reader reads the cell's colour.
class PaletteGrid final : public QWidget {
public:
    /// hovered is called with the cell under the mouse or -1, chosen with the cell that was taken.
    PaletteGrid(std::function<void(int)> hovered, std::function<void(int)> chosen, QWidget* parent);

    void Show(const Control& control);
    /// Pixels of a cell, of equal sides.
    int CellSize() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int Rows() const;
    QRect CellRect(int cell) const;
    /// The cell at a place, whose left and upper border belong to it; -1 beyond the last.
    int CellAt(QPointF place) const;
    int AfterKey(int key) const;
    void Frame(QPainter& painter, int cell, bool inUse) const;

    std::function<void(int)> hovered;
    std::function<void(int)> chosen;
    std::vector<std::uint32_t> colors;
    int columns = 1;
    int current = -1;
    int marked = -1;
    QString words; ///< last given to screen readers
};

} // namespace quelmont
