#include "mainwindow/text_placing.h"

#include "annotation/text_picture.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/told_changes.h"
#include "output/print_text.h"
#include "platform/machine.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace quelmont {

namespace {

/// What is measured goes beyond the text's own end.
constexpr const char* BlanksBehind = "      ";
/// Pixels; boxes that are farther away than any window are not told apart.
constexpr double FarAway = 1.0e6;
constexpr const char* PlacePicture = "00000";

MainWindowState::Placing& Now() { return MainWindowNow.placing; }

struct MeasuredText {
    FontMetrics font;
    TextExtent extent;
};

std::optional<MeasuredText> Measure() {
    const SurfaceFont font = WindowFont(Design.CurrentLook);
    const std::optional<FontMetrics> metrics = Machine().fonts->Metrics(font);
    ReportUnless(metrics.has_value(), "GetTextMetrics error in Quelmont: TextPrint");
    const std::optional<TextExtent> extent = Machine().fonts->Extent(font, Design.CurrentText + BlanksBehind);
    ReportUnless(extent.has_value(), "GetTextExtentPoint32 error in Quelmont: TextPrint");
    return metrics && extent ? std::optional(MeasuredText{*metrics, *extent}) : std::nullopt;
}

/// The box around the text in hand, turned about its anchor, with a cell's height to spare all around:
/// letters of other fonts and accents may stand out.
PixelBox BoxOf(const MeasuredText& text) {
    const double spare = text.font.height;
    const double angle = ValueOf(Design.CurrentTextAngle) * DegToRad;
    const double x = Design.CurrentX / static_cast<double>(Design.TwipsPerPixelX);
    const double y = Design.CurrentY / static_cast<double>(Design.TwipsPerPixelY);
    double left = FarAway, top = FarAway, right = -FarAway, bottom = -FarAway;
    for (const double along : {-spare, text.extent.width + spare}) {
        for (const double down : {-text.font.ascent - spare, text.font.descent + spare}) {
            const double cornerX = x + along * std::cos(angle) + down * std::sin(angle);
            const double cornerY = y - along * std::sin(angle) + down * std::cos(angle);
            left = std::min(left, cornerX);
            right = std::max(right, cornerX);
            top = std::min(top, cornerY);
            bottom = std::max(bottom, cornerY);
        }
    }
    const auto pixel = [](double place) { return RoundToInt32(std::clamp(place, -FarAway, FarAway)); };
    const std::int32_t firstX = pixel(std::floor(left));
    const std::int32_t firstY = pixel(std::floor(top));
    return {firstX, firstY, pixel(std::ceil(right)) - firstX, pixel(std::ceil(bottom)) - firstY};
}

void ShowPreview() {
    const std::optional<MeasuredText> text = Measure();
    if (!text) {
        return;
    }
    Machine().window->ShowPreview(BoxOf(*text), [](DrawSurface& surface) {
        DrawSurface* const before = Design.Surface;
        Design.Surface = &surface;
        PrintRotatedText();
        Design.Surface = before;
    });
}

void ShowPlace() {
    Machine().window->SetCaption("Quelmont:  x = " + FormatNumber(Design.CurrentX, PlacePicture) +
                                 "   y = " + FormatNumber(Design.CurrentY, PlacePicture));
}

void MoveTo(std::int32_t x, std::int32_t y) {
    TextPrint(x, y);
    if (!Now().follows) {
        Now().dropped = {{x, y}};
    }
    ShowPlace();
}

void Drop() {
    Now().follows = false;
    Now().dropped = {{Design.CurrentX, Design.CurrentY}};
    Machine().window->SetMousePointer(MousePointer::Hand);
}

void Lift() {
    Now().follows = true;
    Machine().window->SetMousePointer(MousePointer::Cross);
}

/// One step from a place, not out of the drawing area; what lies outside already comes no farther out.
std::int32_t Stepped(std::int32_t place, double step, double size) {
    return RoundToInt32(
        std::clamp(place + step, std::min<double>(place, 0.0), std::max<double>(place, size)));
}

void Step(int directionX, int directionY) {
    const double step = Design.TextStep;
    const MainWindow& window = *Machine().window;
    MoveTo(Stepped(Design.CurrentX, directionX * step, window.ScaleWidth()),
           Stepped(Design.CurrentY, directionY * step, window.ScaleHeight()));
}

TextItem* EditedItem() {
    const std::int32_t index = Design.TextEditIndex;
    const bool there =
        Design.TextIsEdit && index >= 1 && static_cast<std::size_t>(index) <= Design.TextItems.size();
    return there ? &Design.TextItems[static_cast<std::size_t>(index) - 1] : nullptr;
}

void StoreItem(MainWindowState::Place place) {
    const TextItem* edited = EditedItem();
    const bool fromLabel = edited != nullptr && edited->TextFromLabel;
    Design.CurrentX = place.x;
    Design.CurrentY = place.y;
    TextItem item = TextInHandAsItem("TextDone");
    item.TextFromLabel = fromLabel;
    item.TextPlaced = !fromLabel;
    if (TextItem* const slot = EditedItem()) {
        *slot = std::move(item);
    } else {
        Design.TextItems.push_back(std::move(item));
    }
}

} // namespace

