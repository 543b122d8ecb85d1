#pragma once

#include "desktop/drawing_area.h"
#include "desktop/map_input.h"
#include "desktop/status_line.h"
#include "desktop/window_menus.h"
#include "platform/main_window.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>

#include <functional>

namespace quelmont {

/// The program's window on the screen.
///
/// It opens at 1024 x 740, or four fifths of a smaller screen, and is never smaller than 480 x 340; the
/// status line comes on top of that. One command runs at a time. While one runs, only the menu bar, Escape
/// and the close button act, and closing stops a draw and waits until the command has returned. Closing asks
/// about a design with unsaved changes, unless the session ends: then the kept one stays.
class DesktopWindow final : public QMainWindow, public MainWindow {
public:
    DesktopWindow();
    ~DesktopWindow() override;

    DrawingArea& Area() { return *area; }
    StatusLine& Status() { return *statusLine; }
    QAction* Action(Menu menu, int index) const { return menus.Action(menu, index); }
    /// A command runs.
    bool Busy() const { return busy; }
    /// The page of the help about the command that runs, 0 where there is none.
    int HelpOfCommand() const { return helpOfCommand; }
    /// The window closes as soon as the command that runs has ended.
    bool IsCloseWanted() const { return closeWanted; }
    /// Runs something as a command, unless one runs.
    void Run(const std::function<void()>& command);
    /// The same in a drag of the map, which goes on afterwards.
    void RunInDrag(const std::function<void()>& command);

    std::string Caption() const override;
    void SetCaption(std::string_view caption) override;
    double ScaleWidth() const override;
    double ScaleHeight() const override;
    WindowPlace Place() const override;
    /// Brings a window that would lie off every screen back to the first one.
    void SetPlace(const WindowPlace& place) override;
    bool IsZoomed() const override { return isMaximized(); }
    void Maximise() override;
    void SetAreaSize(std::int32_t width, std::int32_t height) override;
    /// Waits until the window system has left the size alone for a moment, a second at most.
    void Settle() override;
    void Close() override { close(); }
    void SetMousePointer(MousePointer shape) override;
    /// While something is drawn, at most some thirty times a second.
    void Refresh() override;
    void Cls() override;
    void SetAutoRedraw(bool on) override;
    DrawSurface& Surface() override { return area->Surface(); }
    PixelImage CopyPixels() override { return area->Surface().Pixels(); }
    void KeepPicture() override { area->KeepPicture(); }
    void PutBackPicture() override;
    void ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) override;
    void HidePreview() override { area->HidePreview(); }
    void ShowStatusLine(bool shown) override;
    void SetStatusText(std::string_view text) override { statusLine->SetText(text); }
    void SetProgress(std::optional<double> share) override { statusLine->SetProgress(share); }
    void SetMenuEnabled(Menu menu, int index, bool enabled) override {
        menus.SetEnabled(menu, index, enabled);
    }
    void SetMenuChecked(Menu menu, int index, bool checked) override {
        menus.SetChecked(menu, index, checked);
    }
    bool MenuChecked(Menu menu, int index) const override { return menus.Checked(menu, index); }
    void SetMenuText(Menu menu, int index, std::string_view text) override {
        menus.SetText(menu, index, text);
    }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// A map design dropped on the window is recalled.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Clicked(Menu menu, int index);
    /// Does what an item's shortcut does, unless a command runs or a text follows the mouse.
    void PressShortcut(const MenuEntry& entry, Menu menu, bool first);
    /// After a command: the status line, and the map drawn again by itself where that is due.
    void FollowUp();
    /// After a command in which it was asked for. True when it was.
    bool CloseIfWanted();
    void RedrawAtRest();
    void Repaint();

    /// What the status line takes of the window's height, units of the screen.
    int StatusHeight() const;
    void FitToScreen();
    /// The window is neither maximised nor minimised again, and the status line was switched meanwhile.
    void RestoreSize();

    DrawingArea* area;
    StatusLine* statusLine;
    MapInput input;
    WindowMenus menus;
    QElapsedTimer sinceRepaint;
    QTimer rest; ///< until the map is drawn again by itself
    /// Corner of the frame when the window was last neither maximised nor minimised; also what is
    /// kept where the window system tells no places.
    QPoint normalCorner;
    /// Its size then, without the status line.
    QSize normalSize;
    /// Whether it had the status line then.
    bool normalStatus = true;
    bool autoRedraw = false;
    bool repaintDue = false;
    bool busy = false;
    int helpOfCommand = 0; ///< context number
    bool closeWanted = false;
    bool unloaded = false;
};

} // namespace quelmont
