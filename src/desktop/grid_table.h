#pragma once

#include "platform/form.h"

#include <QTableWidget>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace quelmont {

/// A grid of a form. In a grid of one column the current row is filled, like a list's line, and the
/// heading is left to the caption above it; in a wider one the current cell has a frame, so that the
/// colour of its text stays to be seen. A press and the arrow keys move to a cell, a click and the
/// space bar press it.
class GridTable final : public QTableWidget {
public:
    /// Paints the picture of a number in a size of device pixels.
    using Painter = std::function<QImage(int number, QSize size, const QColor& ink, const QColor& paper)>;

    /// moved and pressed are called with the number of a cell.
    GridTable(std::function<void(int)> moved, std::function<void(int)> pressed, Painter painter,
              QWidget* parent);

    void Show(const Control& control);
    /// Keeps room in a column for another heading.
    void ReserveHeading(int column, const QString& heading);
    /// Makes room for a number of rows and for all columns, at most so many pixels wide.
    void Fit(int rows, int mostWidth);
    /// Takes a height, in which all rows are seen.
    void FillHeight(int height);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void ShowHeadings(const std::vector<std::string>& headings);
    void ShowCell(int number, const GridCell& cell);
    /// Runs of blanks line up parts of the texts, which needs letters of one width.
    void AlignBlanks();
    void MoveTo(int number);

    std::function<void(int)> moved;
    std::function<void(int)> pressed;
    std::vector<GridCell> shown;
    std::map<int, int> reserved; ///< pixels of a column
};

} // namespace quelmont
