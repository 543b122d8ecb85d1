#pragma once

#include "platform/machine.h"
#include "support/fixed_fonts.h"
#include "support/recording_surface.h"
#include "support/scripted_printer.h"

#include <deque>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A machine without a person and without a screen: what the program asks is recorded, what a
/// person would do is scripted. The parts are plain members that a test reads and sets.

namespace quelmont {

struct AskedBox {
    std::string title;
    std::string text;
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::Exclamation;
    BoxAnswer answer = BoxAnswer::Ok;
    bool operator==(const AskedBox&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const AskedBox& box);

class ScriptedBoxes : public Boxes {
public:
    /// An answer left over at the end fails the test.
    ~ScriptedBoxes() override;
    /// Answers the next box that has no answer yet. A box without one is answered like one that was
    /// closed: Ok, Cancel or No.
    void Answer(BoxAnswer answer) { answers.push_back(answer); }
    /// All boxes since the start or since the last Taken, and forgets them.
    std::vector<AskedBox> Taken() { return std::exchange(asked, {}); }

    BoxAnswer Ask(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon) override;

    std::vector<AskedBox> asked;

private:
    std::deque<BoxAnswer> answers;
};

class ScriptedForms : public Forms {
public:
    using Steps = std::function<void(Form&)>;

    /// Steps left over at the end fail the test.
    ~ScriptedForms() override;
    /// What to do when a form of that class is shown next; several scripts of one class are taken
    /// one after the other. The steps may show further forms. They must close the form.
    void Script(const std::string& className, Steps steps) { scripts[className].push_back(std::move(steps)); }

    /// Runs the script. A form without a script fails the test and is cancelled.
    void Show(Form& form) override;

    std::vector<std::string> shown; ///< class names, in order

private:
    std::map<std::string, std::deque<Steps>> scripts;
};

class ScriptedWindow : public MainWindow {
public:
    std::string Caption() const override { return caption; }
    void SetCaption(std::string_view text) override;
    double ScaleWidth() const override { return scaleWidth; }
    double ScaleHeight() const override { return scaleHeight; }
    WindowPlace Place() const override { return place; }
    void SetPlace(const WindowPlace& newPlace) override { place = newPlace; }
    bool IsZoomed() const override { return zoomed; }
    void Maximise() override;
    void SetAreaSize(std::int32_t width, std::int32_t height) override;
    void Settle() override { ++settles; }
    void Close() override { ++closes; }
    void SetMousePointer(MousePointer shape) override;
    void Refresh() override;
    void Cls() override;
    void SetAutoRedraw(bool on) override;
    DrawSurface& Surface() override { return surface; }
    PixelImage CopyPixels() override { return pixels; }
    void KeepPicture() override;
    void PutBackPicture() override;
    void ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) override;
    void HidePreview() override { previewShown = false; }
    void ShowStatusLine(bool shown) override { statusLineShown = shown; }
    void SetStatusText(std::string_view text) override;
    void SetProgress(std::optional<double> share) override {
        progress = share;
        progresses.push_back(share);
    }
    void SetMenuEnabled(Menu menu, int index, bool enabled) override {
        menusEnabled[{menu, index}] = enabled;
    }
    void SetMenuChecked(Menu menu, int index, bool checked) override {
        menusChecked[{menu, index}] = checked;
    }
    bool MenuChecked(Menu menu, int index) const override;
    void SetMenuText(Menu menu, int index, std::string_view text) override {
        menuTexts[{menu, index}] = text;
    }
    /// True unless it was disabled.
    bool MenuEnabled(Menu menu, int index) const;

    std::string caption;
    std::vector<std::string> captions; ///< every caption that was set
    double scaleWidth = 19200.0;       ///< twips: 1280 pixels of 15 twips
    double scaleHeight = 13860.0;      ///< twips: 924 pixels
    double maximisedWidth = 0.0;       ///< of the drawing area when maximised, twips; 0: as it is
    double maximisedHeight = 0.0;
    double menuBarTwips = 510.0; ///< what the menu bar takes from the inside of the window
    int settles = 0;
    WindowPlace place;
    bool zoomed = false;
    int closes = 0;
    MousePointer pointer = MousePointer::Normal;
    std::vector<MousePointer> pointers; ///< every shape that was set
    int refreshes = 0;
    int clears = 0; ///< calls of Cls
    bool autoRedraw = false;
    int autoRedrawError = 0;  ///< run-time error of switching it on, 0 for none
    PixelImage pixels;        ///< what CopyPixels gives
    RecordingSurface surface; ///< also notes Cls, Refresh, KeepPicture, PutBackPicture among the operations
    RecordingSurface preview; ///< what was painted for the preview shown last
    PixelBox previewBox;      ///< of the preview shown last
    int previews = 0;         ///< calls of ShowPreview
    bool previewShown = false;
    bool statusLineShown = true;
    std::string statusText;
    std::vector<std::string> statusTexts; ///< every text that was set
    std::optional<double> progress;
    std::vector<std::optional<double>> progresses; ///< every share that was set
    std::map<std::pair<Menu, int>, bool> menusEnabled;
    std::map<std::pair<Menu, int>, bool> menusChecked;
    std::map<std::pair<Menu, int>, std::string> menuTexts;
};

class ScriptedPump : public Pump {
public:
    /// Runs something inside the n-th call of DoEvents, counted from 1 since the start.
    void At(int nth, std::function<void()> action) { actions.emplace(nth, std::move(action)); }
    void DoEvents() override;

