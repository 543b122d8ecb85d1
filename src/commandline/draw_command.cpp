#include "commandline/draw_command.h"

#include "circles/save_circles.h"
#include "commandline/design_options.h"
#include "commandline/draw_options.h"
#include "commandline/export_output.h"
#include "commandline/headless_machine.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "core/stop_signals.h"
#include "graticule/plot_grid.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/start_up.h"
#include "mapinput/map_input_state.h"
#include "output/bmp/bmp_file.h"
#include "qtsurface/png_file.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <chrono>
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
        SavePng(machine.window.Picture().Image(), output);
    } else if (format == OutputFormat::Bmp) {
        Design.BmpFileName = output;
        BmpSave();
    }
}

/// The tables of circles that were asked for.
void SaveTables() {
    if (!Design.GcFileName.empty()) {
        GcSave();
    }
    if (!Design.ScFileName.empty()) {
        ScSave();
    }
}

int Draw(const DrawOptions& options, std::ostream& output, std::ostream& errors) {
    const Timer::time_point start = Timer::now();
    HeadlessMachine machine(options.window, options.screen.value_or(options.window), errors);
    StartUp();
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
    if (const std::string reason = TablesThatCollide(options.output); !reason.empty()) {
        errors << Program << reason << ".\n";
        return ExitWrongUsage;
    }
    SaveTables();
    if (options.output.empty()) {
        return machine.boxes.Count() > 0 ? ExitFailed : ExitDone;
    }
    NoteLargeGrid(errors);
    machine.window.Cls();
    MapDraw();
    if (StopSignals::Came()) {
        errors << Program << "stopped\n";
        return ExitFailed;
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
    return machine.boxes.Count() > 0 ? ExitFailed : answer;
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
