#include "desktop/page_view.h"

#include "desktop/palette_grid.h"
#include "desktop/qt_text.h"
#include "desktop/window_place.h"

#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

constexpr double TwipsPerPoint = 20.0;
constexpr double PointsPerInch = 72.0;
/// Lines that are seen at most, in heights of the dialog's letters.
constexpr int LinesSeen = 36;

} // namespace

PageView::PageView(QSize room_, QWidget* parent) : QTextEdit(parent), room(room_) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PageView::Show(const Control& control) {
    if (control.page == lines && control.letters == letters) {
        return;
    }
    lines = control.page;
    letters = control.letters;
    Fill();
    updateGeometry();
}

void PageView::SetRoom(QSize room_) {
    room = room_;
    updateGeometry();
}

void PageView::Fill() {
    QFont font(Text(letters.fontName));
    const double unitsPerPoint = TwipsPerPoint / TwipsPerUnit(*screen());
    font.setPointSizeF(std::max(1.0, letters.points * unitsPerPoint * PointsPerInch / logicalDpiY()));
    font.setBold(letters.bold);
    font.setItalic(letters.italic);
    font.setUnderline(letters.underline);
    font.setStrikeOut(letters.strikeout);
    // Columns were measured by the widths that the font's designer gave its letters.
    font.setHintingPreference(QFont::PreferNoHinting);
    QPalette paper = palette();
    paper.setColor(QPalette::Base, QColorOf(letters.background));
    paper.setColor(QPalette::Text, QColorOf(letters.color));
    setPalette(paper);
    clear();
    document()->setDefaultFont(font);
    QTextCharFormat look;
    look.setFont(font);
    look.setForeground(QColorOf(letters.color));
    QTextCursor cursor(document());
    bool first = true;
    for (const PageLine& line : lines) {
        QTextBlockFormat columns;
        QList<QTextOption::Tab> stops;
        for (const std::int32_t stop : line.stops) {
            stops.append(QTextOption::Tab(stop / TwipsPerUnit(*screen()), QTextOption::LeftTab));
        }
        columns.setTabPositions(stops);
        if (first) {
            cursor.setBlockFormat(columns);
        } else {
            cursor.insertBlock(columns);
        }
        first = false;
        QStringList cells;
        for (const std::string& cell : line.cells) {
            cells.append(Text(cell));
        }
        cursor.insertText(cells.join(QLatin1Char('\t')), look);
    }
    setTextCursor(QTextCursor(document()));
    verticalScrollBar()->setValue(0);
}

void PageView::showEvent(QShowEvent* event) {
    QTextEdit::showEvent(event);
    verticalScrollBar()->setValue(0); // the edge above the first line is seen, too
}

QSize PageView::sizeHint() const {
    const int frame = 2 * frameWidth();
    const auto wanted = static_cast<int>(std::ceil(document()->idealWidth()));
    const int width = wanted + frame + verticalScrollBar()->sizeHint().width();
    const int height = LinesSeen * fontMetrics().height() + frame;
    return {std::min(width, room.width()), std::min(height, room.height())};
}

} // namespace quelmont
