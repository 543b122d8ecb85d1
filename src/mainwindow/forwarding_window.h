#pragma once

#include "platform/main_window.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// A main window that hands everything on to another one.
class ForwardingWindow : public MainWindow {
public:
    explicit ForwardingWindow(MainWindow& window_) : window(window_) {}

    std::string Caption() const override { return window.Caption(); }
    void SetCaption(std::string_view caption) override { window.SetCaption(caption); }
    double ScaleWidth() const override { return window.ScaleWidth(); }
    double ScaleHeight() const override { return window.ScaleHeight(); }
    WindowPlace Place() const override { return window.Place(); }
    void SetPlace(const WindowPlace& place) override { window.SetPlace(place); }
    bool IsZoomed() const override { return window.IsZoomed(); }
    void Maximise() override { window.Maximise(); }
    void SetAreaSize(std::int32_t width, std::int32_t height) override { window.SetAreaSize(width, height); }
    void Settle() override { window.Settle(); }
    void Close() override { window.Close(); }
    void SetMousePointer(MousePointer shape) override { window.SetMousePointer(shape); }

    void Refresh() override { window.Refresh(); }
    void Cls() override { window.Cls(); }
    void SetAutoRedraw(bool on) override { window.SetAutoRedraw(on); }
    DrawSurface& Surface() override { return window.Surface(); }
    PixelImage CopyPixels() override { return window.CopyPixels(); }
    void KeepPicture() override { window.KeepPicture(); }
    void PutBackPicture() override { window.PutBackPicture(); }
    void ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) override {
        window.ShowPreview(box, paint);
    }
    void HidePreview() override { window.HidePreview(); }

    void ShowStatusLine(bool shown) override { window.ShowStatusLine(shown); }
    void SetStatusText(std::string_view text) override { window.SetStatusText(text); }
    void SetProgress(std::optional<double> share) override { window.SetProgress(share); }
    void SetMenuEnabled(Menu menu, int index, bool enabled) override {
        window.SetMenuEnabled(menu, index, enabled);
    }
    void SetMenuChecked(Menu menu, int index, bool checked) override {
        window.SetMenuChecked(menu, index, checked);
    }
    bool MenuChecked(Menu menu, int index) const override { return window.MenuChecked(menu, index); }
    void SetMenuText(Menu menu, int index, std::string_view text) override {
        window.SetMenuText(menu, index, text);
    }

private:
    MainWindow& window;
};

} // namespace quelmont
