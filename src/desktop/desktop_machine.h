#pragma once

#include "mainwindow/kept_design.h"
#include "platform/boxes.h"
#include "platform/changes.h"
#include "platform/system.h"
#include "view/undo.h"

#include <QElapsedTimer>

class QMainWindow;
class QWidget;

/// The parts of the desktop's machine that are small. Each needs a QApplication.

namespace quelmont {

class DesktopBoxes final : public Boxes {
public:
    explicit DesktopBoxes(QWidget& parent_) : parent(parent_) {}
    BoxAnswer Ask(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon) override;
    BoxAnswer AskAbout(std::string_view control, std::string_view title, std::string_view text,
                       BoxButtons buttons, BoxIcon icon) override;

private:
    QWidget& parent;
};

/// Enters the event loop at most every five milliseconds, however often it is called.
class DesktopPump final : public Pump {
public:
    void DoEvents() override;

private:
    QElapsedTimer sinceTurn;
};

/// The screen that the window is on when the program starts. Twips stand against device pixels: 15
/// on a screen of 96 units an inch and ratio 1, 7.5 at ratio 2.
class DesktopScreen final : public Screen {
public:
    explicit DesktopScreen(const QMainWindow& window);
    float TwipsPerPixelX() const override { return twipsPerPixelX; }
    float TwipsPerPixelY() const override { return twipsPerPixelY; }
    double PixelRatio() const override { return pixelRatio; }
    int PixelsX() const override { return pixelsX; }
    int PixelsY() const override { return pixelsY; }
    int FullScreenX() const override { return fullScreenX; }
    int FullScreenY() const override { return fullScreenY; }

private:
    float twipsPerPixelX;
    double pixelRatio;
    float twipsPerPixelY;
    int pixelsX;
    int pixelsY;
    int fullScreenX;
    int fullScreenY;
};

class DesktopClock final : public Clock {
public:
    /// Local time.
    double SecondsSinceMidnight() const override;
    void Beep() override;
};

/// Keeps the design after each change, and takes changes back.
class DesktopChanges final : public Changes {
public:
    void Accepted(std::string_view name, ChangeKind /*kind*/) override {
        KeepDesign();
        steps.Accepted(name);
    }
    void Noted() override { steps.Noted(); }
    void Recalled() override { steps.Recalled(); }
    void Undo() override { KeepIf(steps.Undo()); }
    void Redo() override { KeepIf(steps.Redo()); }

private:
    static void KeepIf(bool changed) {
        if (changed) {
            KeepDesign();
        }
    }

    UndoSteps steps;
};

} // namespace quelmont
