#include "desktop/message_box.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QGridLayout>
#include <QScreen>
#include <QSpacerItem>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <array>

namespace quelmont {

namespace {

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// What Escape and the close button press.
QMessageBox::StandardButton EscapeOf(BoxButtons buttons) {
    return buttons == BoxButtons::RetryCancel ? QMessageBox::Cancel
           : buttons == BoxButtons::YesNo     ? QMessageBox::No
                                              : QMessageBox::Ok;
}

BoxAnswer AnswerOf(int pressed) {
    switch (pressed) {
    case QMessageBox::Retry:
        return BoxAnswer::Retry;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    default:
        return BoxAnswer::Ok;
    }
}

/// What a window manager puts into a title bar beside the title, in heights of the bar: an icon, up to
/// four buttons and the gaps between them.
constexpr int TitleBarParts = 6;

/// What the sides of a window's frame take of the screen, at most.
constexpr int FrameSides = 16;

/// Units that stay free between a part and the message box.
constexpr int Distance = 8;

/// Moves a span of a length into limits as far as it has room there.
int Within(int first, int length, int lowest, int highest) {
    return std::max(lowest, std::min(first, highest - length + 1));
}

} // namespace

QPoint BesidePart(QSize box, const QRect& part, const QRect& dialog, const QRect& screen) {
    const int x = Within(part.left(), box.width(), screen.left(), screen.right());
    const int y = Within(part.top(), box.height(), screen.top(), screen.bottom());
    const std::array places = {
        QPoint(dialog.right() + 1, y),           QPoint(dialog.left() - box.width(), y),
        QPoint(x, part.bottom() + 1 + Distance), QPoint(x, part.top() - Distance - box.height()),
        QPoint(part.right() + 1 + Distance, y),  QPoint(part.left() - Distance - box.width(), y),
    };
    for (const QPoint& place : places) {
        if (screen.contains(QRect(place, box))) {
            return place;
        }
    }
    const bool below = screen.bottom() - part.bottom() > part.top() - screen.top();
    return {x, below ? std::max(screen.top(), screen.bottom() - box.height() + 1) : screen.top()};
}

MessageBox::MessageBox(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon,
                       QWidget* parent)
    : QMessageBox(parent) {
    setWindowTitle(Text(title));
    setTextFormat(Qt::PlainText);
    setText(Text(text));
    setIcon(icon == BoxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::Information);
    setStandardButtons(ButtonsOf(buttons));
    setEscapeButton(EscapeOf(buttons));
    MakeRoomForTitle();
}

void MessageBox::MakeRoomForTitle() {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) {
        return;
    }
    QFont bold = QApplication::font("QMdiSubWindowTitleBar");
    bold.setBold(true);
    const int parts = TitleBarParts * style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int width = std::min(QFontMetrics(bold).horizontalAdvance(windowTitle()) + parts,
                               screen()->availableGeometry().width() - FrameSides);
    const QMargins margins = grid->contentsMargins();
    grid->addItem(new QSpacerItem(width - margins.left() - margins.right(), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
}

BoxAnswer MessageBox::Ask() { return AnswerOf(exec()); }

BoxAnswer MessageBox::AnswerWithoutButton(BoxButtons buttons) { return AnswerOf(EscapeOf(buttons)); }

void MessageBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event);
    const QWidget* below = parentWidget();
    if (!spokenOf || below == nullptr) {
        return;
    }
    const QRect dialog = below->frameGeometry();
    // The frame of the message box is not there yet; it will be that of its dialog.
    const QSize frame = dialog.size() - below->size();
    const QRect part =
        spokenOf->isEmpty() ? dialog : QRect(below->mapToGlobal(spokenOf->topLeft()), spokenOf->size());
    const QPoint place = BesidePart(size() + frame, part, dialog, screen()->availableGeometry());
    move(place);
    // As long as its frame is not known, move would put the inside of the window there.
    windowHandle()->setFramePosition(place);
}

} // namespace quelmont
