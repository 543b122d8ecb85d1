#include "desktop/printing_layouts.h"

#include "desktop/form_view.h"
#include "desktop/qt_text.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace quelmont {

namespace {

/// A box whose title is the text of a frame, which may change.
QGroupBox* Box(FormView& view, std::string_view frame) {
    auto* box = new QGroupBox(&view);
    view.Bind(frame, box, [box](const Control& control) { box->setTitle(Text(control.text)); });
    return box;
}

/// Options or checks, one below the other.
QGroupBox* BoxOfButtons(FormView& view, std::string_view frame,
                        std::initializer_list<std::string_view> buttons) {
    QGroupBox* const box = Box(view, frame);
    auto* const column = new QVBoxLayout(box);
    for (const std::string_view name : buttons) {
        const bool check = view.Shown().At(name).kind == ControlKind::Check;
        column->addWidget(check ? static_cast<QWidget*>(view.AddCheck(name)) : view.AddOption(name));
    }
    column->addStretch();
    return box;
}

QGroupBox* BoxOfFields(FormView& view, std::string_view frame,
                       std::initializer_list<std::string_view> fields) {
    QGroupBox* const box = Box(view, frame);
    auto* const grid = new QGridLayout(box);
    grid->setHorizontalSpacing(view.Gap());
    int row = 0;
    for (const std::string_view name : fields) {
        QWidget* const field = view.AddField(name);
        grid->addWidget(view.CaptionOf(field), row, 0);
        grid->addWidget(field, row, 1, Qt::AlignLeft | Qt::AlignVCenter);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);
    return box;
}

bool Has(const FormView& view, std::string_view name) {
    const auto& controls = view.Shown().Controls();
    return std::any_of(controls.begin(), controls.end(),
                       [&](const Control& control) { return control.name == name; });
}

/// All lines of a short list, as wide as they need.
QListWidget* WholeList(FormView& view, std::string_view name) {
    QListWidget* const list = view.AddList(name);
    list->setMinimumHeight(list->count() * list->sizeHintForRow(0) + 2 * list->frameWidth());
    list->setMaximumHeight(QWIDGETSIZE_MAX);
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    list->setFixedWidth(list->sizeHintForColumn(0) + 2 * (list->frameWidth() + view.Gap()));
    return list;
}

} // namespace

void LayOutPrintMap(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Help"));
    auto* const boxes = new QGridLayout;
    boxes->setSpacing(view.Gap());
    int column = 0;
    if (Has(view, "PaperList")) {
        QListWidget* const list = WholeList(view, "PaperList");
        auto* const papers = new QVBoxLayout;
        papers->addWidget(view.CaptionOf(list));
        papers->addWidget(list, 1);
        boxes->addLayout(papers, 0, column++, 3, 1);
    }
    boxes->addWidget(BoxOfButtons(view, "MapOrientation", {"Portrait", "Landscape"}), 0, column);
    boxes->addWidget(BoxOfButtons(view, "PrintUnits", {"Inches", "Centimeters"}), 0, column + 1);
    boxes->addWidget(BoxOfFields(view, "MapSize", {"WidthMap", "HeightMap"}), 1, column);
    boxes->addWidget(BoxOfFields(view, "MapMargins", {"LeftMap", "TopMap"}), 1, column + 1);
    boxes->addWidget(BoxOfButtons(view, "CenterMap", {"HorizontalMap", "VerticalMap"}), 2, column);
    view.Column()->addLayout(boxes);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutReportMargins(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Help"));
    auto* const boxes = new QGridLayout;
    boxes->setSpacing(view.Gap());
    boxes->addWidget(BoxOfButtons(view, "ReportOrientation", {"Portrait", "Landscape"}), 0, 0);
    boxes->addWidget(BoxOfButtons(view, "ReportUnits", {"Inches", "Centimeters"}), 0, 1);
    boxes->addWidget(BoxOfFields(view, "ReportFrame", {"RptTbLeft", "RptTbRight", "RptTbTop", "RptTbBottom"}),
                     1, 0, 1, 2);
    view.Column()->addLayout(boxes);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
