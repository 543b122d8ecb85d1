#include "desktop/dialog_catalogue.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"
#include "core/map_design.h"
#include "dialogs/about_qmnt.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "dialogs/circles/g_circle_ends.h"
#include "dialogs/circles/small_circle_form.h"
#include "dialogs/exports/asc_output.h"
#include "dialogs/exports/line_width_scale.h"
#include "dialogs/exports/vector_scale.h"
#include "dialogs/files/input_file_choices.h"
#include "dialogs/files/input_file_params.h"
#include "dialogs/files/symbol_size_spin.h"
#include "dialogs/look/colors256.h"
#include "dialogs/look/distortion_form.h"
#include "dialogs/look/fill_land_and_water.h"
#include "dialogs/look/grid_labels_form.h"
#include "dialogs/look/map_frame.h"
#include "dialogs/look/map_reduce.h"
#include "dialogs/look/select_grid_type.h"
#include "dialogs/printing/print_map.h"
#include "dialogs/reports/report_dialog.h"
#include "dialogs/reports/report_margins.h"
#include "dialogs/text/font_dialog.h"
#include "dialogs/text/select_label_option.h"
#include "dialogs/text/text_add.h"
#include "graticule/calc_graticule.h"
#include "mapfiles/feature_rows.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "support/scripted_printer.h"
#include "view/choose_projection_form.h"

#include <utility>

