#include "commandline/draw_command.h"

#include "circles/save_circles.h"
#include "commandline/design_options.h"
#include "commandline/draw_options.h"
#include "commandline/export_output.h"
#include "commandline/frame_options.h"
#include "commandline/headless_machine.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "core/stop_signals.h"
#include "designfile/cnf_read.h"
#include "designfile/cnf_save.h"
#include "graticule/plot_grid.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/map_picture.h"
#include "mainwindow/map_print.h"
#include "mainwindow/start_up.h"
#include "mapinput/map_input_state.h"
#include "output/bmp/bmp_file.h"
#include "output/scale_screen.h"
#include "qtsurface/png_file.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <new>
#include <ostream>
#include <utility>

namespace quelmont {

namespace {

using Timer = std::chrono::steady_clock;

double SecondsSince(Timer::time_point start) {
    return std::chrono::duration<double>(Timer::now() - start).count();
}

constexpr const char* Program = "quelmont-draw: ";

/// Writes what was asked for; a full disk behind the stream must not pass for success.
int Answer(const std::string& text, std::ostream& output, std::ostream& errors) {
    output << text << std::flush;
    if (!output) {
        errors << Program << "The standard output cannot be written.\n";
        return ExitFailed;
    }
    return ExitDone;
}

std::string StatisticsLine(double pngSeconds, double totalSeconds) {
    qint64 read = 0;
    qint64 plotted = 0;
    QJsonArray files;
    for (const DrawStatistics::MapFile& file : Design.Statistics.MapFiles) {
        read += file.PointsRead;
        plotted += file.PointsPlotted;
        files.append(QJsonObject{{"name", QString::fromStdString(file.Name)},
                                 {"points_read", static_cast<qint64>(file.PointsRead)},
                                 {"points_plotted", static_cast<qint64>(file.PointsPlotted)},
                                 {"seconds", file.Seconds}});
    }
    const QJsonObject line{
        {"points_read", read},
        {"points_plotted", plotted},
        {"grid_points_plotted", static_cast<qint64>(Design.Statistics.GridPointsPlotted)},
        {"grid_seconds", Design.Statistics.GridSeconds},
        {"map_files", files},
        {"draw_seconds", Design.PlotSeconds},
        {"png_seconds", pngSeconds},
        {"total_seconds", totalSeconds},
    };
    return QJsonDocument(line).toJson(QJsonDocument::Compact).toStdString() + "\n";
}

/// From so many points on a grid takes more than a moment.
constexpr double ManyGridPoints = 1e7;

/// Tells of a grid that a slip of the pen may have made, while it can still be stopped.
void NoteLargeGrid(std::ostream& errors) {
    const double points = GridPointEstimate();
    if (points > ManyGridPoints) {
        errors << Program << "note: the grid has some " << FormatNumber(points / 1e6, "#,###,##0")
               << " million points; Ctrl+C stops the draw.\n"
               << std::flush;
    }
}

/// The formats that are no export of the draw itself.
void SavePicture(HeadlessMachine& machine, const std::string& output) {
    const OutputFormat format = OutputFormatOf(output);
    if (format == OutputFormat::Png) {
        SavePng(machine.window.Picture().Image(), output, NotesOfMap());
    } else if (format == OutputFormat::Bmp) {
        Design.BmpFileName = output;
        BmpSave();
    }
}

/// The tables of circles that were asked for.
void SaveTables(const DrawOptions& options) {
    if (!options.circles.greatCircleLine.table.empty()) {
        GcSave();
    }
    if (!options.circles.smallCircleLine.table.empty()) {
        ScSave();
    }
}

/// The picture's size: that of the design, unless it was given.
SurfacePoint WindowOf(const DrawOptions& options) {
    constexpr std::int32_t smallest = 2;
    constexpr std::int32_t largest = 32767;
    if (!options.design || options.windowGiven) {
        return options.window;
    }
    const std::optional<AreaPixels> area = AreaOfDesignFile(*options.design);
    return area ? SurfacePoint{std::clamp(area->width, smallest, largest),
                               std::clamp(area->height, smallest, largest)}
                : options.window;
}

/// Recalls the design that the options begin with, and gives them its projection.
bool RecallDesignOf(DrawOptions& options) {
    if (!options.design) {
        return true;
    }
    Design.CnfFileName = *options.design;
    if (!CnfRead()) {
        return false;
    }
    Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)] = true;
    options.ProjNum = options.projectionGiven ? options.ProjNum : Design.ProjNum;
    return true;
}

/// Writes the design, in which map files have full names: it may be recalled from any folder.
bool SaveDesignAs(const std::string& name) {
    const std::vector<InputFileEntry> files = Design.InputFiles;
    for (InputFileEntry& entry : Design.InputFiles) {
        std::error_code failure;
        const std::filesystem::path full = std::filesystem::absolute(entry.MapFileName, failure);
        entry.MapFileName = failure ? entry.MapFileName : full.string();
    }
    Design.CnfFileName = name;
    ScaleScreen();
    const bool saved = CnfSave();
    Design.InputFiles = files;
    return saved;
}

/// Draws the map: on a page that a printer takes, or else in the window. False when a page failed.
bool DrawMap(HeadlessMachine& machine, Printer* printer) {
    if (printer != nullptr) {
        return MapPrint(*printer);
    }
    machine.window.Cls();
    MapDraw();
    return true;
}

