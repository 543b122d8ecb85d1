#include "desktop/letter_sample.h"

#include "desktop/palette_grid.h"
#include "desktop/qt_text.h"
#include "desktop/window_place.h"

#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace quelmont {

namespace {

constexpr double TwipsPerPoint = 20.0;
/// What a sample takes in heights of the dialog's own letters.
constexpr QSize WordSize(14, 5);
constexpr QSize SwatchSize(4, 2);
/// Space before the text, in heights of the dialog's letters.
constexpr double Margin = 0.5;

} // namespace

LetterSample::LetterSample(QWidget* parent) : QFrame(parent) {
    setFrameShape(StyledPanel);
    setFrameShadow(Sunken);
}

void LetterSample::Show(const Control& control) {
    text = Text(control.text);
    letters = control.letters;
    update();
}

QSize LetterSample::sizeHint() const {
    return (text.isEmpty() ? SwatchSize : WordSize) * fontMetrics().height();
}

void LetterSample::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRect(contentsRect());
    painter.fillRect(contentsRect(), QColorOf(letters.background));
    if (!text.isEmpty()) {
        QFont font(Text(letters.fontName));
        font.setPixelSize(std::max(1, qRound(letters.points * TwipsPerPoint / TwipsPerUnit(*screen()))));
        font.setBold(letters.bold);
        font.setItalic(letters.italic);
        font.setUnderline(letters.underline);
        font.setStrikeOut(letters.strikeout);
        const int margin = qRound(fontMetrics().height() * Margin);
        painter.setFont(font);
        painter.setPen(QColorOf(letters.color));
        painter.drawText(contentsRect().adjusted(margin, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
    painter.end();
    QFrame::paintEvent(event);
}

} // namespace quelmont
