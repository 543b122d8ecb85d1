#pragma once

#include "platform/machine.h"
#include "qtsurface/image_surface.h"
#include "qtsurface/pdf_printer.h"
#include "qtsurface/qt_fonts.h"
#include "qtsurface/system_places.h"

#include <QImage>

#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <utility>

/// A machine without a user and without a screen, for a draw from the command line.

namespace quelmont {

/// Writes each message box to a stream, its title and its text, and answers as if it had been closed.
class HeadlessBoxes final : public Boxes {
public:
    explicit HeadlessBoxes(std::ostream& stream_) : stream(stream_) {}
    BoxAnswer Ask(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon) override;
    /// Message boxes since the start.
    int Count() const { return count; }

private:
    std::ostream& stream;
    int count = 0;
};

class HeadlessForms final : public Forms {
public:
    /// Cancels the form.
    void Show(Form& form) override { form.PressCancel(); }
};

/// A window of a fixed size that is only its picture. A pixel measures 15 twips.
class HeadlessWindow final : public MainWindow {
public:
    /// RunTimeError "Out of memory" for a picture that is too large.
    explicit HeadlessWindow(SurfacePoint size) : surface(size.x, size.y) {}
    const ImageSurface& Picture() const { return surface; }

    std::string Caption() const override { return caption; }
    void SetCaption(std::string_view text) override { caption = text; }
    double ScaleWidth() const override;
    double ScaleHeight() const override;
    WindowPlace Place() const override { return {0.0, 0.0, ScaleWidth(), ScaleHeight()}; }
    void SetPlace(const WindowPlace& /*place*/) override {}
    bool IsZoomed() const override { return false; }
    void Maximise() override {}
    void SetAreaSize(std::int32_t /*width*/, std::int32_t /*height*/) override {}
    void Settle() override {}
    void Close() override {}
    void SetMousePointer(MousePointer /*shape*/) override {}
    void Refresh() override {}
    void Cls() override;
    void SetAutoRedraw(bool /*on*/) override {}
    DrawSurface& Surface() override { return surface; }
    PixelImage CopyPixels() override { return surface.Pixels(); }
    void KeepPicture() override { kept = surface.Image().copy(); }
    void PutBackPicture() override;
    void ShowPreview(const PixelBox& /*box*/, const std::function<void(DrawSurface&)>& /*paint*/) override {}
    void HidePreview() override {}
    void ShowStatusLine(bool /*shown*/) override {}
    void SetStatusText(std::string_view /*text*/) override {}
    void SetProgress(std::optional<double> /*share*/) override {}
    void SetMenuEnabled(Menu /*menu*/, int /*index*/, bool /*enabled*/) override {}
    void SetMenuChecked(Menu menu, int index, bool checked) override { marks[{menu, index}] = checked; }
    bool MenuChecked(Menu menu, int index) const override;
    void SetMenuText(Menu /*menu*/, int /*index*/, std::string_view /*text*/) override {}

private:
    ImageSurface surface;
    QImage kept;
    std::string caption;
    std::map<std::pair<Menu, int>, bool> marks;
};

class HeadlessPump final : public Pump {
public:
    /// A signal to end the process stops the draw.
    void DoEvents() override;
};

/// A screen on which a maximised window has a drawing area of a given size, in pixels.
class HeadlessScreen final : public Screen {
public:
    explicit HeadlessScreen(SurfacePoint fullScreen_) : fullScreen(fullScreen_) {}
    float TwipsPerPixelX() const override;
    float TwipsPerPixelY() const override;
    int PixelsX() const override { return fullScreen.x; }
    int PixelsY() const override { return fullScreen.y; }
    int FullScreenX() const override { return fullScreen.x; }
    int FullScreenY() const override { return fullScreen.y; }

private:
    SurfacePoint fullScreen;
};

class HeadlessPrinters final : public Printers {
public:
    bool Any() const override { return false; }
    Printer* Chosen() override { return nullptr; }
    bool SetUp(std::int16_t& /*orientation*/) override { return false; }
    std::unique_ptr<Printer> Pdf(double paperWidth, double paperHeight, std::string_view fileName) override {
        return MakePdfPrinter(paperWidth, paperHeight, fileName);
    }
};

class HeadlessHelp final : public Help {
public:
    void Show(int /*command*/, int /*context*/) override {}
};

class HeadlessFileDialogs final : public FileDialogs {
public:
    /// Always cancelled.
    FileDialogAnswer Open(const FileDialogRequest& /*request*/) override { return {FileDialogCancelled}; }
    FileDialogAnswer Save(const FileDialogRequest& /*request*/) override { return {FileDialogCancelled}; }
};

/// The parts together: in Machine() as long as it lives.
class HeadlessMachine {
public:
    /// Sizes in pixels. Boxes go to the stream. RunTimeError as HeadlessWindow.
    HeadlessMachine(SurfacePoint windowSize, SurfacePoint fullScreen, std::ostream& stream);
    ~HeadlessMachine();
    HeadlessMachine(const HeadlessMachine&) = delete;
    HeadlessMachine& operator=(const HeadlessMachine&) = delete;

    HeadlessBoxes boxes;
    HeadlessForms forms;
    HeadlessWindow window;
    HeadlessPump pump;
    HeadlessScreen screen;
    SystemPlaces places;
    SystemClock clock;
    HeadlessPrinters printers;
    HeadlessHelp help;
    HeadlessFileDialogs fileDialogs;
    QtFonts fonts;

private:
    MachineInterfaces before;
};

} // namespace quelmont