/// Draws the map and writes the picture. Without a printer it is that of the window.
int DrawPicture(HeadlessMachine& machine, const DrawOptions& options, Printer* printer,
                Timer::time_point start, std::ostream& output, std::ostream& errors) {
    NoteLargeGrid(errors);
    const bool done = DrawMap(machine, printer);
    if (StopSignals::Came()) {
        errors << Program << "stopped\n";
        return ExitFailed;
    }
    if (!done) {
        errors << Program << options.output << ": not written\n";
    } else if (const std::string reason = BarWithoutRoom(options.frame); !reason.empty()) {
        errors << Program << "--scale-bar: " << reason << '\n';
    }
    const StopSignals stopSignals;
    for (const std::string& name : MapInputNow.FilesWithoutLineStarts) {
        errors << Program << name
               << ": no first column is -1, 0 or 1. A flag comes first, then latitude and longitude; "
                  "--help shows an example.\n";
    }

    const Timer::time_point drawn = Timer::now();
    try {
        SavePicture(machine, options.output);
    } catch (const RunTimeError& error) {
        errors << Program << options.output << ": " << error.Description() << '\n';
        return ExitFailed;
    }
    const int answer = options.stats
                           ? Answer(StatisticsLine(SecondsSince(drawn), SecondsSince(start)), output, errors)
                           : ExitDone;
    return !done || machine.boxes.Count() > 0 ? ExitFailed : answer;
}

/// Takes the options into the design. Gives the exit code of what refused them.
int TakeOptions(const HeadlessMachine& machine, const DrawOptions& options, std::ostream& errors) {
    for (const std::string& name : OptionsWithoutMeaning(options)) {
        errors << Program << name << " means nothing on this projection.\n";
    }
    for (const std::string& name : OptionsOfUndrawnMap(options)) {
        errors << Program << name
               << " means nothing before the first --map, as the default map is not drawn.\n";
    }
    if (!ApplyCircles(options) || machine.boxes.Count() > 0) {
        return ExitWrongUsage;
    }
    if (!ApplyOptions(options) || machine.boxes.Count() > 0) {
        return ExitFailed;
    }
    if (const std::string reason = options.output.empty() ? "" : ArmExport(options.output); !reason.empty()) {
        errors << Program << options.output << ": " << reason << ".\n";
        return ExitWrongUsage;
    }
    if (const std::string reason = FaultOf(options.reports); !reason.empty()) {
        errors << Program << reason << ".\n";
        return ExitWrongUsage;
    }
    Design.SmoothLines = options.smooth;
    FilesBeside beside{.tables = FilesOf(options.reports),
                       .savedDesign = options.saveDesign,
                       .recalledDesign = options.design};
    for (const std::string& table :
         {options.circles.greatCircleLine.table, options.circles.smallCircleLine.table}) {
        if (!table.empty()) {
            beside.tables.push_back(table);
        }
    }
    if (const std::string reason = FilesThatCollide(options.output, beside); !reason.empty()) {
        errors << Program << reason << ".\n";
        return ExitWrongUsage;
    }
    return ExitDone;
}

int Draw(DrawOptions options, std::ostream& output, std::ostream& errors) {
    const Timer::time_point start = Timer::now();
    const SurfacePoint window = WindowOf(options);
    HeadlessMachine machine(window, options.screen.value_or(window), errors);
    StartUp();
    if (!RecallDesignOf(options)) {
        return ExitFailed;
    }
    if (const int refused = TakeOptions(machine, options, errors); refused != ExitDone) {
        return refused;
    }
    if (const std::string reason = BarLeftOut(options.frame); !reason.empty()) {
        errors << Program << "--scale-bar: " << reason << '\n';
    }
    std::unique_ptr<Printer> printer;
    if (OutputFormatOf(options.output) == OutputFormat::Pdf) {
        printer = LayOutPage(options.page, options.output, options.design.has_value());
        if (printer == nullptr) {
            return ExitFailed;
        }
    }
    if (options.saveDesign && !SaveDesignAs(*options.saveDesign)) {
        return ExitFailed;
    }
    SaveTables(options);
    if (const std::string fault = WriteReports(options.reports); !fault.empty()) {
        errors << Program << fault << '\n';
        return ExitFailed;
    }
    if (options.output.empty()) {
        return machine.boxes.Count() > 0 ? ExitFailed : ExitDone;
    }
    return DrawPicture(machine, options, printer.get(), start, output, errors);
}

int Run(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors) {
    const auto read = ReadDrawOptions(arguments, SystemPlaces().Version());
    if (const auto* text = std::get_if<TextAnswer>(&read)) {
        return Answer(text->text, output, errors);
    }
    if (const auto* wrong = std::get_if<WrongUsage>(&read)) {
        errors << Program << wrong->reason << "\nquelmont-draw --help tells the options.\n";
        return ExitWrongUsage;
    }
    return Draw(std::get<DrawOptions>(read), output, errors);
}

} // namespace

int DrawCommand(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors) {
    try {
        return Run(arguments, output, errors);
    } catch (const RunTimeError& error) {
        errors << Program << error.Description() << '\n';
    } catch (const std::bad_alloc&) {
        errors << Program << RunTimeError(ErrorOutOfMemory).Description() << '\n';
    }
    return ExitFailed;
}

} // namespace quelmont