namespace quelmont {

namespace {

template <typename Dialog>
std::function<std::unique_ptr<Form>()> Of() {
    return [] { return std::make_unique<Dialog>(); };
}

/// With another projection in force, and the bounds that its dialog proposes.
template <typename Dialog>
std::function<std::unique_ptr<Form>()> Of(std::int16_t projNum) {
    return [projNum] {
        Design.ProjNum = projNum;
        Design.ProjName = FindProjection(projNum)->ProjName;
        ProposeBounds();
        CalcGraticule();
        return std::make_unique<Dialog>();
    };
}

template <typename Dialog>
std::function<std::unique_ptr<Form>()> OfPurpose(std::int16_t purpose) {
    return [purpose] {
        Design.ColorPurpose = purpose;
        return std::make_unique<Dialog>();
    };
}

/// With the scripted printer in the place of the desktop's.
template <typename MakeForm>
std::unique_ptr<Form> WithPrinter(MakeForm make) {
    static ScriptedPrinters printers;
    printers.printer.name = "Office LaserJet 4";
    printers.printer.stripMillimetres = 6.0;
    Printers* const before = std::exchange(Machine().printers, &printers);
    std::unique_ptr<Form> form = make(printers.printer);
    Machine().printers = before;
    return form;
}

std::unique_ptr<Form> PrinterPage() {
    return WithPrinter([](const Printer& printer) { return std::make_unique<PrintMap>(printer); });
}

std::unique_ptr<Form> PdfPage() {
    return WithPrinter([](const Printer& /*printer*/) { return std::make_unique<PrintMapOnPdf>(); });
}

/// For a map of the United States.
std::unique_ptr<Form> ProjectionHelp() {
    Design.ProjNum = ProjAlbers;
    Design.ProjName = FindProjection(ProjAlbers)->ProjName;
    Design.GridText = {"50    00    00    N",  "25    00    00    N",  "005    00    00",
                       "125    00    00    W", "065    00    00    W", "010    00    00"};
    AcceptProjection();
    return std::make_unique<ChooseProjectionForm>();
}

/// With a bar, and a latitude that can be typed.
std::unique_ptr<Form> FrameAndScale() {
    auto form = std::make_unique<MapFrame>();
    form->Choose("Frame");
    form->Choose("Kilometers");
    form->Choose("OwnLatitude");
    return form;
}

/// With circles, whose radius and spacing can be typed, on a map of the world.
std::unique_ptr<Form> DistortionOfWorld() {
    Design.ProjNum = ProjRobinson;
    ProposeBounds();
    AcceptProjection();
    Design.Distortion.kind = DistortionKind::Ellipses;
    return std::make_unique<DistortionForm>();
}

/// A list of files with long and short names.
std::unique_ptr<Form> FileList() {
    Design.InputFiles.resize(1);
    for (const char* const name :
         {"/home/user/maps/rivers.pkv",
          "/home/user/maps/collections/of the whole world in pieces/europe/lakes and rivers/rivers.grv",
          "C:\\MAPS\\CITIES.PRN"}) {
        Design.InputFiles.push_back(NewMapFileEntry(name));
    }
    Design.MapFileCount = 4;
    auto form = std::make_unique<InputFileChoices>();
    form->Choose("InputFilesOpen", 1);
    return form;
}

/// The fonts of a slot with a large font in colour.
std::unique_ptr<Form> FontChoice() {
    Design.FontSlot = TextFontSlot;
    Design.Fonts[TextFontSlot] = {.FontName = "DejaVu Serif",
                                  .FontSize = 28,
                                  .FontColour = SolidColor(Rgb(0, 0, 128)),
                                  .FontItalic = true};
    return std::make_unique<FontDialog>();
}

/// Texts on the map, one of which is being edited.
std::unique_ptr<Form> TextChoice() {
    TextItem item;
    item.TextFont = "DejaVu Serif";
    item.TextSize = 14;
    item.TextColour = SolidColor(Rgb(128, 0, 0));
    item.TextBold = true;
    item.TextAngle = 30;
    Design.TextItems.clear();
    for (const char* const text : {"North Atlantic Ocean",
                                   "A text that is much longer than the box in which "
                                   "it is shown, as titles may be",
                                   "日本海"}) {
        item.TextString = text;
        Design.TextItems.push_back(item);
    }
    auto form = std::make_unique<TextAdd>();
    form->Choose("TextStrings", 0);
    return form;
}

/// The report of a map with everything that a report can tell of.
std::unique_ptr<Form> FullReport() {
    Design.ProjNum = ProjRobinson;
    Design.ProjName = FindProjection(ProjRobinson)->ProjName;
    ProposeBounds();
    AcceptProjection();
    Design.GcDefined = true;
    GcCalc();
    Design.ScDefined = true;
    return std::make_unique<ReportParam>();
}

std::unique_ptr<Form> RouteReport() {
    GcCalc();
    return std::make_unique<GcReport>();
}

/// Width of a report, twips.
constexpr double ReportWidth = 8000.0;

std::unique_ptr<Form> MarginChoice() {
    return WithPrinter(
        [](const Printer& printer) { return std::make_unique<ReportMargins>(printer, ReportWidth); });
}

/// The parameters of a new file, some of whose features are not shown.
std::function<std::unique_ptr<Form>()> OfFile(const char* name, std::int16_t symbolType) {
    return [name, symbolType] {
        static InputFileEntry entry;
        entry = NewMapFileEntry(name);
        entry.MapFileType = symbolType;
        entry.Features[2].Shown = false;
        entry.Features[5].Shown = false;
        return std::make_unique<InputFileParams>(name, entry, MapFileMode::Edit);
    };
}

} // namespace

const std::vector<CataloguedDialog>& DialogCatalogue() {
    static const std::vector<CataloguedDialog> catalogue = {
        {"map-reduce", Of<MapReduceForm>()},
        {"lat-lon-bounds", Of<LatLonBounds>(ProjRobinson)},
        {"lat-lon-std-par", Of<LatLonStdPar>(ProjAlbers)},
        {"lat-lon-std-par-cylinder", Of<LatLonStdPar>(ProjCylindricalEqualArea)},
        {"lat-lon-bounds-az", Of<LatLonBoundsAz>(ProjStereographic)},
        {"lat-lon-bounds-vp", Of<LatLonBoundsVp>(ProjVerticalPerspective)},
        {"lat-lon-interrupt", Of<LatLonInterrupt>(ProjInterruptedMollweide)},
        {"utm-spheroid", Of<UtmSpheroid>()},
        {"utm-parameters", Of<UtmParameters>()},
        {"utm-coords", Of<UtmCoords>()},
        {"select-grid-type", Of<SelectGridType>()},
        {"grid-labels-form", Of<GridLabelsForm>()},
        {"fill-land-and-water", Of<FillLandAndWater>()},
        {"distortion", DistortionOfWorld},
        {"select-label-option", Of<SelectLabelOption>()},
        {"map-frame", FrameAndScale},
        {"colors256", OfPurpose<Colors256>(PurposeBackground)},
        {"colors256-feature", OfPurpose<Colors256>(PurposeFeature)},
        {"g-circle-ends", Of<GCircleEnds>()},
        {"small-circle", Of<SmallCircleForm>()},
        {"line-width-scale", Of<LineWidthScale>()},
        {"vector-scale", Of<VectorScale>()},
        {"input-file-choices", FileList},
        {"input-file-params", OfFile("/home/user/maps/world.map", SymbolLine)},
        {"input-file-params-symbols",
         OfFile("/home/user/maps/collections/of the whole world in pieces/europe/lakes and rivers/of the "
                "greatest resolution/rivers.grv",
                SymbolOpenTriangle)},
        {"input-file-params-one-row", OfFile("/home/user/maps/cities.prn", SymbolFilledCircle)},
        {"symbol-size-spin",
         [] { return std::make_unique<SymbolSizeSpin>(SymbolSizeKind::BorderWidth, 2.0); }},
        {"asc-output", Of<AscOutput>()},
        {"font-dialog", FontChoice},
        {"text-add", TextChoice},
        {"print-map", PrinterPage},
        {"print-map-pdf", PdfPage},
        {"report-param", FullReport},
        {"gc-report", RouteReport},
        {"report-margins", MarginChoice},
        {"choose-projection", ProjectionHelp},
        {"about", Of<AboutQMNT>()},
    };
    return catalogue;
}

} // namespace quelmont
