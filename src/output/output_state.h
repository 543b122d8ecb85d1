#pragma once

#include "core/replaced_file.h"
#include "output/fan_out.h"
#include "output/shade_key.h"
#include "platform/fine_lines.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace quelmont {

/// The pen that drawing has made and selected.
struct DevicePen {
    DrawSurface* surface = nullptr;
    SurfaceHandle made = 0;
    SurfaceHandle before = 0; ///< current until then
};

/// The paper of a printer. In units of PrintUnitTwips; edges count from those of the paper.
struct PrinterPage {
    float PaperWidth = 0.0F, PaperHeight = 0.0F;
    float PrintableWidth = 0.0F, PrintableHeight = 0.0F;
    float PrinterOffsetX = 0.0F, PrinterOffsetY = 0.0F;      ///< strips that cannot be reached, left and top
    float PrinterRightEdge = 0.0F, PrinterBottomEdge = 0.0F; ///< ends of the printable area
    float PrinterRightStrip = 0.0F, PrinterBottomStrip = 0.0F; ///< behind these
};

/// A file of an export that does not yet stand in its target's place.
struct BegunFile {
    std::string target; ///< as the caller names it
    std::string place;  ///< where that leads to
    std::unique_ptr<TemporaryFile> temporary;
    std::int64_t length = 0; ///< collected bytes included
    bool lost = false;       ///< a write has failed
};

/// The files that a draw has begun. One at most is open.
struct ExportState {
    std::vector<BegunFile> files;
    std::size_t open = None; ///< of files
    std::string collected;   ///< the end of the open file, not yet written
    bool elementLost = false;
    std::unordered_set<std::string> mapFiles; ///< of the design, by FileIdentity
    static constexpr std::size_t None = static_cast<std::size_t>(-1);
};

class MapSurround;

/// What the output of points keeps between its calls.
struct OutputState {
    // ---- The device in use. Written by SelectDevice and SetSymbolSize, read by PrintToScreen.
    float DevicePixelX = 0.0F, DevicePixelY = 0.0F; ///< twips per device pixel
    std::int32_t SymbolRadius = 0;                  ///< twips
    FineLines* fineLines = nullptr;                 ///< of the surface in use, while its lines are smooth
    double PenPixels = 1.0;                         ///< PenWidth before it was rounded
    DevicePen pen;
    MapSurround* surround = nullptr; ///< what Surround gives
    ShadeKey shadeKey;               ///< of the draw or print in hand, or of the last one

    // ---- The printer. Its measures are written by GetPrinterParams, its surface by MapPrint.
    float PrinterTwipsPerPixelX = 0.0F, PrinterTwipsPerPixelY = 0.0F;
    PrinterPage page;
    DrawSurface* PrinterSurface = nullptr; ///< of the job that is open

    // ---- The file in use.
    bool LineBreakPending = false; ///< the next point opens a chain in the file
    FileWriters writers;
    ExportState exports;
};

/// The state.
extern OutputState OutputNow;

/// Makes the state that of a program's start. Files that were begun are closed and removed; the pen is
/// forgotten without touching its surface.
void ResetOutput();

} // namespace quelmont
