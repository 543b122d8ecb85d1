#include "desktop/circle_layouts.h"

#include "desktop/form_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <string_view>

namespace quelmont {

namespace {

/// Puts the button of a colour to the right of the field with its cell.
void PutBeside(FormView& view, const char* field, const char* button) {
    auto* spin = view.findChild<QWidget*>(QLatin1String(field));
    auto* grid = qobject_cast<QGridLayout*>(spin->parentWidget()->layout());
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(spin), &row, &column, &rows, &columns);
    grid->removeWidget(spin);
    auto* both = new QHBoxLayout;
    both->addWidget(spin);
    both->addSpacing(view.Gap());
    both->addWidget(view.AddButton(button));
    both->addStretch();
    grid->addLayout(both, row, column);
}

void AddPick(FormView& view) { view.Column()->addWidget(view.AddButton("PickOnMap"), 0, Qt::AlignLeft); }

void AddShow(FormView& view) { view.Column()->addWidget(view.AddCheck("ShowOnMap")); }

} // namespace

void LayOutGreatCircle(FormView& view) {
    view.AddFields(QObject::tr("Start"), {"LatN", "LonW"});
    view.AddFields(QObject::tr("End"), {"LatS", "LonE"});
    AddPick(view);
    view.AddFields(QObject::tr("Line"), {"GCircleWidth", "GcColorSpin"});
    PutBeside(view, "GcColorSpin", "GcColorPicture");
    AddShow(view);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutSmallCircle(FormView& view) {
    view.AddFields(QObject::tr("Center"), {"LatCenter", "LonCenter"});
    AddPick(view);
    view.AddFields(QObject::tr("Radius"), {"RadiusDeg", "RadiusNM", "RadiusSM", "RadiusKM"}, "RadiusHeading");
    view.AddFields(QObject::tr("Lines"), {"SCircleWidth", "SCircleNum", "ScColorSpin"});
    PutBeside(view, "ScColorSpin", "ScColorPicture");
    AddShow(view);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
