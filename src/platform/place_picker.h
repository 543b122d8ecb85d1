#pragma once

#include <optional>
#include <string_view>

namespace quelmont {

/// A place of the map that a person has pointed at: degrees, rounded to what the scale of the map resolves;
/// north and east are positive.
struct PickedPlace {
    double lat = 0.0;
    double lon = 0.0; ///< -180 to 180
};

/// Lets a person point at a place of the map while a dialog waits.
class PlacePicker {
public:
    virtual ~PlacePicker() = default;
    /// Whether the window has a picture of a map to point at.
    virtual bool CanPick() const = 0;
    /// Hides the dialog in front until a place of the map was clicked, and shows it again. what: the place
    /// that is wanted, in words, UTF-8. Nothing when the person gave it up, or when the program ends
    /// meanwhile; then the dialog is cancelled too.
    virtual std::optional<PickedPlace> Pick(std::string_view what) = 0;
};

/// The picker in use; null where no map can be clicked on, as at first. It is kept apart from the machine,
/// which everybody knows, since only dialogs of places ask for it.
PlacePicker*& Picker();

} // namespace quelmont
