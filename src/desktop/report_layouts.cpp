#include "desktop/report_layouts.h"

#include "desktop/form_view.h"
#include "desktop/page_view.h"

#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace quelmont {

namespace {

/// The keys that move a text move the report, whatever has the focus.
void AddScrolling(FormView& view, QScrollBar& bar) {
    for (const auto& [key, action] :
         {std::pair{QKeySequence(Qt::Key_Up), QAbstractSlider::SliderSingleStepSub},
          {QKeySequence(Qt::Key_Down), QAbstractSlider::SliderSingleStepAdd},
          {QKeySequence(Qt::Key_PageUp), QAbstractSlider::SliderPageStepSub},
          {QKeySequence(Qt::Key_PageDown), QAbstractSlider::SliderPageStepAdd},
          {QKeySequence(Qt::Key_Home), QAbstractSlider::SliderToMinimum},
          {QKeySequence(Qt::Key_End), QAbstractSlider::SliderToMaximum},
          {QKeySequence(Qt::CTRL | Qt::Key_Home), QAbstractSlider::SliderToMinimum},
          {QKeySequence(Qt::CTRL | Qt::Key_End), QAbstractSlider::SliderToMaximum}}) {
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

} // namespace quelmont
