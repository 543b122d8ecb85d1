#pragma once

#include "platform/form.h"

#include <QTextEdit>

namespace quelmont {

/// A text in columns on white paper, to be read, in the size that it has when it is printed. It is as large
/// as its text, or as the room that it is given, and then it scrolls.
class PageView final : public QTextEdit {
public:
    PageView(QSize room_, QWidget* parent);

    void Show(const Control& control);
    /// The room that is left for it.
    void SetRoom(QSize room_);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Fill();

    QSize room;
    std::vector<PageLine> lines;
    SampleLetters letters;
};

} // namespace quelmont
