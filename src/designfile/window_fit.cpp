#include "designfile/window_fit.h"

#include "core/checked_math.h"
#include "core/rounding.h"
#include "designfile/line_text.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr std::int16_t Maximised = 2;

AreaPixels PresentPixels() {
    const MainWindow& window = *Machine().window;
    return {RoundToInt32(Divide(window.ScaleWidth(), Design.TwipsPerPixelX)),
            RoundToInt32(Divide(window.ScaleHeight(), Design.TwipsPerPixelY))};
}

double HeightOverWidth(double width, double height) { return Divide(height, width); }

double SavedAspect(const SavedWindow& saved) { return HeightOverWidth(saved.AreaWidth, saved.AreaHeight); }

double PresentAspect() {
    const MainWindow& window = *Machine().window;
    return HeightOverWidth(window.ScaleWidth(), window.ScaleHeight());
}

/// Nothing is scaled, though the file's seven digits leave a difference.
bool IsSameArea(const SavedWindow& saved) {
    return SavedPixels(saved) == PresentPixels() &&
           SpacedText(saved.TwipsPerPixelX) == SpacedText(Design.TwipsPerPixelX) &&
           SpacedText(saved.TwipsPerPixelY) == SpacedText(Design.TwipsPerPixelY);
}

} // namespace

AreaPixels SavedPixels(const SavedWindow& saved) {
    return {RoundToInt32(Divide(saved.AreaWidth, saved.TwipsPerPixelX)),
            RoundToInt32(Divide(saved.AreaHeight, saved.TwipsPerPixelY))};
}

void FitWindow(const SavedWindow& saved) {
    MainWindow& window = *Machine().window;
    const AreaPixels pixels = SavedPixels(saved);
    const bool fullScreen = pixels == AreaPixels{Design.FullScreenX, Design.FullScreenY};
    const bool tooLarge = pixels.width > Design.FullScreenX || pixels.height > Design.FullScreenY;
    if (saved.WindowState == Maximised || fullScreen || tooLarge) {
        window.Maximise();
    } else {
        window.SetAreaSize(pixels.width, pixels.height);
    }
    window.Settle();
}

TextFit FitOfTexts(const SavedWindow& saved) {
    if (IsSameArea(saved)) {
        return {};
    }
    const MainWindow& window = *Machine().window;
    const double width = window.ScaleWidth();
    const double height = window.ScaleHeight();
    const double r = Divide(SavedAspect(saved), PresentAspect());
    TextFit fit;
    if (r >= 1.0) {
        fit.fy = Divide(height, saved.AreaHeight);
        fit.fx = fit.fy;
        fit.ox = RoundToInt32((width - saved.AreaWidth * fit.fx) / 2.0);
    } else {
        fit.fy = Divide(height * r, saved.AreaHeight);
        fit.fx = fit.fy;
        fit.oy = RoundToInt32(height * (1.0 - r) / 2.0);
    }
    return fit;
}

void FitText(TextItem& text, const TextFit& fit) {
    TextItem fitted = text;
    fitted.TextSize = std::max(RoundToInt16(text.TextSize * fit.fy), std::int16_t{1});
    fitted.TextX = RoundToInt32(fit.fx * text.TextX + fit.ox);
    fitted.TextY = RoundToInt32(fit.fy * text.TextY + fit.oy);
    fitted.TextWidth = RoundToInt16(text.TextWidth * fit.fx);
    fitted.TextHeight = RoundToInt16(text.TextHeight * fit.fy);
    fitted.TextDescent = RoundToInt16(text.TextDescent * fit.fy);
    fitted.TextCellHeight = RoundToInt16(text.TextCellHeight * fit.fy);
    text = std::move(fitted);
}

double MapReduceFactor(const SavedWindow& saved) {
    if (SavedPixels(saved) == PresentPixels()) {
        return 1.0;
    }
    const double a = SavedAspect(saved);
    const double b = PresentAspect();
    const double m = Divide(Design.MapYMax - Design.MapYMin, Design.MapXMax - Design.MapXMin);
    if (a >= b) {
        return m <= b ? Divide(b, a) : m <= a ? Divide(m, a) : 1.0;
    }
    return m > b ? Divide(a, b) : m > a ? Divide(a, m) : 1.0;
}

} // namespace quelmont
