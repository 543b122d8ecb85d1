#include "surround/grid_labels.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/print_text.h"
#include "output/window_scale.h"
#include "platform/machine.h"
#include "surround/frame_lines.h"
#include "surround/frame_surround.h"
#include "surround/label_spots.h"
#include "surround/shade_key_plot.h"
#include "surround/surround_state.h"

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "GridLabels";

bool AtFrame() { return Design.GridLabels.place == GridLabelPlace::Frame; }

void Draw(const std::vector<GridLabel>& labels) {
    for (const GridLabel& label : labels) {
        PrintItem(label.item);
    }
    Design.CurrentText.clear();
}

} // namespace

std::vector<GridLabel> GridLabelsOfDesign() {
    if (Design.GridLabels.place == GridLabelPlace::None) {
        return {};
    }
    const WindowScale scale;
    std::vector<TextBox> taken = TextsOnMap();
    const std::vector<TextBox> bar = BoxesOfBar();
    taken.insert(taken.end(), bar.begin(), bar.end());
    const std::vector<TextBox> key = BoxesOfShadeKey();
    taken.insert(taken.end(), key.begin(), key.end());
    return PlaceGridLabels(LabelledLines(Design.GridLabels), taken, FrameReach());
}

double GridSurround::ShareOfArea(double share) {
    if (!AtFrame()) {
        return ShareBesideFrame(share);
    }
    try {
        const MainWindow& window = *Machine().window;
        const double beside =
            ShareBesideLabels(LabelledLines(Design.GridLabels), share,
                              RoundToInt32(window.ScaleWidth() - Design.TwipsPerPixelX),
                              RoundToInt32(window.ScaleHeight() - Design.TwipsPerPixelY), FrameReach());
        return ShareBesideFrame(beside);
    } catch (const RunTimeError&) {
        return share; // the fit itself tells what is wrong with the map or the window
    }
}

double GridSurround::RiseOfMap(double share) { return RiseBesideFrame(share); }

void GridSurround::PlotLines() {
    PlotFrame();
    PlotShadeKey();
}

void GridSurround::AddTexts() {
    Guarded(Routine, [] {
        AddTextsOfBar();
        AddTextsOfShadeKey();
        for (GridLabel& label : GridLabelsOfDesign()) {
            Design.TextItems.push_back(std::move(label.item));
        }
    });
}

void GridSurround::DrawTexts() {
    Guarded(Routine, [] {
        std::vector<GridLabel> labels = GridLabelsOfDesign();
        Draw(labels);
        DrawTextsOfBar();
        DrawTextsOfShadeKey();
        if (!Design.PrintingNow) {
            SurroundNow.drawnLabels = std::move(labels);
        }
    });
}

void GridSurround::ForgetTexts() {
    SurroundNow.drawnBar.reset();
    SurroundNow.drawnLabels.clear();
}

void GridSurround::DrawTextsAgain() {
    Guarded(Routine, [] {
        DrawTextsOfBarAgain();
        DrawTextsOfShadeKeyAgain();
        if (SurroundNow.drawnLabels.empty()) {
            return;
        }
        const std::vector<TextBox> texts = TextsOnMap();
        std::vector<GridLabel> labels = SurroundNow.drawnLabels;
        std::erase_if(labels, [&](const GridLabel& label) {
            return std::any_of(texts.begin(), texts.end(),
                               [&](const TextBox& text) { return Overlap(label.letters, text); });
        });
        Draw(labels);
    });
}

} // namespace quelmont
