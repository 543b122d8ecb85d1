#include "desktop/dialogs.h"

#include "desktop/boundary_layouts.h"
#include "desktop/choose_layout.h"
#include "desktop/circle_layouts.h"
#include "desktop/form_view.h"
#include "desktop/keyboard_return.h"
#include "desktop/look_layouts.h"
#include "desktop/map_file_layouts.h"
#include "desktop/printing_layouts.h"
#include "desktop/report_layouts.h"
#include "desktop/session_end.h"
#include "desktop/text_layouts.h"

#include <QApplication>
#include <QEventLoop>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace quelmont {

namespace {

struct DialogEntry {
    std::string_view className;
    void (*layOut)(FormView& view);
};

// clang-format off
constexpr std::array Dialogs = std::to_array<DialogEntry>({
    {"AboutQMNT",        LayOutAbout},
    {"AscOutput",       LayOutAsciiOutputs},
    {"ChooseProjection", LayOutChooseProjection},
    {"Colors256",        LayOutColors},
    {"Distortion",       LayOutDistortion},
    {"FillLandAndWater", LayOutFills},
    {"FontDialog",       LayOutFonts},
    {"GcReport",         LayOutReportBox},
    {"GCircleEnds",      LayOutGreatCircle},
    {"GridLabelsForm",   LayOutGridLabels},
    {"InputFileChoices", LayOutFileList},
    {"InputFileParams",  LayOutFileParameters},
    {"LatLonBounds",     LayOutBounds},
    {"LatLonBoundsAz",   LayOutAzimuthalBounds},
    {"LatLonBoundsVp",   LayOutPerspectiveBounds},
    {"LatLonInterrupt",  LayOutInterruptions},
    {"LatLonStdPar",     LayOutStandardParallels},
    {"LineWidthScale",   LayOutLineWidths},
    {"MapFrame",         LayOutMapFrame},
    {"MapReduce",        LayOutMapSize},
    {"PrintMap",         LayOutPrintMap},
    {"ReportMargins",    LayOutReportMargins},
    {"ReportParam",      LayOutReportBox},
    {"SelectGridType",   LayOutGridType},
    {"SelectLabelOption", LayOutLabelOption},
    {"SmallCircle",      LayOutSmallCircle},
    {"SymbolSizeSpin",   LayOutSymbolSize},
    {"TextAdd",          LayOutText},
    {"UtmCoords",        LayOutUtmBounds},
    {"UtmParameters",    LayOutUtmParameters},
    {"UtmSpheroid",      LayOutUtmSpheroid},
    {"VectorScale",      LayOutTextScale},
});
// clang-format on

const DialogEntry& EntryOf(const Form& form) {
    const auto* const found = std::find_if(Dialogs.begin(), Dialogs.end(), [&](const DialogEntry& entry) {
        return entry.className == form.ClassName();
    });
    if (found == Dialogs.end()) {
        throw std::logic_error("no dialog for " + form.ClassName());
    }
    return *found;
}

} // namespace

QWidget* WindowInUse(QWidget& window) {
    QWidget* dialog = QApplication::activeModalWidget();
    const QWidget* below = dialog;
    while (below != nullptr && below != &window) {
        below = below->parentWidget();
    }
    return below == nullptr ? &window : dialog; // the help may have a dialog of its own
}

void DesktopForms::Show(Form& form) {
    if (SessionEnd::IsEnding()) {
        form.PressCancel();
        return;
    }
    QWidget* below = WindowInUse(window);
    FormView view(form, below);
    EntryOf(form).layOut(view);
    const KeyboardReturn keyboard(view, *below);
    view.setWindowModality(Qt::WindowModal); // the help stays in use
    // A dialog may hide for a while, which ends what QDialog::exec waits in.
    QEventLoop shown;
    QObject::connect(&view, &QDialog::finished, &shown, &QEventLoop::quit);
    view.show();
    shown.exec(QEventLoop::DialogExec);
    if (!form.Closed()) {
        form.PressCancel();
    }
}

} // namespace quelmont
