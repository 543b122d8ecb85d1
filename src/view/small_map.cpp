#include "view/small_map.h"

#include "core/error_box.h"
#include "core/unseen_boxes.h"
#include "mainwindow/forwarding_window.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/plot_stages.h"
#include "mainwindow/start_up.h"
#include "mapfiles/feature_rows.h"
#include "output/output_state.h"
#include "output/scale_screen.h"
#include "platform/machine.h"
#include "view/bounds_proposal.h"
#include "view/design_put_back.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quelmont {

namespace {

/// The main window for a picture beside it: nothing reaches the window, and nothing is painted there.
class SmallWindow final : public ForwardingWindow {
public:
    SmallWindow(MainWindow& window_, DrawSurface& surface_, std::int32_t width_, std::int32_t height_)
        : ForwardingWindow(window_), surface(surface_), width(width_), height(height_) {}

    void SetCaption(std::string_view /*caption*/) override {}
    double ScaleWidth() const override { return static_cast<double>(width) * Design.TwipsPerPixelX; }
    double ScaleHeight() const override { return static_cast<double>(height) * Design.TwipsPerPixelY; }
    void SetMousePointer(MousePointer /*shape*/) override {}
    void Refresh() override {}
    void Cls() override {}
    void SetAutoRedraw(bool /*on*/) override {}
    DrawSurface& Surface() override { return surface; }
    void KeepPicture() override {}
    void PutBackPicture() override {}
    void SetStatusText(std::string_view /*text*/) override {}
    void SetProgress(std::optional<double> /*share*/) override {}
    void SetMenuEnabled(Menu /*menu*/, int /*index*/, bool /*enabled*/) override {}

private:
    DrawSurface& surface;
    std::int32_t width, height;
};

class NoPump final : public Pump {
public:
    void DoEvents() override {}
};

/// The machine, and what draws keep beside the design, as long as it lives.
class ApartFromTheWindow {
public:
    explicit ApartFromTheWindow(MainWindow& window) {
        Machine().window = &window;
        Machine().pump = &pump;
        MainWindowNow.Quiet = true;
        OutputNow.surround = nullptr;
    }
    ~ApartFromTheWindow() {
        Machine().window = windowBefore;
        Machine().pump = pumpBefore;
        MainWindowNow.Quiet = quiet;
        std::swap(MainWindowNow.SavedCaption, caption);
        OutputNow.surround = surround;
        OutputNow.DevicePixelX = devicePixelX;
        OutputNow.DevicePixelY = devicePixelY;
        OutputNow.SymbolRadius = symbolRadius;
        OutputNow.fineLines = fineLines;
        OutputNow.PenPixels = penPixels;
        OutputNow.pen = pen;
    }
    ApartFromTheWindow(const ApartFromTheWindow&) = delete;
    ApartFromTheWindow& operator=(const ApartFromTheWindow&) = delete;

private:
    NoPump pump;
    MainWindow* windowBefore = Machine().window;
    Pump* pumpBefore = Machine().pump;
    bool quiet = MainWindowNow.Quiet;
    std::string caption = MainWindowNow.SavedCaption;
    MapSurround* surround = OutputNow.surround;
    float devicePixelX = OutputNow.DevicePixelX, devicePixelY = OutputNow.DevicePixelY;
    std::int32_t symbolRadius = OutputNow.SymbolRadius;
    FineLines* fineLines = OutputNow.fineLines;
    double penPixels = OutputNow.PenPixels;
    DevicePen pen = OutputNow.pen;
};

/// The world map with its coasts alone.
InputFileEntry Coasts() {
    constexpr std::int16_t coastlines = 1;
    constexpr std::int16_t islands = 2;
    InputFileEntry map = NewMapFileEntry(Design.AppPath + DefaultMapTitle);
    for (std::int16_t row = 0; row <= MaxFeatureRows; ++row) {
        auto& style = map.Features.at(static_cast<std::size_t>(row));
        style.Shown = style.Shown && (row == coastlines || row == islands);
    }
    return map;
}

/// Nothing but the grid and the coasts.
void BareDesign() {
    constexpr double share = 0.94;
    constexpr std::int16_t lines = 3;
    DisarmExports();
    Design.OutputSc = false;
    Design.MapReduce = share;
    Design.GridTypeCode = lines;
    Design.GridLineWidth = Design.TwipsPerPixelY;
    Design.InputFiles = {Coasts()};
    Design.MapFileCount = 1;
    Design.AsciiFileName.clear();
    Design.TextItems.clear();
    Design.MapLabels.clear();
    Design.LabelsVisible = false;
    Design.GcDefined = false;
    Design.ScDefined = false;
    Design.GridLabels = {};
    Design.Frame = {};
    Design.Fill = {};
    Design.Distortion = {};
    Design.PlotStopReason = StopReason::None;
}

} // namespace

void DrawSmallMap(DrawSurface& surface, std::int32_t width, std::int32_t height, std::int16_t projNum,
                  const DesignBounds& bounds) {
    const DesignPutBack putBack;
    const UnseenBoxes unseen;
    SmallWindow window(*Machine().window, surface, width, height);
    const ApartFromTheWindow apart(window);
    Guarded("DrawSmallMap", [&] {
        BareDesign();
        TakeProposal(projNum, bounds);
        ScaleAscii();
        if (ScaleScreen()) {
            BeginStages();
            RunStages({});
            EndStages("DrawSmallMap");
            GiveWindowBack("DrawSmallMap");
        }
    });
}

} // namespace quelmont
