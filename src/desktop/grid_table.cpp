#include "desktop/grid_table.h"

#include "desktop/palette_grid.h"
#include "desktop/qt_text.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

constexpr int FillRole = Qt::UserRole;
constexpr int PictureRole = Qt::UserRole + 1;

/// Widths of pictures in heights of a row.
constexpr int PictureWidth = 2;

/// Paints the cells of a grid.
class CellPainter final : public QStyledItemDelegate {
public:
    CellPainter(GridTable::Painter picture_, QTableWidget* table_)
        : QStyledItemDelegate(table_), picture(std::move(picture_)), table(table_) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem item(option);
        initStyleOption(&item, index);
        const bool isList = table->columnCount() == 1;
        const bool isCurrent = table->currentIndex() == index;
        item.state &= ~QStyle::State_HasFocus;
        if (index.data(PictureRole).toInt() != 0) {
            TakePicture(item, index.data(PictureRole).toInt());
        }
        table->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, table);
        if (const QVariant fill = index.data(FillRole); fill.isValid()) {
            PaintSwatch(*painter, item, fill.value<QColor>());
        }
        if (isCurrent && isList && table->hasFocus()) {
            PaintFocus(*painter, item);
        } else if (isCurrent && !isList) {
            PaintFrame(*painter, item);
        }
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const bool hasPicture = index.data(PictureRole).toInt() != 0;
        return hasPicture ? size + QSize(PictureSize(table->rowHeight(index.row())).width(), 0) : size;
    }

private:
    static QSize PictureSize(int rowHeight) { return {PictureWidth * rowHeight, rowHeight - 2}; }

    void TakePicture(QStyleOptionViewItem& item, int number) const {
        const bool chosen = (item.state & QStyle::State_Selected) != 0;
        const auto group = (item.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
        const QSize size = PictureSize(item.rect.height());
        const qreal ratio = table->devicePixelRatioF();
        QPixmap pixmap = QPixmap::fromImage(
            picture(number, size * ratio,
                    item.palette.color(group, chosen ? QPalette::HighlightedText : QPalette::Text),
                    item.palette.color(group, chosen ? QPalette::Highlight : QPalette::Base)));
        pixmap.setDevicePixelRatio(ratio);
        item.features |= QStyleOptionViewItem::HasDecoration;
        item.decorationSize = size;
        item.icon = QIcon(pixmap);
        // Otherwise the style would tint the picture of the chosen row once more.
        item.icon.addPixmap(pixmap, QIcon::Selected);
    }

    static void PaintSwatch(QPainter& painter, const QStyleOptionViewItem& item, const QColor& color) {
        const QRect place = item.rect.adjusted(4, 3, -4, -3);
        painter.fillRect(place, item.palette.color(QPalette::Text));
        painter.fillRect(place.adjusted(1, 1, -1, -1), color);
    }

    void PaintFocus(QPainter& painter, const QStyleOptionViewItem& item) const {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(item);
        focus.state |= QStyle::State_KeyboardFocusChange;
        focus.backgroundColor = item.palette.color(QPalette::Highlight);
        table->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, table);
    }

    void PaintFrame(QPainter& painter, const QStyleOptionViewItem& item) const {
        const bool focus = table->hasFocus();
        painter.save();
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(item.palette.color(focus ? QPalette::Highlight : QPalette::Mid), focus ? 2 : 1));
        painter.drawRect(item.rect.adjusted(1, 1, -1, -1));
        painter.restore();
    }

    GridTable::Painter picture;
    QTableWidget* table;
};

} // namespace

GridTable::GridTable(std::function<void(int)> moved_, std::function<void(int)> pressed_, Painter painter,
                     QWidget* parent)
    : QTableWidget(parent), moved(std::move(moved_)), pressed(std::move(pressed_)) {
    setItemDelegate(new CellPainter(std::move(painter), this));
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    connect(this, &QTableWidget::currentCellChanged, this,
            [this](int row, int column) { moved(row * columnCount() + column); });
    connect(this, &QTableWidget::cellClicked, this,
            [this](int row, int column) { pressed(row * columnCount() + column); });
}

void GridTable::Show(const Control& control) {
    const QSignalBlocker quiet(this);
    setAccessibleDescription(Text(control.text));
    ShowHeadings(control.items);
    const int columns = std::max(1, control.columns);
    setRowCount(static_cast<int>(control.cells.size()) / columns);
    for (std::size_t number = 0; number < control.cells.size(); ++number) {
        if (number >= shown.size() || shown[number] != control.cells[number]) {
            ShowCell(static_cast<int>(number), control.cells[number]);
        }
    }
    if (shown.size() != control.cells.size()) {
        AlignBlanks();
    }
    shown = control.cells;
    MoveTo(control.value);
    setEnabled(control.enabled);
}

