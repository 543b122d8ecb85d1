#pragma once

#include "core/field_entry.h"

#include <QLineEdit>

#include <functional>
#include <string>

namespace quelmont {

/// A line for a text of fixed columns. It shows what a FieldEntry makes of keys, clicks and pastes. It is
/// as wide as its mask in any digits. Angles are as wide as a longitude, and their columns lie below
/// one another, in degrees of two digits as in those of three.
class MaskedEdit final : public QLineEdit {
public:
    /// What QLineEdit keeps free on both sides of its text, in pixels.
    static constexpr int LineMargin = 2;

    /// typed is called after each change that a person made.
    MaskedEdit(const std::string& mask, std::function<void(const std::string&)> typed, QWidget* parent);

    /// Shows another text; typed is not called.
    void Show(const std::string& text);
    /// Stands at the first column, where digits make a new value: the focus was given to the field
    /// by a key or by the program.
    void Enter();
    /// Finishes what was typed, as when the focus leaves.
    void Leave();
    const std::string& Mask() const { return entry.Field().Mask(); }
    /// Where the text's column of that number begins, in pixels from the left edge of the line.
    int LeftOf(std::size_t column) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool ChangeByKey(const QKeyEvent& event);
    bool MoveByKey(QKeyEvent* event);
    void PasteText(const QString& pasted);
    /// Does something to the entry where the line's cursor or selection is, shows what became of it
    /// and tells about it. A beep when the action answers that it refused.
    void Act(const std::function<bool()>& action);
    void Render();

    FieldEntry entry;
    std::function<void(const std::string&)> typed;
};

} // namespace quelmont
