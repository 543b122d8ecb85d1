#include "dialogs/bounds/lat_lon_interrupt.h"

#include "core/number_text.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lobe_checks.h"
#include "graticule/lobes.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr int MaxInterruptions = 3;
constexpr std::size_t PerHemisphere = 3;
/// Of LobeText.
constexpr std::size_t LeftBoundary = 2;
constexpr std::size_t FirstInterruption = 3;

std::string Indexed(const std::string& name, std::size_t index) {
    return name + "(" + std::to_string(index) + ")";
}

/// Mnemonics of the counts and the interruptions by their order in the dialog.
constexpr std::array<const char*, 2> CountCaptions = {"&Number of interruptions", "N&umber of interruptions"};
constexpr std::array<const char*, 6> InterruptionCaptions = {
    "Interruption #&1", "Interruption #&2", "Interruption #&3",
    "&Interruption #1", "In&terruption #2", "Int&erruption #3",
};

} // namespace

LatLonInterrupt::LatLonInterrupt() : BoundsForm("LatLonInterrupt", "Longitudes of Projection Interruptions") {
    Form_Load();
    AddHemisphere(0);
    AddHemisphere(1);
    AddOkAndCancel([this] { OK_Click(); });
    NumInterrupt_Change(0);
    NumInterrupt_Change(1);
}

void LatLonInterrupt::Form_Load() {
    Design.BoundsChanged = false;
    Design.DialogCancelled = true;
    ProposeLobes();
}

void LatLonInterrupt::AddHemisphere(std::size_t hemisphere) {
    const std::string number = std::to_string(hemisphere + 1);
    const auto shown = [this](const std::string& name, const char* caption, const std::string& text) {
        Add({.name = name, .kind = ControlKind::Label, .text = text, .caption = caption});
    };
    Add({.name = "Hemisphere" + number,
         .kind = ControlKind::Frame,
         .text =
             hemisphere == 0 ? "Northern Hemisphere Interruptions" : "Southern Hemisphere Interruptions"});
    Add({.name = Indexed("NumInterrupt", hemisphere),
         .kind = ControlKind::Spin,
         .caption = CountCaptions[hemisphere],
         .value = std::clamp(static_cast<int>(ValueOf(Design.LobeText[hemisphere])), 0, MaxInterruptions),
         .minimum = 0,
         .maximum = MaxInterruptions});
    On(Indexed("NumInterrupt", hemisphere), ControlEvent::Change,
       [this, hemisphere] { NumInterrupt_Change(hemisphere); });
    shown("LonW" + number, "Left boundary", Design.GridText[GridTextWest]);
    for (std::size_t k = 0; k < PerHemisphere; ++k) {
        const std::size_t index = hemisphere * PerHemisphere + k;
        AddField(InterruptionControl(index), InterruptionCaptions[index], LongitudeMask,
                 Design.LobeText[FirstInterruption + index]);
        On(InterruptionControl(index), ControlEvent::LostFocus, [this, index] { LonInt_LostFocus(index); });
    }
    shown("LonE" + number, "Right boundary", Design.GridText[GridTextEast]);
    shown("LonGrid" + number, "Grid Spacing", Design.GridText[GridTextLonSpacing]);
}

void LatLonInterrupt::NumInterrupt_Change(std::size_t hemisphere) {
    const auto count = static_cast<std::size_t>(At(Indexed("NumInterrupt", hemisphere)).value);
    for (std::size_t k = 0; k < PerHemisphere; ++k) {
        Edit(InterruptionControl(hemisphere * PerHemisphere + k)).enabled = k < count;
    }
}

void LatLonInterrupt::LonInt_LostFocus(std::size_t index) {
    const std::string control = InterruptionControl(index);
    Allowed(CheckInterruption(index, TextOf(control)));
}

std::array<std::string, 10> LatLonInterrupt::Texts() const {
    std::array<std::string, 10> texts = Design.LobeText;
    for (const std::size_t hemisphere : {0U, 1U}) {
        texts[hemisphere] = std::to_string(At(Indexed("NumInterrupt", hemisphere)).value);
    }
    texts[LeftBoundary] = Design.GridText[GridTextWest];
    for (std::size_t index = 0; index < 2 * PerHemisphere; ++index) {
        texts[FirstInterruption + index] = TextOf(InterruptionControl(index));
    }
    return texts;
}

void LatLonInterrupt::OK_Click() {
    const auto lobeText = Design.LobeText;
    const auto lobeLonText = Design.LobeLonText;
    const auto lobeLonDeg = Design.LobeLonDeg;
    Design.LobeText = Texts();
    OrderLobes();
    const Refusal refusal = AcceptLatLonInterrupt();
    if (!Allowed(refusal)) {
        // Lobes that were refused must not be drawn when the dialog is then cancelled.
        Design.LobeText = lobeText;
        Design.LobeLonText = lobeLonText;
        Design.LobeLonDeg = lobeLonDeg;
        return;
    }
    LonInterruptOffset();
    FinishAcceptance();
    Design.BoundsChanged = true;
    CloseAccepted();
}

} // namespace quelmont