void BeginPlacing() {
    if (!Design.TextPending) {
        return;
    }
    MainWindow& window = *Machine().window;
    Now() = {};
    Now().captionBefore = window.Caption();
    if (const TextItem* const item = EditedItem()) {
        const MainWindowState::Place place{item->TextX, item->TextY};
        ShowTexts(); // without it
        BeginDrawBoxes();
        Lift();
        TextPrint(place.x, place.y);
        Drop();
    } else {
        BeginDrawBoxes();
        Lift();
        TextPrint(RoundToInt32(window.ScaleWidth() / 2.0), RoundToInt32(window.ScaleHeight() / 2.0));
    }
    ShowPlace();
}

void TextPrint(std::int32_t x, std::int32_t y) {
    Design.CurrentX = x;
    Design.CurrentY = y;
    if (!Design.CurrentText.empty()) {
        Guarded("TextPrint", ShowPreview);
    }
}

void TextDone() {
    if (!Design.TextPending) {
        return;
    }
    MainWindow& window = *Machine().window;
    window.HidePreview();
    window.SetMousePointer(MousePointer::Normal);
    window.SetCaption(Now().captionBefore);
    const auto dropped = Now().dropped;
    const bool edited = EditedItem() != nullptr;
    if (dropped) {
        Guarded("TextDone", [&] { StoreItem(*dropped); });
    }
    Now() = {};
    Design.TextPending = false;
    Design.TextIsEdit = false;
    Design.TextEditIndex = 0;
    Design.CurrentText.clear();
    ResetDrawBoxes(); // what fails for each place of the mouse was shown once
    ToggleCaption();  // the window may have another size now
    if (dropped || edited) {
        ShowTexts();
        TellChange("Add Text to Map", ChangeKind::Look);
    }
}

void Form_MouseDown(double x, double y) {
    if (IsPlotting()) {
        return;
    }
    Guarded("Form_MouseDown", [&] {
        MainWindowNow.TextCursorX = RoundToInt32(x);
        MainWindowNow.TextCursorY = RoundToInt32(y);
        if (!Design.TextPending) {
            return;
        }
        if (Now().follows) {
            MoveTo(MainWindowNow.TextCursorX, MainWindowNow.TextCursorY);
            Drop();
        } else {
            Lift();
            MoveTo(MainWindowNow.TextCursorX, MainWindowNow.TextCursorY);
        }
    });
}

void Form_MouseMove(double x, double y) {
    if (Design.TextPending && Now().follows) {
        Guarded("Form_MouseMove", [&] { MoveTo(RoundToInt32(x), RoundToInt32(y)); });
    }
}

bool Form_KeyDown(int keyCode) {
    if (!Design.TextPending) {
        return false;
    }
    return Guarded("Form_KeyDown", [&] {
        const float pixel = Design.TwipsPerPixelY;
        switch (keyCode) {
        case BlankKey:
            Now().follows ? Drop() : Lift();
            break;
        case LeftKey:
            Step(-1, 0);
            break;
        case UpKey:
            Step(0, -1);
            break;
        case RightKey:
            Step(1, 0);
            break;
        case DownKey:
            Step(0, 1);
            break;
        case OneKey:
            Design.TextStep = 1.0F * pixel;
            break;
        case TwoKey:
            Design.TextStep = 5.0F * pixel;
            break;
        case ThreeKey:
            Design.TextStep = 10.0F * pixel;
            break;
        default:
            break;
        }
    });
}

} // namespace quelmont
