#include "desktop/masked_edit.h"

#include "desktop/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>

namespace quelmont {

namespace {

constexpr std::string_view WidestAngle = "%%%    %%    %%    ?";

bool HasTwoDegreeDigits(std::string_view mask) { return mask.find(' ') == 2; }

/// A mask as a text in the widest letter.
QString Filled(std::string_view mask) {
    QString text = QString::fromLatin1(mask.data(), static_cast<qsizetype>(mask.size()));
    return text.replace(QLatin1Char('%'), QLatin1Char('0')).replace(QLatin1Char('?'), QLatin1Char('W'));
}

} // namespace

MaskedEdit::MaskedEdit(const std::string& mask, std::function<void(const std::string&)> typed_,
                       QWidget* parent)
    : QLineEdit(parent), entry(mask), typed(std::move(typed_)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A text that is dropped would not keep the columns.
    setAcceptDrops(false);
    if (HasTwoDegreeDigits(mask)) {
        ensurePolished();
        setTextMargins(fontMetrics().horizontalAdvance(QLatin1Char('0')), 0, 0, 0);
    }
    Render();
    // A screen reader changes the line itself: that is a paste over the whole.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& changed) {
        if (changed.toStdString() != entry.Text()) {
            entry.Select(0, entry.Text().size());
            entry.Paste(changed.toStdString());
            Render();
            typed(entry.Text());
        }
    });
}

void MaskedEdit::Render() {
    const QString shown = Text(entry.Text());
    if (text() != shown) {
        setText(shown);
    }
    setCursorPosition(static_cast<int>(entry.Cursor()));
}

void MaskedEdit::Show(const std::string& text) {
    if (entry.Text() != text) {
        entry.Show(text);
        Render();
    }
}

void MaskedEdit::Enter() {
    entry.Enter();
    Render();
}

void MaskedEdit::Leave() {
    entry.Leave();
    if (text().toStdString() != entry.Text()) {
        setText(Text(entry.Text()));
        typed(entry.Text());
    }
}

QSize MaskedEdit::sizeHint() const {
    ensurePolished();
    const QString widest = Filled(IsAngleMask(Mask()) ? WidestAngle : std::string_view(Mask()));
    QStyleOptionFrame option;
    initStyleOption(&option);
    // Two letters for the margins that the line keeps free at its ends.
    const QSize contents(fontMetrics().horizontalAdvance(widest) + fontMetrics().horizontalAdvance("00"),
                         QLineEdit::sizeHint().height());
    return {style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width(),
            contents.height()};
}

int MaskedEdit::LeftOf(std::size_t column) const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int text = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).left() +
                     textMargins().left() + LineMargin;
    return text + fontMetrics().horizontalAdvance(Filled(std::string_view(Mask()).substr(0, column)));
}

void MaskedEdit::Act(const std::function<bool()>& action) {
    if (hasSelectedText()) {
        entry.Select(static_cast<std::size_t>(selectionStart()), static_cast<std::size_t>(selectionEnd()));
    } else {
        const auto cursor = static_cast<std::size_t>(cursorPosition());
        entry.Select(cursor, cursor);
    }
    const std::string before = entry.Text();
    const bool done = action();
    if (!done) {
        QApplication::beep();
    }
    // What is refused leaves what is selected.
    if (done || entry.Text() != before) {
        Render();
        typed(entry.Text());
    }
}

void MaskedEdit::PasteText(const QString& pasted) {
    Act([&] { return entry.Paste(pasted.toStdString()); });
}

bool MaskedEdit::ChangeByKey(const QKeyEvent& event) {
    const auto always = [this](void (FieldEntry::*change)()) {
        Act([&] {
            (entry.*change)();
            return true;
        });
    };
    if (event.key() == Qt::Key_Backspace) {
        always(&FieldEntry::Backspace);
    } else if (event.matches(QKeySequence::Paste)) {
        PasteText(QApplication::clipboard()->text());
    } else if (event.key() == Qt::Key_Delete) {
        always(&FieldEntry::Delete);
    } else if (event.matches(QKeySequence::Undo)) {
        Act([this] { return entry.Undo(); });
    } else if (event.matches(QKeySequence::Redo)) {
        Act([this] { return entry.Redo(); });
    } else if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0 &&
               !event.text().isEmpty() && event.text().front().isPrint()) {
        Act([&] { return entry.Type(event.text().toStdString()); });
    } else {
        return false;
    }
    return true;
}

bool MaskedEdit::MoveByKey(QKeyEvent* event) {
    const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Left:
        if (plain) {
            const auto cursor = static_cast<std::size_t>(cursorPosition());
            entry.Select(cursor, cursor);
            event->key() == Qt::Key_Right ? entry.MoveRight() : entry.MoveLeft();
            setCursorPosition(static_cast<int>(entry.Cursor()));
            return true;
        }
        break;
    case Qt::Key_Home:
    case Qt::Key_End:
        break;
    default:
        return false;
    }
    QLineEdit::keyPressEvent(event);
    entry.MoveCursor(static_cast<std::size_t>(cursorPosition()));
    return true;
}

void MaskedEdit::keyPressEvent(QKeyEvent* event) {
    if (ChangeByKey(*event) || MoveByKey(event)) {
        return;
    }
    if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    // The line's other keys take columns away; what is none of its own is the dialog's.
    event->ignore();
}

void MaskedEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) {
        Act([&] { return entry.Type(event->commitString().toStdString()); });
    }
    event->accept();
}

void MaskedEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.addAction(tr("&Undo"), this, [this] { Act([this] { return entry.Undo(); }); })
        ->setEnabled(entry.CanUndo());
    menu.addSeparator();
    menu.addAction(tr("&Copy"), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    menu.addAction(tr("&Paste"), this, [this] { PasteText(QApplication::clipboard()->text()); });
    menu.addAction(tr("Select &All"), this, &QLineEdit::selectAll);
    menu.exec(event->globalPos());
}

void MaskedEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason) {
        Enter();
    }
}

void MaskedEdit::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        Leave();
    }
    QLineEdit::focusOutEvent(event);
}

void MaskedEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    QLineEdit::mousePressEvent(event);
    if (!hasSelectedText()) {
        entry.MoveCursor(static_cast<std::size_t>(cursorPosition()));
    }
}

void MaskedEdit::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QApplication::clipboard();
    if (event->button() == Qt::LeftButton) {
        QLineEdit::mouseReleaseEvent(event);
    } else if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        Enter();
        PasteText(clipboard->text(QClipboard::Selection));
    }
}

void MaskedEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        selectAll();
    }
}

} // namespace quelmont
