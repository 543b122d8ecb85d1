#include "desktop/look_layouts.h"

#include "desktop/form_view.h"
#include "desktop/letter_sample.h"
#include "desktop/qt_text.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <utility>

namespace quelmont {

namespace {

/// A field and its caption in the middle of the dialog.
void AddInTheMiddle(FormView& view, std::string_view name) {
    QWidget* field = view.AddField(name);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(view.CaptionOf(field));
    row->addWidget(field);
    row->addStretch();
    view.Column()->addLayout(row);
}

void Enlarge(QLabel& label, double factor) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(true);
    label.setFont(font);
}

} // namespace

void LayOutMapSize(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Label2"));
    AddInTheMiddle(view, "MapReduction");
    view.AddButtons({"DrawMap", "Cancel"});
}

void LayOutGridType(FormView& view) {
    QListWidget* list = view.AddList("GridTypeList");
    view.Column()->addWidget(view.CaptionOf(list));
    view.Column()->addWidget(list);
    QWidget* width = view.AddField("GridLineWidth");
    auto* row = new QHBoxLayout;
    row->addWidget(view.CaptionOf(width));
    row->addWidget(width);
    row->addWidget(new QLabel(QObject::tr("pixels"), &view));
    row->addStretch();
    row->addWidget(view.AddButton("GridColor"));
    view.Column()->addLayout(row);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutGridLabels(FormView& view) {
    for (const char* const name : {"GridLabelPlace", "GridLabelStyle"}) {
        QListWidget* list = view.AddList(name);
        view.Column()->addWidget(view.CaptionOf(list));
        view.Column()->addWidget(list);
    }
    auto* row = new QHBoxLayout;
    row->addWidget(view.AddSample("GridLabelSample"), 1);
    row->addSpacing(view.Gap());
    row->addWidget(view.AddButton("GridLabelFont"));
    view.Column()->addLayout(row);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutFills(FormView& view) {
    auto* areas = new QGridLayout;
    int row = 0;
    for (const auto& [check, button] :
         {std::pair("FillLand", "LandColor"), std::pair("FillLakes", "LakesColor"),
          std::pair("FillSea", "SeaColor")}) {
        areas->addWidget(view.AddCheck(check), row, 0);
        areas->addWidget(view.AddButton(button), row, 1);
        ++row;
    }
    view.Column()->addLayout(areas);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutDistortion(FormView& view) {
    view.AddFrame("Kind");
    view.AddFields({}, {"Radius", "Spacing"});
    view.Column()->addWidget(view.AddExplanation("Note"));
    view.AddButtons({"OK", "Cancel"});
}

void LayOutMapFrame(FormView& view) {
    view.Column()->addWidget(view.AddCheck("Frame"));
    view.AddFrame("ScaleBar");
    view.Column()->addWidget(view.AddCheck("OwnLatitude"));
    view.AddFields({}, {"Latitude"});
    view.Column()->addWidget(view.AddExplanation("Note"));
    view.AddButtons({"OK", "Cancel"});
}

void LayOutLabelOption(FormView& view) {
    QListWidget* list = view.AddList("LabelOption");
    view.Column()->addWidget(view.CaptionOf(list));
    view.Column()->addWidget(list);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutColors(FormView& view) {
    QLabel* purpose = view.AddLabel("Purpose");
    view.Column()->addWidget(purpose);
    QWidget* cells = view.AddPalette("ColorSquare");
    view.Column()->addWidget(cells);
    // The colour under the mouse in words, in a line that is always there.
    auto* words = new QLabel(&view);
    words->setTextFormat(Qt::PlainText);
    words->setFixedHeight(words->fontMetrics().height());
    words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    view.Column()->addWidget(words);
    view.Also("ColorSquare", [words](const Control& control) { words->setText(Text(control.text)); });
    view.Column()->addWidget(view.AddLabel("HelpText"));
    view.AddButtons({"Cancel"});
}

void LayOutLineWidths(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Label1"));
    view.AddFrame("LineWidthFrame");
    view.AddButtons({"OK", "Cancel"});
}

void LayOutTextScale(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Label1"));
    AddInTheMiddle(view, "VecScale");
    view.AddButtons({"OK", "Cancel"});
}

void LayOutAbout(FormView& view) {
    constexpr int iconSize = 64;
    auto* top = new QHBoxLayout;
    auto* icon = new QLabel(&view);
    icon->setPixmap(view.windowIcon().pixmap(iconSize, iconSize));
    top->addWidget(icon);
    top->addSpacing(view.Gap());
    auto* names = new QVBoxLayout;
    QLabel* title = view.AddLabel("Title");
    Enlarge(*title, 1.6);
    names->addWidget(title);
    names->addWidget(view.AddLabel("Version"));
    top->addLayout(names);
    top->addStretch();
    view.Column()->addLayout(top);
    for (const char* const text : {"Purpose", "Licence", "WorldMap"}) {
        view.Column()->addWidget(view.AddExplanation(text));
    }
    view.AddButtons({"OK"});
}

} // namespace quelmont
