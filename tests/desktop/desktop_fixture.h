#pragma once

#include "desktop/desktop.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <QDialog>
#include <QImage>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace quelmont {

/// The desktop's own pump, at whose turns a test can do what a person would.
class HookedPump : public Pump {
public:
    explicit HookedPump(Pump& inner_) : inner(inner_) {}
    /// Before the n-th turn from now.
    void At(int nth, std::function<void()> action) { actions[calls + nth] = std::move(action); }
    void DoEvents() override;

    int calls = 0;

private:
    Pump& inner;
    std::map<int, std::function<void()>> actions;
};

/// The program in its window on a screen that nobody sees. Its folder is a temporary one with the
/// world map; boxes are recorded, beeps counted.
class DesktopTest : public testing::Test {
protected:
    DesktopTest();
    ~DesktopTest() override;

    /// Starts the program and waits until its window can be used.
    void Start();
    /// Ends it and brings it up anew.
    void Restart();

    /// Acts in the next dialog as soon as it is there.
    static void InDialog(std::function<void(QDialog&)> action);
    /// Gives the keyboard to the window.
    void Activate();
    /// True when the map's frame touches the picture's edges, left and right or above and below.
    static bool FillsTheWindow(const QImage& picture);
    /// Alt+D and Enter, with actions for the draw set up beforehand.
    void DrawByKeys();

    DesktopWindow& Window() { return desktop->Window(); }
    DrawingArea& Area() { return desktop->Window().Area(); }
    QImage Picture() { return Area().Surface().Image().copy(); }
    /// What is seen inside the frame, in device pixels.
    QImage Seen();
    /// The part of Seen that the drawing area takes.
    QImage SeenOfArea();
    void ExpectIdle();

    FreshProgram program;
    TemporaryFolder folder;
    std::optional<Desktop> desktop;
    std::optional<HookedPump> pump;
    ScriptedBoxes& boxes = program.machine.boxes;
    ScriptedClock& clock = program.machine.clock;

private:
    void BringUp();
};

} // namespace quelmont