    int calls = 0;

private:
    std::multimap<int, std::function<void()>> actions;
};

class ScriptedScreen : public Screen {
public:
    float TwipsPerPixelX() const override { return twipsPerPixelX; }
    float TwipsPerPixelY() const override { return twipsPerPixelY; }
    double PixelRatio() const override { return pixelRatio; }
    int PixelsX() const override { return pixelsX; }
    int PixelsY() const override { return pixelsY; }
    int FullScreenX() const override { return fullScreenX; }
    int FullScreenY() const override { return fullScreenY; }

    float twipsPerPixelX = 15.0F;
    float twipsPerPixelY = 15.0F;
    double pixelRatio = 1.0;
    int pixelsX = 1280;
    int pixelsY = 1024;
    int fullScreenX = 1280;
    int fullScreenY = 924; ///< so that a pixel is 25 logical units both ways
};

class ScriptedPlaces : public Places {
public:
    std::string ProgramFolder() const override { return programFolder; }
    std::string SettingsFolder() const override { return settingsFolder; }
    std::string Version() const override { return version; }

    std::string programFolder = "/program/";
    std::string settingsFolder;
    std::string version = "3.00";
};

class ScriptedClock : public Clock {
public:
    /// Each reading is secondsPerReading later than the one before it.
    double SecondsSinceMidnight() const override;
    void Beep() override {
        ++beeps;
        if (onBeep) {
            onBeep();
        }
    }

    mutable double seconds = 0.0; ///< what the next reading gives
    double secondsPerReading = 0.0;
    int beeps = 0;
    std::function<void()> onBeep; ///< what happens at each one
};

class RecordingChanges : public Changes {
public:
    void Accepted(std::string_view name, ChangeKind kind) override { accepted.emplace_back(name, kind); }

    std::vector<std::pair<std::string, ChangeKind>> accepted;
};

/// A picture is its size and notes as text; what was copied is kept.
class RecordingPictures : public Pictures {
public:
    std::string Png(const PixelImage& picture, const PictureNotes& notes) override;
    void Copy(std::string_view png, std::string_view svg) override { copied.emplace_back(png, svg); }

    std::vector<std::pair<std::string, std::string>> copied; ///< PNG, SVG
};

class RecordingHelp : public Help {
public:
    void Show(int command, int context) override { shown.emplace_back(command, context); }

    std::vector<std::pair<int, int>> shown; ///< command, context
};

class ScriptedFileDialogs : public FileDialogs {
public:
    /// An answer left over at the end fails the test.
    ~ScriptedFileDialogs() override;
    /// Files that are chosen in the next dialog that has no answer yet. A dialog without an answer
    /// is cancelled.
    void Choose(std::vector<std::string> names, int filterIndex = 1) {
        answers.push_back({0, std::move(names), filterIndex});
    }
    void Fail(int error) { answers.push_back({error}); }

    FileDialogAnswer Open(const FileDialogRequest& request) override;
    FileDialogAnswer Save(const FileDialogRequest& request) override { return Open(request); }

    std::vector<FileDialogRequest> asked; ///< since the start

private:
    std::deque<FileDialogAnswer> answers;
};

/// The machine of a test: in Machine() as long as it lives.
class ScriptedMachine {
public:
    ScriptedMachine();
    ~ScriptedMachine();
    ScriptedMachine(const ScriptedMachine&) = delete;
    ScriptedMachine& operator=(const ScriptedMachine&) = delete;

    ScriptedBoxes boxes;
    ScriptedForms forms;
    ScriptedWindow window;
    ScriptedPump pump;
    ScriptedScreen screen;
    ScriptedPlaces places;
    ScriptedClock clock;
    ScriptedPrinters printers;
    RecordingHelp help;
    ScriptedFileDialogs fileDialogs;
    FixedFonts fonts;
    RecordingChanges changes;
    RecordingPictures pictures;

private:
    MachineInterfaces before;
};

} // namespace quelmont
