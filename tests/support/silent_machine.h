#pragma once

#include "platform/machine.h"
#include "platform/null_surface.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// A machine that does nothing and remembers nothing, for benchmarks and fuzzers: what a scripted
/// machine records would take more time and memory than what is measured.

namespace quelmont {

/// In Machine() as long as it lives. Forms and file dialogs are cancelled, boxes closed.
class SilentMachine : Boxes,
                      Forms,
                      MainWindow,
                      Pump,
                      Screen,
                      Places,
                      Clock,
                      Printers,
                      Help,
                      FileDialogs,
                      Fonts {
public:
    explicit SilentMachine(DrawSurface& surface_) : surface(surface_), before(Machine()) {
        Machine() = MachineInterfaces{this, this, this, this, this, this, this, this, this, this, this};
    }
    ~SilentMachine() override { Machine() = before; }
    SilentMachine(const SilentMachine&) = delete;
    SilentMachine& operator=(const SilentMachine&) = delete;

    std::function<void()> onEvents; ///< what a person does while events run
    long boxes = 0;                 ///< boxes shown

private:
    BoxAnswer Ask(std::string_view /*title*/, std::string_view /*text*/, BoxButtons buttons,
                  BoxIcon /*icon*/) override {
        ++boxes;
        return AnswerOfClosed(buttons);
    }
    void Show(Form& form) override { form.PressCancel(); }

    std::string Caption() const override { return caption; }
    void SetCaption(std::string_view text) override { caption = text; }
    double ScaleWidth() const override { return 24000.0; }
    double ScaleHeight() const override { return 15000.0; }
    WindowPlace Place() const override { return {}; }
    void SetPlace(const WindowPlace& /*place*/) override {}
    bool IsZoomed() const override { return false; }
    void Maximise() override {}
    void SetAreaSize(std::int32_t /*width*/, std::int32_t /*height*/) override {}
    void Settle() override {}
    void Close() override {}
    void SetMousePointer(MousePointer /*shape*/) override {}
    void Refresh() override {}
    void Cls() override {}
    void SetAutoRedraw(bool /*on*/) override {}
    DrawSurface& Surface() override { return surface; }
    PixelImage CopyPixels() override { return {}; }
    void KeepPicture() override {}
    void PutBackPicture() override {}
    void ShowPreview(const PixelBox& /*box*/, const std::function<void(DrawSurface&)>& /*paint*/) override {}
    void HidePreview() override {}
    void ShowStatusLine(bool /*shown*/) override {}
    void SetStatusText(std::string_view /*text*/) override {}
    void SetProgress(std::optional<double> /*share*/) override {}
    void SetMenuEnabled(Menu /*menu*/, int /*index*/, bool /*enabled*/) override {}
    void SetMenuChecked(Menu /*menu*/, int /*index*/, bool /*checked*/) override {}
    bool MenuChecked(Menu /*menu*/, int /*index*/) const override { return false; }
    void SetMenuText(Menu /*menu*/, int /*index*/, std::string_view /*text*/) override {}

    void DoEvents() override {
        if (onEvents) {
            onEvents();
        }
    }

    float TwipsPerPixelX() const override { return 15.0F; }
    float TwipsPerPixelY() const override { return 15.0F; }
    int PixelsX() const override { return 1600; }
    int PixelsY() const override { return 1000; }
    int FullScreenX() const override { return 1600; }
    int FullScreenY() const override { return 1000; }

    std::string ProgramFolder() const override { return "/"; }
    std::string SettingsFolder() const override { return ""; }
    std::string Version() const override { return "3.00"; }

    double SecondsSinceMidnight() const override { return 0.0; }
    void Beep() override {}
    bool Any() const override { return false; }
    Printer* Chosen() override { return nullptr; }
    bool SetUp(std::int16_t& /*orientation*/) override { return false; }
    std::unique_ptr<Printer> Pdf(double /*paperWidth*/, double /*paperHeight*/,
                                 std::string_view /*fileName*/) override {
        return nullptr;
    }
    void Show(int /*command*/, int /*context*/) override {}
    FileDialogAnswer Open(const FileDialogRequest& /*request*/) override { return {FileDialogCancelled}; }
    FileDialogAnswer Save(const FileDialogRequest& /*request*/) override { return {FileDialogCancelled}; }
    std::vector<std::string> Families() override { return {}; }
    std::optional<FontMetrics> Metrics(const SurfaceFont& /*font*/) override { return FontMetrics{}; }
    std::optional<TextExtent> Extent(const SurfaceFont& /*font*/, std::string_view /*text*/) override {
        return TextExtent{};
    }

    DrawSurface& surface;
    MachineInterfaces before;
    std::string caption;
};

} // namespace quelmont
