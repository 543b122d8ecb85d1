#pragma once

#include "mainwindow/drawn_picture.h"
#include "mainwindow/kept_file.h"
#include "output/ascii/ascii_writer.h"
#include "output/cgm/cgm_writer.h"
#include "output/dxf/dxf_writer.h"
#include "output/svg/svg_writer.h"
#include "output/wmf/wmf_writer.h"
#include "surround/grid_labels.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// The program's writers of files.
struct ProgramWriters {
    AsciiWriter ascii;
    CgmWriter cgm;
    DxfWriter dxf;
    WmfWriter wmf;
    SvgWriter svg;
};

/// What the main window keeps between its commands.
struct MainWindowState {
    /// A place on the drawing area, twips.
    struct Place {
        std::int32_t x = 0, y = 0;
    };
    /// Of the text that is being placed.
    struct Placing {
        bool follows = false;              ///< it follows the mouse; else it lies where it was dropped
        std::optional<Place> dropped = {}; ///< where it was dropped last
        std::string captionBefore;         ///< of the window
    };

    bool MapDrawing = false;                       ///< from the start of MapDraw to its end, or until Escape
    bool PageEnding = false;                       ///< a printer page is being closed
    std::string SavedCaption;                      ///< of the window, at the start of a draw
    std::int32_t TextCursorX = 0, TextCursorY = 0; ///< place of the last click, twips
    Placing placing;
    std::optional<DrawnPicture> Picture;  ///< on the window; nothing before the first draw
    bool Quiet = false;                   ///< a draw that nobody asked for does not beep
    bool DesignHasFile = false;           ///< the design was saved or recalled
    std::string SavedDesign;              ///< what its file holds, as ComparableDesignText tells it
    std::optional<KeptFile> Kept;         ///< where this process keeps the design
    std::string ToldDesign;               ///< the design as Changes was last notified of it
    std::vector<std::string> ChoicesKept; ///< texts of the choices that the settings file holds
    std::string PdfFileName;              ///< of the map saved as PDF last
    /// Shows what helps to choose a projection. Put here at the start of a program that has a window.
    void (*HelpInChoosing)() = nullptr;
    ProgramWriters writers;
    GridSurround surround;
};

/// The state.
extern MainWindowState MainWindowNow;

/// Whether a draw of the map or its print runs, with the menus and the caption to itself.
bool IsPlotting();

/// Makes the state that of a program's start.
void ResetMainWindow();

} // namespace quelmont
