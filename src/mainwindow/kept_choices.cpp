#include "mainwindow/kept_choices.h"

#include "mainwindow/distortion_commands.h"
#include "mainwindow/fill_commands.h"
#include "mainwindow/frame_choice.h"
#include "mainwindow/kept_grid_labels.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/settings.h"
#include "mainwindow/told_changes.h"
#include "mainwindow/view_commands.h"
#include "platform/machine.h"

#include <array>
#include <cstddef>
#include <vector>

namespace quelmont {

namespace {

std::string StatusLineText() { return SettingOfFlag(IsSwitchedOn(StatusLineItem)); }

void TakeStatusLine(std::string_view text) {
    if (const auto on = FlagOfSetting(text)) {
        SwitchStatusLine(*on);
    }
}

/// A switch that nothing has to be done for at once.
template <ViewItem Item>
std::string SwitchText() {
    return SettingOfFlag(IsSwitchedOn(Item));
}

template <ViewItem Item>
void TakeSwitch(std::string_view text) {
    if (const auto on = FlagOfSetting(text)) {
        Machine().window->SetMenuChecked(Menu::mnuView, Item, *on);
    }
}

std::string SmoothLinesText() { return SettingOfFlag(IsSwitchedOn(SmoothLinesItem)); }

void TakeSmoothLines(std::string_view text) {
    SwitchSmoothLines(FlagOfSetting(text).value_or(IsSwitchedOn(SmoothLinesItem)));
}

constexpr std::array Choices = std::to_array<KeptChoice>({
    {"GridLabels", GridLabelPlaceText, TakeGridLabelPlace, true},
    {"GridLabelStyle", GridLabelStyleText, TakeGridLabelStyle, true},
    {"GridLabelFont", GridLabelFontText, TakeGridLabelFont, true},
    {"StatusLine", StatusLineText, TakeStatusLine},
    {"RedrawByItself", SwitchText<RedrawItem>, TakeSwitch<RedrawItem>},
    {"MoveWithTheMouse", SwitchText<MoveItem>, TakeSwitch<MoveItem>},
    {"Fill", FillText, TakeFill, true},
    {"Frame", FrameText, TakeFrameText, true},
    {"Distortion", DistortionSetting, TakeDistortionSetting, true},
    {"SmoothLines", SmoothLinesText, TakeSmoothLines, true, true},
});

std::string TextsOf(bool (*belongs)(const KeptChoice& choice)) {
    std::string texts;
    for (const KeptChoice& choice : Choices) {
        if (belongs(choice)) {
            texts += choice.text() + '\n';
        }
    }
    return texts;
}

std::vector<std::string> TextsNow() {
    std::vector<std::string> texts;
    texts.reserve(Choices.size());
    for (const KeptChoice& choice : Choices) {
        texts.push_back(choice.text());
    }
    return texts;
}

} // namespace

std::span<const KeptChoice> KeptChoices() { return Choices; }

void ReadKeptChoices() {
    for (const KeptChoice& choice : Choices) {
        const std::string text = ReadSetting(choice.key);
        if (!text.empty()) {
            choice.take(text);
        }
    }
    NoteChoices();
    NoteDesign(); // a choice that comes back is no change
}

void KeepChoices() {
    const std::vector<std::string> texts = TextsNow();
    for (std::size_t i = 0; i < Choices.size(); ++i) {
        if (i < MainWindowNow.ChoicesKept.size() && texts[i] != MainWindowNow.ChoicesKept[i]) {
            WriteSetting(Choices.at(i).key, texts[i]);
        }
    }
    MainWindowNow.ChoicesKept = texts;
}

void NoteChoices() { MainWindowNow.ChoicesKept = TextsNow(); }

std::string DrawnChoices() {
    return TextsOf([](const KeptChoice& choice) { return choice.drawn; });
}

std::string MapChoices() {
    return TextsOf([](const KeptChoice& choice) { return choice.drawn && !choice.ofView; });
}

} // namespace quelmont
