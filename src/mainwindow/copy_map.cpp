#include "mainwindow/copy_map.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "mainwindow/drawn_picture.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/map_picture.h"
#include "mainwindow/quiet_window.h"
#include "mainwindow/ready_to_draw.h"
#include "platform/machine.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace quelmont {

namespace {

/// A folder that nobody else can enter; it goes with all that is in it.
class PrivateFolder {
public:
    /// RunTimeError "Path/File access error" where none can be made.
    PrivateFolder() : path((std::filesystem::temp_directory_path() / "quelmont-XXXXXX").string()) {
        if (mkdtemp(path.data()) == nullptr) {
            throw RunTimeError(ErrorPathFileAccess);
        }
    }
    ~PrivateFolder() {
        std::error_code failure;
        std::filesystem::remove_all(path, failure);
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::string& Path() const { return path; }

private:
    std::string path;
};

/// A draw that nothing in the window shows afterwards, and that is no last draw.
void DrawQuietly() {
    QuietWindow window(*Machine().window);
    const std::optional<DrawnPicture> picture = MainWindowNow.Picture;
    const DrawStatistics statistics = Design.Statistics;
    const double seconds = Design.PlotSeconds;
    MainWindow* const windowBefore = std::exchange(Machine().window, &window);
    MainWindowNow.Quiet = true;
    MapDraw();
    Machine().window = windowBefore;
    MainWindowNow.Quiet = false;
    Design.Surface = &windowBefore->Surface();
    Design.PlotSeconds = seconds;
    Design.Statistics = statistics;
    MainWindowNow.Picture = picture;
}

bool IsPictureOfTheDesign() {
    const auto& picture = MainWindowNow.Picture;
    const MainWindow& window = *Machine().window;
    return picture && picture->whole && picture->width == window.ScaleWidth() &&
           picture->height == window.ScaleHeight() && picture->design == DrawnDesign();
}

std::string ContentsOf(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The map as a drawing; nothing when it could not be made or was stopped, empty when it is too large.
std::optional<std::string> MapAsSvg() {
    const PrivateFolder folder;
    const std::string name = folder.Path() + "/map.svg";
    const std::string nameBefore = std::exchange(Design.SvgFileName, name);
    Design.OutputSvg = true;
    if (IsPictureOfTheDesign()) {
        DrawQuietly();
    } else {
        Machine().window->Cls();
        MapDraw();
    }
    Design.SvgFileName = nameBefore;
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(name, failure);
    if (failure) {
        return std::nullopt;
    }
    return size > std::uintmax_t{LargestCopiedDrawing} ? "" : ContentsOf(name);
}

} // namespace

void CopyMap(int /*index*/) {
    if (!ReadyToDraw()) {
        return;
    }
    Guarded("CopyMap", [] {
        if (const std::optional<std::string> svg = MapAsSvg()) {
            Pictures& pictures = *Machine().pictures;
            pictures.Copy(pictures.Png(Machine().window->CopyPixels(), NotesOfMap()), *svg);
        }
    });
}

} // namespace quelmont
