#pragma once

#include "platform/masked_text.h"

#include <QLineEdit>

#include <functional>
#include <string>

namespace quelmont {

/// A line for a text of fixed columns: digits are typed over, the cursor passes over what stands
/// between them. It is as wide as its mask in any digits.
class MaskedEdit final : public QLineEdit {
public:
    /// typed is called after each change that a person made.
    MaskedEdit(const std::string& mask, std::function<void(const std::string&)> typed, QWidget* parent);

    /// Shows another text; typed is not called.
    void Show(const std::string& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    /// Where typing goes on: the beginning of what is selected, else the cursor.
    int Start() const { return hasSelectedText() ? selectionStart() : cursorPosition(); }
    bool MoveCursor(QKeyEvent* event);
    bool EraseByKey(QKeyEvent* event);
    void TypeText(const QString& characters);
    void PasteText();
    /// Shows the text with the cursor there, and tells about it.
    void Typed(std::size_t cursor);

    MaskedText masked;
    std::function<void(const std::string&)> typed;
};

} // namespace quelmont
