#include "desktop/boundary_layouts.h"

#include "desktop/form_view.h"
#include "desktop/qt_text.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

/// A hemisphere of the interrupted projection: the boundaries of its lobes from left to right, in several
/// rows where the screen is too narrow for one.
void AddHemisphere(FormView& view, const char* number, const char* count,
                   std::initializer_list<const char*> interruptions) {
    const auto named = [&](const char* name) { return std::string(name) + number; };
    auto* group = new QGroupBox(&view);
    auto* rows = new QVBoxLayout(group);
    const int room = view.Room().width() - 2 * view.Gap(); // beside the group's own margins
    auto* counts = new QHBoxLayout;
    const auto addCount = [&](QWidget* field) {
        QLabel* caption = view.CaptionOf(field);
        const int width = caption->sizeHint().width() + field->sizeHint().width() + 2 * view.Gap();
        if (counts->sizeHint().width() + width > room) {
            counts->addStretch();
            rows->addLayout(std::exchange(counts, new QHBoxLayout));
        }
        counts->addWidget(caption);
        counts->addWidget(field);
        counts->addSpacing(2 * view.Gap());
    };
    addCount(view.AddField(count));
    auto* boundaries = new QGridLayout;
    boundaries->setHorizontalSpacing(view.Gap());
    int place = 0;
    const auto addBoundary = [&](QWidget* field) {
        QLabel* caption = view.CaptionOf(field);
        const int width = std::max(caption->sizeHint().width(), field->sizeHint().width()) + view.Gap();
        const int inARow = std::max(1, room / width);
        const int row = place / inARow * 3;
        const int column = place++ % inARow;
        boundaries->addWidget(caption, row, column);
        if (QWidget* heads = view.HeadsOf(field); heads != nullptr) {
            boundaries->addWidget(heads, row + 1, column, Qt::AlignLeft | Qt::AlignBottom);
        }
        boundaries->addWidget(field, row + 2, column, Qt::AlignLeft);
    };
    addBoundary(view.AddField(named("LonW")));
    for (const char* const interruption : interruptions) {
        addBoundary(view.AddField(interruption));
    }
    addBoundary(view.AddField(named("LonE")));
    addCount(view.AddField(named("LonGrid")));
    counts->addStretch();
    rows->addLayout(counts);
    rows->addLayout(boundaries);
    view.Bind(named("Hemisphere"), group,
              [group](const Control& control) { group->setTitle(Text(control.text)); });
    view.Column()->addWidget(group);
}

} // namespace

void LayOutBounds(FormView& view) {
    view.AddFields(QObject::tr("Latitude"), {"LatN", "LatS", "LatGr"});
    view.AddFields(QObject::tr("Longitude"), {"LonW", "LonE", "LonGr"});
    view.Column()->addWidget(view.AddExplanation("HelpLine"));
    view.AddButtons({"OK", "Cancel"});
}

void LayOutStandardParallels(FormView& view) {
    view.AddFields(QObject::tr("Standard parallels"), {"LatNorthStdPar", "LatSouthStdPar"});
    view.AddFields(QObject::tr("Map"), {"LatNorth", "LatSouth"});
    view.AddButtons({"OK", "Cancel"});
}

void LayOutAzimuthalBounds(FormView& view) {
    view.AddFields(QObject::tr("Center"), {"LatCentral", "LonCentral"});
    view.AddFields(QObject::tr("Grid"), {"LatGr", "LonGr"});
    view.AddFields(QObject::tr("Range"), {"AzRangeDist"});
    view.AddButtons({"OK", "Cancel"});
}

void LayOutPerspectiveBounds(FormView& view) {
    view.AddFields(QObject::tr("Center"), {"LatCentral", "LonCentral"});
    view.AddFields(QObject::tr("Grid"), {"LatGr", "LonGr"});
    view.AddFields(QObject::tr("View point"), {"VpDistanceKM", "VpDistanceSM", "VpDistanceNM"});
    view.AddButtons({"OK", "Cancel"});
}

void LayOutInterruptions(FormView& view) {
    AddHemisphere(view, "1", "NumInterrupt(0)", {"LonInt(0)", "LonInt(1)", "LonInt(2)"});
    AddHemisphere(view, "2", "NumInterrupt(1)", {"LonInt(3)", "LonInt(4)", "LonInt(5)"});
    view.AddButtons({"OK", "Cancel"});
}

void LayOutUtmSpheroid(FormView& view) {
    QListWidget* list = view.AddList("Ellipsoid");
    view.Column()->addWidget(view.CaptionOf(list));
    view.Column()->addWidget(list);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutUtmParameters(FormView& view) {
    view.AddFields(QObject::tr("Origin"), {"UtmLonCentral", "UtmLatOrigin"});
    view.AddFields(QObject::tr("Coordinates"), {"UtmEasting", "UtmNorthing", "UtmScale"});
    view.AddButtons({"OK", "Cancel"});
}

void LayOutUtmBounds(FormView& view) {
    view.AddFields(QObject::tr("Northings"), {"UtmLatN", "UtmLatS", "UtmLatGrid"}, "Heading");
    view.AddFields(QObject::tr("Eastings"), {"UtmLonW", "UtmLonE", "UtmLonGrid"});
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
