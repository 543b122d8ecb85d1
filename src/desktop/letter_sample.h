#pragma once

#include "platform/form.h"

#include <QFrame>

namespace quelmont {

/// A text in a font, a size, a style and colours of its own, as large as it is on the map. What has no room
/// in the frame is cut off. Without a text it is a small field of its background.
class LetterSample final : public QFrame {
public:
    explicit LetterSample(QWidget* parent);

    void Show(const Control& control);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text;
    SampleLetters letters;
};

} // namespace quelmont
