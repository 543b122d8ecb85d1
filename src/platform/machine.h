#pragma once

#include "platform/boxes.h"
#include "platform/changes.h"
#include "platform/draw_surface.h"
#include "platform/file_dialogs.h"
#include "platform/fonts.h"
#include "platform/form.h"
#include "platform/main_window.h"
#include "platform/pictures.h"
#include "platform/printers.h"
#include "platform/system.h"

namespace quelmont {

/// The machine that the program runs on, one interface per concern. The desktop, the program
/// without a window and the tests each fill in their own before anything else runs.
struct MachineInterfaces {
    Boxes* boxes = nullptr;
    Forms* forms = nullptr;
    MainWindow* window = nullptr;
    Pump* pump = nullptr;
    Screen* screen = nullptr;
    Places* places = nullptr;
    Clock* clock = nullptr;
    Printers* printers = nullptr;
    Help* help = nullptr;
    FileDialogs* fileDialogs = nullptr;
    Fonts* fonts = nullptr;
    Changes* changes = nullptr;   ///< may stay null: nobody wants to know
    Pictures* pictures = nullptr; ///< may stay null where no menu is
};

/// The process-wide machine.
MachineInterfaces& Machine();

} // namespace quelmont
