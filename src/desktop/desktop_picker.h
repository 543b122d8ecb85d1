#pragma once

#include "platform/place_picker.h"

namespace quelmont {

class DesktopWindow;

/// Hides the dialog in front while a place of the map in the window is clicked.
class DesktopPicker final : public PlacePicker {
public:
    /// It is in Picker() as long as it lives.
    explicit DesktopPicker(DesktopWindow& window_) : window(window_) { Picker() = this; }
    ~DesktopPicker() override { Picker() = nullptr; }
    DesktopPicker(const DesktopPicker&) = delete;
    DesktopPicker& operator=(const DesktopPicker&) = delete;

    bool CanPick() const override;
    std::optional<PickedPlace> Pick(std::string_view what) override;

private:
    DesktopWindow& window;
};

} // namespace quelmont
