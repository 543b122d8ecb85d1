#include "mapinput/map_plot.h"

#include "annotation/label_convert.h"
#include "annotation/label_print.h"
#include "core/elapsed.h"
#include "core/error_box.h"
#include "core/file_names.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "mapfiles/map_formats.h"
#include "mapinput/ascii_map_reader.h"
#include "mapinput/circle_plot.h"
#include "mapinput/fixed_record_reader.h"
#include "mapinput/map_input_state.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/minute_grid_reader.h"
#include "mapinput/packed_reader.h"
#include "mapinput/plot_progress.h"
#include "mapinput/world_reader.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/map_surround.h"
#include "platform/machine.h"

#include <string>

namespace quelmont {

namespace {

constexpr const char* Routine = "MapPlot";

/// Plots the file that is open under file number 1. False when Escape was pressed.
using MapFileReader = bool (*)(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

MapFileReader ReaderOf(MapFileForm form) {
    switch (form) {
    case MapFileForm::MinuteGrid:
        return ReadMinuteGrid;
    case MapFileForm::PackedWhole:
    case MapFileForm::PackedPart:
    case MapFileForm::PackedLineGraph:
        return ReadPacked;
    case MapFileForm::FixedRecords:
    case MapFileForm::LineGraphText:
        return ReadFixedRecords;
    case MapFileForm::WorldText:
        return ReadWorldText;
    case MapFileForm::WorldFloats:
        return ReadWorldBinary;
    case MapFileForm::AsciiDegrees:
    case MapFileForm::AsciiMetres:
        break;
    }
    return ReadAsciiMap;
}

void OpenMapFile(const std::string& name, bool lookedUp) {
    try {
        OpenFile(InputFileNumber, name, OpenMode::Input);
    } catch (const RunTimeError& error) {
        if (lookedUp && error.Number() == ErrorPathNotFound) {
            throw RunTimeError(ErrorFileNotFound);
        }
        throw;
    }
}

/// A draw whose map files could not all be read leaves no export.
void GiveUpExport() {
    DropExports();
    DisarmWriters();
}

/// Of the passes over an interrupted map the last, of any other map the one that there is.
bool IsLastPass() { return Design.ProjNum != ProjInterruptedMollweide || Design.LobeLast; }

/// On the window labels and texts come and go without a draw: the map without them is kept.
void KeepMap() {
    if (!Design.PrintingNow) {
        Machine().window->KeepPicture();
    }
}

/// One call of MapPlot.
class MapPlotRun {
public:
    void Run();

private:
    enum class After { NextFile, ClosingStep };

    After PlotFile(std::int32_t index);
    After ReadMapFile(std::int32_t index);
    bool PrintLabels();
    void ShowFailure(const RunTimeError& error) const;
    void AddStatistics(std::int32_t index, double start) const;
    void Close() const;

    MapPoint point;
    /// Of the passes before this one.
    std::size_t labelsBefore = Design.LobeFirst ? 0 : Design.MapLabels.size();
    bool labelsPlaced = false;
    std::string caption; ///< of the window, as the draw cycle set it
    std::string fileName;
    bool failedInFile = false; ///< and not at the export
};

void MapPlotRun::Run() {
    try {
        caption = Machine().window->Caption();
        Design.LineStart = LineContinues; // a draw before this one may have ended anywhere
        if (Design.LobeFirst) {
            MapInputNow.FilesWithoutLineStarts.clear();
            Design.MapLabels.clear();
            RememberTextItems();
        }
        bool whole = true;
        for (std::int32_t index = 1; whole && index <= Design.MapFileCount; ++index) {
            whole = PlotFile(index) == After::NextFile;
        }
        Design.PenWidth = 1;
        whole = whole && PlotCircles(point);
        if (whole && Surround() != nullptr && IsLastPass()) {
            Surround()->PlotLines();
        }
        if (whole && PrintLabels() && IsLastPass()) {
            if (Surround() != nullptr && ArmedWriter() != nullptr) {
                Surround()->AddTexts();
            }
            FinishFile();
        }
    } catch (const RunTimeError& error) {
        ShowFailure(error);
        GiveUpExport();
        DeleteMapPen(SiteAfterError);
    }
    MapInputNow.StartLine = false;
    Close();
}

/// The labels of this pass; texts that the file is to have too. False when Escape was pressed.
bool MapPlotRun::PrintLabels() {
    KeepMap();
    LabelPrint(labelsBefore);
    labelsPlaced = true;
    if (Design.LabelsVisible) {
        ConvertLabels(labelsBefore);
    }
    return Design.PlotStopReason != StopReason::Escape;
}

MapPlotRun::After MapPlotRun::PlotFile(std::int32_t index) {
    if (static_cast<std::size_t>(index) > Design.InputFiles.size()) {
        throw RunTimeError(ErrorSubscript);
    }
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(index - 1)];
    fileName = file.MapFileName;
    const std::string title = ParseFileName(fileName).title;
    Machine().window->SetCaption(caption + " " + title);
    Machine().window->SetStatusText((Design.PrintingNow ? "Printing " : "Drawing ") + title);
    BeginFileProgress(index);
    SelectDevice();
    point.BeginFile();
    Design.CurrentSymbolType = file.MapFileType;
    // The first names belong to the grid.
    OpenExport(static_cast<std::size_t>(Design.GridOutputCount + index));
    BeginFilePart(MapPart::MapFile, ParseFileName(fileName).title);
    StartFileStretch();

    const double start = Machine().clock->SecondsSinceMidnight();
    const auto count = [&] { AddStatistics(index, start); };
    After after = After::ClosingStep;
    try {
        after = ReadMapFile(index);
    } catch (const RunTimeError&) {
        failedInFile = true;
        count();
        throw;
    }
    count();
    if (after == After::NextFile) {
        MapPoint::EndLine();
        CloseExport();
        CloseFile(InputFileNumber);
    }
    return after;
}

MapPlotRun::After MapPlotRun::ReadMapFile(std::int32_t index) {
    const MapFormat& format = MapFormatOf(fileName);
    const bool firstShown = Design.InputFiles[static_cast<std::size_t>(index - 1)].Features[1].Shown;
    if ((format.form == MapFileForm::AsciiMetres && Design.ProjNum != ProjUtm) ||
        (format.opening == OpeningStyle::FirstRow && !firstShown)) {
        return After::NextFile;
    }
    OpenMapFile(fileName, format.lookedUp);
    return ReaderOf(format.form)(point, index, format) ? After::NextFile : After::ClosingStep;
}

void MapPlotRun::ShowFailure(const RunTimeError& error) const {
    if (error.Number() == ErrorFileNotFound) {
        ShowDrawBox("File not found error in MapPlot",
                    fileName + "\n\nThe above file, listed in the Open Digital Map File item\n"
                               "of the File menu, was not found.");
    } else if (failedInFile) {
        ShowDrawBox("Error in MapPlot", "Error: " + error.Description() + "\n" + fileName);
    } else {
        ShowErrorBox(Routine, error);
    }
}

void MapPlotRun::AddStatistics(std::int32_t index, double start) const {
    auto& files = Design.Statistics.MapFiles;
    if (files.size() < static_cast<std::size_t>(index)) {
        files.resize(static_cast<std::size_t>(index));
    }
    DrawStatistics::MapFile& entry = files[static_cast<std::size_t>(index - 1)];
    entry.Name = fileName;
    entry.Seconds += ElapsedSeconds(start, Machine().clock->SecondsSinceMidnight());
    entry.PointsRead += point.PointsRead;
    entry.PointsPlotted += point.PointsPlotted;
}

void MapPlotRun::Close() const {
    if (!labelsPlaced) {
        Design.MapLabels.resize(labelsBefore);
        KeepMap();
    }
    const bool lastPass = IsLastPass() || Design.PlotStopReason == StopReason::Escape;
    if (lastPass) {
        GiveBackTextItems();
    }
    Guarded(Routine, CloseExport);
    Guarded(Routine, [] { CloseFile(InputFileNumber); });
    if (lastPass) {
        Design.OutputFileName.clear();
    }
    DeleteMapPen(SiteEndOfMap);
}

} // namespace

void MapPlot() { MapPlotRun().Run(); }

} // namespace quelmont