void GridTable::ShowHeadings(const std::vector<std::string>& headings) {
    setColumnCount(static_cast<int>(headings.size()));
    // What has one column has its heading above it, and a row is chosen, not a cell.
    horizontalHeader()->setVisible(columnCount() > 1);
    setSelectionMode(columnCount() > 1 ? NoSelection : SingleSelection);
    for (int column = 0; column < columnCount(); ++column) {
        const QString text = Text(headings[static_cast<std::size_t>(column)]);
        QTableWidgetItem* heading = horizontalHeaderItem(column);
        if (heading == nullptr) {
            heading = new QTableWidgetItem;
            setHorizontalHeaderItem(column, heading);
        }
        heading->setText(text);
    }
    // The last column holds names, which begin at its left.
    if (columnCount() > 1) {
        horizontalHeaderItem(columnCount() - 1)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void GridTable::ShowCell(int number, const GridCell& cell) {
    const int row = number / columnCount();
    const int column = number % columnCount();
    QTableWidgetItem* place = item(row, column);
    if (place == nullptr) {
        place = new QTableWidgetItem;
        setItem(row, column, place);
    }
    const QString text = Text(cell.text);
    place->setText(text);
    place->setTextAlignment(column == columnCount() - 1 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    place->setForeground(cell.textColor == 0 ? QBrush() : QBrush(QColorOf(cell.textColor)));
    place->setData(FillRole, cell.color ? QVariant(QColorOf(*cell.color)) : QVariant());
    place->setData(PictureRole, cell.picture);
    // The form turns it, not the table.
    place->setFlags(place->flags() & ~Qt::ItemIsUserCheckable);
    place->setData(Qt::CheckStateRole,
                   cell.checked ? QVariant(*cell.checked ? Qt::Checked : Qt::Unchecked) : QVariant());
    place->setData(Qt::AccessibleTextRole, cell.words.empty() ? text : Text(cell.words));
}

void GridTable::AlignBlanks() {
    for (int column = 0; column < columnCount(); ++column) {
        bool blanks = false;
        for (int row = 0; row < rowCount(); ++row) {
            blanks = blanks || item(row, column)->text().contains(QLatin1String("  "));
        }
        for (int row = 0; blanks && row < rowCount(); ++row) {
            QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
            fixed.setPointSizeF(font().pointSizeF());
            item(row, column)->setFont(fixed);
        }
    }
}

void GridTable::MoveTo(int number) {
    if (number >= 0) {
        setCurrentCell(number / columnCount(), number % columnCount());
    } else {
        setCurrentItem(nullptr);
    }
}

void GridTable::ReserveHeading(int column, const QString& heading) {
    QTableWidgetItem* item = horizontalHeaderItem(column);
    const QString before = item->text();
    item->setText(heading);
    reserved[column] = horizontalHeader()->sectionSizeHint(column);
    item->setText(before);
}

void GridTable::Fit(int rows, int mostWidth) {
    int width = 2 * frameWidth();
    for (int column = 0; column < columnCount(); ++column) {
        const int content = std::max(horizontalHeader()->sectionSizeHint(column), sizeHintForColumn(column));
        setColumnWidth(column, std::max(content, reserved[column]) + fontMetrics().averageCharWidth());
        width += columnWidth(column);
    }
    int height = 2 * frameWidth() + rows * verticalHeader()->defaultSectionSize();
    if (columnCount() > 1) {
        height += horizontalHeader()->sizeHint().height();
    }
    if (rowCount() > rows) {
        width += verticalScrollBar()->sizeHint().width();
    }
    // The last column takes what is left when there is enough for all.
    horizontalHeader()->setStretchLastSection(width <= mostWidth);
    if (width > mostWidth) {
        height += horizontalScrollBar()->sizeHint().height();
    }
    setFixedSize(std::min(width, mostWidth), height);
}

void GridTable::FillHeight(int height) {
    setFixedHeight(height);
    verticalHeader()->setDefaultSectionSize((height - 2 * frameWidth()) / std::max(1, rowCount()));
}

void GridTable::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
        if (currentItem() != nullptr) {
            pressed(currentRow() * columnCount() + currentColumn());
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        event->ignore(); // the dialog's
        break;
    default:
        QTableWidget::keyPressEvent(event);
    }
}

void GridTable::mouseMoveEvent(QMouseEvent* event) {
    // A press chooses; a mouse that is drawn over other cells does not.
    event->accept();
}

} // namespace quelmont
