#pragma once

#include "desktop/desktop_help.h"
#include "desktop/desktop_machine.h"
#include "desktop/desktop_picker.h"
#include "desktop/desktop_pictures.h"
#include "desktop/desktop_printers.h"
#include "desktop/desktop_window.h"
#include "desktop/dialogs.h"
#include "desktop/file_dialogs.h"
#include "qtsurface/qt_fonts.h"
#include "qtsurface/system_places.h"
#include "view/kept_maps.h"

namespace quelmont {

/// The program on a desktop: its window and its machine, which is in Machine() as long as it lives.
/// Needs a QApplication.
class Desktop {
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Brings up the default design, puts the window where it last was, and shows it.
    void Start();
    /// Looks for a printer, whose paper the map is to fit; recalls the map design of that name or, without
    /// one, offers those that were kept when the program ended by accident.
    void BeginWith(const std::string& design);

    DesktopWindow& Window() { return window; }
    /// The window of the help, nullptr before it was asked for.
    HelpWindow* WindowOfHelp() const { return help.Window(); }

private:
    DesktopWindow window;
    DesktopBoxes boxes;
    DesktopForms forms;
    DesktopPump pump;
    DesktopScreen screen;
    SystemPlaces places;
    DesktopClock clock;
    DesktopPrinters printers;
    DesktopHelp help;
    DesktopFileDialogs fileDialogs;
    DesktopChanges changes;
    DesktopPictures pictures;
    DesktopPicker picker;
    QtFonts fonts;
    KeptMaps keptMaps;
};

/// The whole program, from its command line to its exit code. Without a display: one line on
/// standard error and 1.
int RunDesktop(int argc, char** argv);

} // namespace quelmont
