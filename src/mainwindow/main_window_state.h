#pragma once

#include "output/ascii/ascii_writer.h"
#include "output/cgm/cgm_writer.h"
#include "output/dxf/dxf_writer.h"
#include "output/wmf/wmf_writer.h"

#include <cstdint>
#include <string>

namespace quelmont {

/// The program's writers of files.
struct ProgramWriters {
    AsciiWriter ascii;
    CgmWriter cgm;
    DxfWriter dxf;
    WmfWriter wmf;
};

/// What the main window keeps between its commands.
struct MainWindowState {
    bool MapDrawing = false;                       ///< from the start of MapDraw to its end, or until Escape
    bool PageEnding = false;                       ///< a printer page is being closed
    std::string SavedCaption;                      ///< of the window, at the start of a draw
    std::int32_t TextCursorX = 0, TextCursorY = 0; ///< place of the last click, twips
    ProgramWriters writers;
};

/// The state.
extern MainWindowState MainWindowNow;

/// Makes the state that of a program's start.
void ResetMainWindow();

} // namespace quelmont
