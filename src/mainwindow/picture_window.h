#pragma once

#include "mainwindow/forwarding_window.h"

namespace quelmont {

/// The main window for a draw that makes its picture alone: the picture is painted, and nothing of the window
/// about it tells that a draw runs. What is painted is not shown before whoever draws says so.
class PictureWindow final : public ForwardingWindow {
public:
    explicit PictureWindow(MainWindow& window_) : ForwardingWindow(window_) {}

    void SetCaption(std::string_view /*caption*/) override {}
    void SetMousePointer(MousePointer /*shape*/) override {}
    void Refresh() override {}
    void SetStatusText(std::string_view /*text*/) override {}
    void SetProgress(std::optional<double> /*share*/) override {}
    void SetMenuEnabled(Menu /*menu*/, int /*index*/, bool /*enabled*/) override {}
};

} // namespace quelmont
