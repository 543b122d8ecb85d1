#include "designfile/cnf_save.h"

#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/print_layer.h"
#include "core/print_units.h"
#include "core/replaced_file.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "core/unseen_boxes.h"
#include "designfile/record_lines.h"
#include "designfile/shown_caption.h"
#include "graticule/calculate_bounds.h"
#include "platform/machine.h"

#include <algorithm>
#include <array>

namespace quelmont {

namespace {

constexpr std::int16_t Normal = 0;
constexpr std::int16_t Maximised = 2;

SavedWindow WindowNow() {
    const MainWindow& window = *Machine().window;
    const WindowPlace place = window.Place();
    return {.ScreenPixelsX = Design.ScreenPixelsX,
            .ScreenPixelsY = Design.ScreenPixelsY,
            .TwipsPerPixelX = Design.TwipsPerPixelX,
            .TwipsPerPixelY = Design.TwipsPerPixelY,
            .WindowState = window.IsZoomed() ? Maximised : Normal,
            .Width = static_cast<float>(place.width),
            .Height = static_cast<float>(place.height),
            .Left = static_cast<float>(place.left),
            .Top = static_cast<float>(place.top),
            .AreaWidth = static_cast<float>(window.ScaleWidth()),
            .AreaHeight = static_cast<float>(window.ScaleHeight())};
}

/// The design as it is to be written.
MapDesign WholeMap() {
    const DesignBounds before = Design;
    const bool offMap = Design.ProjOffMap;
    if (Design.ProjNum == ProjInterruptedMollweide) {
        const UnseenBoxes unseen;
        CalculateBounds();
    }
    MapDesign design = Design;
    static_cast<DesignBounds&>(Design) = before;
    Design.ProjOffMap = offMap;
    design.MapFileCount = RoundToInt16(static_cast<double>(design.InputFiles.size()));
    design.AsciiFileName.resize(static_cast<std::size_t>(design.GridOutputCount + design.MapFileCount));
    design.PrintUnitTwips = design.PrintUnitTwips == CentimetreTwips ? CentimetreTwips : InchTwips;
    return design;
}

std::size_t Repeats(const DesignFile& file, Repeat repeat) {
    return repeat == Repeat::PerMapFile    ? file.design.InputFiles.size()
           : repeat == Repeat::PerTextItem ? file.design.TextItems.size()
                                           : 1;
}

/// Records that change with the window alone.
bool IsOfWindow(const Record& record) {
    constexpr int firstOfWindow = 8;
    constexpr int lastOfWindow = 12;
    return (record.number >= firstOfWindow && record.number <= lastOfWindow) ||
           record.number == RecordLastBound;
}

/// The same, and the names of the files that the map was exported to and saved as.
bool IsNoChange(const Record& record) {
    constexpr int textNames = 24;
    constexpr int otherNames = 25;
    return IsOfWindow(record) || record.number == textNames || record.number == otherNames;
}

/// Records that the picture of the map in the window does not depend on.
bool IsNotDrawn(const Record& record) {
    constexpr std::array notDrawn = {7, 15, 16, 17, 18, 20, 24, 25}; // widths in files, labels, pages, names
    return IsOfWindow(record) || record.number >= RecordTextCount ||
           std::find(notDrawn.begin(), notDrawn.end(), record.number) != notDrawn.end();
}

std::string LinesOf(bool (*leftOut)(const Record&)) {
    MapDesign design = WholeMap();
    DesignFile file{design, WindowNow(), design.MapFileCount,
                    RoundToInt32(static_cast<double>(design.TextItems.size()))};
    std::string lines = "Quelmont configuration file version " + design.VersionText + "\r\n";
    const std::span<const Record> records = DesignRecords();
    for (auto first = records.begin(); first != records.end();) {
        // Records that stand once for each map file or text item come together.
        auto last = first + 1;
        while (first->repeat != Repeat::Once && last != records.end() && last->repeat == first->repeat) {
            ++last;
        }
        for (std::size_t index = 0; index < Repeats(file, first->repeat); ++index) {
            for (auto record = first; record != last; ++record) {
                if (!leftOut(*record)) {
                    WriteRecord(lines, *record, file, index);
                }
            }
        }
        first = last;
    }
    return lines;
}

} // namespace

std::string DesignFileText() {
    return LinesOf([](const Record& /*record*/) { return false; });
}

std::string ComparableDesignText() { return LinesOf(IsOfWindow); }

std::string DesignTextWithoutNames() { return LinesOf(IsNoChange); }

std::string DrawnDesignText() { return LinesOf(IsNotDrawn); }

void WriteDesignFile(const std::string& name, const std::string& text) {
    const std::string target = ReplacedFileName(name);
    TemporaryFile part(target);
    OpenFile(OutputFileNumber, part.Name(), OpenMode::Output);
    try {
        WriteText(text);
        CloseFile(OutputFileNumber);
    } catch (const RunTimeError&) {
        try {
            CloseFile(OutputFileNumber);
        } catch (const RunTimeError&) {
            // The failure of the writing is reported.
        }
        throw;
    }
    part.MoveTo(target);
}

namespace {

/// A design is UTF-8: a name that is not would come back as that of another file.
bool HasNamesForAFile() {
    const auto bad = std::find_if(Design.InputFiles.begin(), Design.InputFiles.end(),
                                  [](const InputFileEntry& file) { return !IsUtf8(file.MapFileName); });
    if (bad == Design.InputFiles.end()) {
        return true;
    }
    Machine().boxes->Ask("Error in CnfSave: name of a map file",
                         "The name of this map file is not UTF-8, and a map design\ncannot keep it:\n\n" +
                             TextOnOneLine(bad->MapFileName) + "\n\nRename the file, then add it again.",
                         BoxButtons::Ok, BoxIcon::Exclamation);
    return false;
}

} // namespace

bool CnfSave() {
    if (!HasNamesForAFile()) {
        return false;
    }
    const ShownCaption caption("Quelmont: printing configuration file");
    return Guarded("CnfSave", [] { WriteDesignFile(Design.CnfFileName, DesignFileText()); });
}

} // namespace quelmont
