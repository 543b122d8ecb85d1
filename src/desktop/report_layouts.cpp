#include "desktop/report_layouts.h"

#include "desktop/form_view.h"
#include "desktop/page_view.h"
#include "desktop/qt_text.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace quelmont {

namespace {

/// The keys that move a text move the report, whatever has the focus.
void AddScrolling(FormView& view, QScrollBar& bar) {
    for (const auto& [key, action] : {std::pair{Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
                                      {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
                                      {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
                                      {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
                                      {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
                                      {Qt::Key_End, QAbstractSlider::SliderToMaximum}}) {
        auto* shortcut = new QShortcut(key, &view);
        QObject::connect(shortcut, &QShortcut::activated, &bar,
                         [&bar, action = action] { bar.triggerAction(action); });
    }
}

} // namespace

void LayOutReportBox(FormView& view) {
    view.AddMenu("mnuOptions");
    PageView* page = view.AddPage("ReportRtb");
    view.Column()->addWidget(page);
    AddScrolling(view, *page->verticalScrollBar());
    view.AddButtons({"Close"});
}

void LayOutReportMargins(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Help"));
    view.AddFrame("ReportOrientation");
    view.AddFrame("ReportUnits");
    auto* group = new QGroupBox(&view);
    view.Bind("ReportFrame", group, [group](const Control& control) { group->setTitle(Text(control.text)); });
    auto* fields = new QGridLayout(group);
    fields->setHorizontalSpacing(view.Gap());
    int place = 0;
    for (const char* const name : {"RptTbLeft", "RptTbRight", "RptTbTop", "RptTbBottom"}) {
        QWidget* field = view.AddField(name);
        fields->addWidget(view.CaptionOf(field), place / 2, place % 2 * 2);
        fields->addWidget(field, place / 2, place % 2 * 2 + 1, Qt::AlignLeft);
        ++place;
    }
    fields->setColumnStretch(3, 1);
    view.Column()->addWidget(group);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
