#include "desktop/status_line.h"

#include "desktop/qt_text.h"

#include <QLabel>
#include <QProgressBar>

namespace quelmont {

namespace {

constexpr int WholePercent = 100;
/// Of the bar, units of the screen.
constexpr int BarWidth = 160;
constexpr qint64 MoveMilliseconds = 33;

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent), label(new QLabel(this)), bar(new QProgressBar(this)) {
    setAccessibleName(QStringLiteral("Status Line"));
    // The window's frame has its own edges to be drawn by.
    setSizeGripEnabled(false);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->setAccessibleDescription(QStringLiteral("What the program is doing, or the place of the mouse"));
    bar->setAccessibleName(QStringLiteral("Map files read"));
    bar->setRange(0, WholePercent);
    bar->setFixedWidth(BarWidth);
    bar->setMaximumHeight(label->sizeHint().height()); // the line is no higher than its text needs
    // It comes and goes, the line's height stays.
    QSizePolicy policy = bar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    bar->setSizePolicy(policy);
    addWidget(label, 1);
    addPermanentWidget(bar);
    bar->hide();
    setFixedHeight(sizeHint().height());
}

void StatusLine::SetText(std::string_view text) {
    const QString shown = quelmont::Text(text);
    if (shown != label->text()) {
        label->setText(shown);
    }
}

QString StatusLine::Text() const { return label->text(); }

void StatusLine::SetProgress(std::optional<double> share) {
    if (!share) {
        bar->hide();
        sinceMove.invalidate();
        return;
    }
    const int percent = static_cast<int>(*share * WholePercent);
    if (sinceMove.isValid() && (percent == bar->value() || sinceMove.elapsed() < MoveMilliseconds)) {
        return;
    }
    bar->setValue(percent);
    bar->show();
    sinceMove.start();
}

std::optional<int> StatusLine::Percent() const {
    return bar->isHidden() ? std::nullopt : std::optional(bar->value());
}

} // namespace quelmont
