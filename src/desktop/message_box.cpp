#include "desktop/message_box.h"

#include "desktop/qt_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QSpacerItem>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <array>

namespace quelmont {

namespace {

/// Stands for "Recall", which is no button of Qt's.
constexpr QMessageBox::StandardButton RecallButton = QMessageBox::Open;

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::SaveDiscardCancel:
        return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    case BoxButtons::RecallDiscard:
        return RecallButton | QMessageBox::Discard;
    case BoxButtons::AbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// What Escape and the close button press; no button where closing is an answer of its own.
QMessageBox::StandardButton EscapeOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::RetryCancel:
    case BoxButtons::SaveDiscardCancel:
        return QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::No;
    case BoxButtons::RecallDiscard:
        return QMessageBox::NoButton;
    case BoxButtons::AbortRetryIgnore:
        return QMessageBox::Abort;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
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
    case QMessageBox::Abort:
        return BoxAnswer::Abort;
    case QMessageBox::Ignore:
        return BoxAnswer::Ignore;
    case QMessageBox::Save:
        return BoxAnswer::Save;
    case QMessageBox::Discard:
        return BoxAnswer::Discard;
    case RecallButton:
        return BoxAnswer::Recall;
    case QMessageBox::NoButton:
        return BoxAnswer::Cancel;
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
    setAccessibleDescription(Text(text)); // what is read out when the box comes
    setIcon(icon == BoxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::Information);
    setStandardButtons(ButtonsOf(buttons));
    setEscapeButton(EscapeOf(buttons));
    if (buttons == BoxButtons::SaveDiscardCancel) {
        // A letter presses the button that it is the mnemonic of: none may throw work away at a slip.
        button(QMessageBox::Save)->setText(QStringLiteral("&Save"));
        button(QMessageBox::Discard)->setText(QStringLiteral("Discard"));
        button(QMessageBox::Cancel)->setText(QStringLiteral("&Cancel"));
    }
    if (buttons == BoxButtons::RecallDiscard) {
        button(RecallButton)->setText(QStringLiteral("&Recall"));
        button(QMessageBox::Discard)->setText(QStringLiteral("Discard"));
        setDefaultButton(RecallButton);
    }
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

BoxAnswer MessageBox::Ask() {
    setWindowModality(Qt::WindowModal);
    return AnswerOf(exec());
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && escapeButton() == nullptr) {
        done(QMessageBox::NoButton);
    } else {
        QMessageBox::keyPressEvent(event);
    }
}

void MessageBox::closeEvent(QCloseEvent* event) {
    if (escapeButton() == nullptr) {
        done(QMessageBox::NoButton);
    } else {
        QMessageBox::closeEvent(event);
    }
}

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
