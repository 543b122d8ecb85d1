#pragma once

#include "mainwindow/forwarding_window.h"
#include "platform/null_surface.h"

namespace quelmont {

/// The main window for a draw that makes a file alone: what the draw tells and asks goes to the window, its
/// picture stays as it is.
class QuietWindow final : public ForwardingWindow {
public:
    explicit QuietWindow(MainWindow& window_) : ForwardingWindow(window_) {}

    void Refresh() override {}
    void Cls() override {}
    void SetAutoRedraw(bool /*on*/) override {}
    DrawSurface& Surface() override { return surface; }
    void KeepPicture() override {}
    void PutBackPicture() override {}

private:
    NullSurface surface;
};

} // namespace quelmont
