#include "desktop/masked_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionFrame>

namespace quelmont {

MaskedEdit::MaskedEdit(const std::string& mask, std::function<void(const std::string&)> typed_,
                       QWidget* parent)
    : QLineEdit(parent), masked(mask), typed(std::move(typed_)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A text that is dropped would not keep the columns.
    setAcceptDrops(false);
    setText(QString::fromStdString(masked.Text()));
    setCursorPosition(0);
}

void MaskedEdit::Show(const std::string& text) {
    if (masked.Text() == text) {
        return;
    }
    masked.SetText(text);
    const int cursor = cursorPosition();
    setText(QString::fromStdString(masked.Text()));
    setCursorPosition(cursor);
}

QSize MaskedEdit::sizeHint() const {
    ensurePolished();
    QString widest = QString::fromStdString(masked.Mask());
    widest.replace(QLatin1Char('%'), QLatin1Char('0')).replace(QLatin1Char('?'), QLatin1Char('W'));
    QStyleOptionFrame option;
    initStyleOption(&option);
    // Two letters for the margins that the line keeps free at its ends.
    const QSize contents(fontMetrics().horizontalAdvance(widest) + fontMetrics().horizontalAdvance("00"),
                         QLineEdit::sizeHint().height());
    return {style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width(),
            contents.height()};
}

void MaskedEdit::Typed(std::size_t cursor) {
    setText(QString::fromStdString(masked.Text()));
    setCursorPosition(static_cast<int>(cursor));
    typed(masked.Text());
}

void MaskedEdit::TypeText(const QString& characters) {
    auto cursor = static_cast<std::size_t>(Start());
    for (const QChar c : characters) {
        if (!masked.Type(cursor, c.toLatin1())) {
            QApplication::beep();
            break;
        }
    }
    Typed(cursor);
}

void MaskedEdit::PasteText() {
    auto cursor = static_cast<std::size_t>(Start());
    const QByteArray pasted = QApplication::clipboard()->text().trimmed().toLatin1();
    if (masked.Paste(cursor, std::string_view(pasted.data(), static_cast<std::size_t>(pasted.size())))) {
        Typed(cursor);
    } else {
        QApplication::beep();
    }
}

bool MaskedEdit::MoveCursor(QKeyEvent* event) {
    if (event->modifiers() != Qt::NoModifier && event->modifiers() != Qt::KeypadModifier) {
        return false;
    }
    const auto cursor = static_cast<std::size_t>(cursorPosition());
    if (event->key() == Qt::Key_Right) {
        setCursorPosition(static_cast<int>(masked.PlaceFrom(cursor + 1)));
    } else if (event->key() == Qt::Key_Left) {
        setCursorPosition(static_cast<int>(masked.PlaceBefore(cursor)));
    } else {
        return false;
    }
    return true;
}

bool MaskedEdit::EraseByKey(QKeyEvent* event) {
    if (event->key() != Qt::Key_Backspace && event->key() != Qt::Key_Delete) {
        return false;
    }
    auto first = static_cast<std::size_t>(cursorPosition());
    std::size_t last = first;
    std::size_t cursor = first;
    if (hasSelectedText()) {
        first = static_cast<std::size_t>(selectionStart());
        last = static_cast<std::size_t>(selectionEnd());
        cursor = first;
    } else if (event->key() == Qt::Key_Backspace) {
        first = masked.PlaceBefore(last);
        cursor = first;
    } else {
        first = masked.PlaceFrom(first);
        last = first + 1;
        cursor = masked.PlaceFrom(last);
    }
    masked.Erase(first, last);
    Typed(cursor);
    return true;
}

void MaskedEdit::keyPressEvent(QKeyEvent* event) {
    if (MoveCursor(event) || EraseByKey(event)) {
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        PasteText();
    } else if (event->matches(QKeySequence::Cut) || event->matches(QKeySequence::Undo) ||
               event->matches(QKeySequence::Redo)) {
        return; // would take columns away
    } else if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
               !event->text().isEmpty() && event->text().front().isPrint()) {
        TypeText(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void MaskedEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) {
        TypeText(event->commitString());
    }
    event->accept();
}

void MaskedEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction(tr("&Copy"), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    menu.addAction(tr("&Paste"), this, [this] { PasteText(); });
    menu.addAction(tr("Select &All"), this, &QLineEdit::selectAll);
    menu.exec(event->globalPos());
}

void MaskedEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason) {
        setCursorPosition(static_cast<int>(masked.PlaceFrom(0)));
    }
}

} // namespace quelmont
