#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

class DrawSurface;

/// The menus of the main window. mnuBar holds the titles on the menu bar itself.
enum class Menu {
    mnuBar,
    mnuInput,
    mnuEdit,
    mnuProj,
    mnuProjMollweide,
    mnuDesign,
    mnuView,
    mnuAbout,
    mnuRecent,
};

/// Shapes of the mouse pointer.
enum class MousePointer {
    Normal = 0,
    Cross = 2, ///< a click puts something down
    Hourglass = 11,
    Hand = 99, ///< a click takes something up
};

/// A window on the screen in twips: the upper left corner of its frame, and the size of what is
/// inside the frame. A frame's thickness is known only once the window is seen; a size that
/// included it would grow or shrink each time the window comes back.
struct WindowPlace {
    double left = 0.0;
    double top = 0.0;
    double width = 0.0;
    double height = 0.0;
    bool operator==(const WindowPlace&) const = default;
};

/// Pixels in rows from the top to the bottom, without gaps, 0x00BBGGRR.
struct PixelImage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels;
};

/// A box of the drawing area in device pixels; it may reach beyond the area.
struct PixelBox {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const PixelBox&) const = default;
};

/// The program's one window: a menu bar over a drawing area with a persistent back image, and a line that
/// tells what the program is doing under it.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    virtual std::string Caption() const = 0;
    virtual void SetCaption(std::string_view caption) = 0;

    /// Size of the drawing area in twips.
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;

    /// Where the window is, without the line under the drawing area.
    virtual WindowPlace Place() const = 0;
    virtual void SetPlace(const WindowPlace& place) = 0;
    virtual bool IsZoomed() const = 0;
    virtual void Maximise() = 0;
    /// Gives the drawing area a size in device pixels, as far as the screen has room for it. The window then
    /// is neither maximised nor minimised, and its frame begins in the upper left corner of the screen.
    virtual void SetAreaSize(std::int32_t width, std::int32_t height) = 0;
    /// Returns when a change of the window's size has happened.
    virtual void Settle() = 0;
    /// Asks the window to close; in a draw it closes when the draw has returned.
    virtual void Close() = 0;

    virtual void SetMousePointer(MousePointer shape) = 0;

    /// Shows the back image as it now is.
    virtual void Refresh() = 0;
    /// Gives the back image the size of the drawing area and fills it with the background colour.
    virtual void Cls() = 0;
    /// While on, what is drawn goes to the back image.
    virtual void SetAutoRedraw(bool on) = 0;
    /// The back image as a surface.
    virtual DrawSurface& Surface() = 0;
    /// A copy of the back image; empty when there is none yet.
    virtual PixelImage CopyPixels() = 0;

    /// Keeps a copy of the back image as it now is: the map on which labels and texts have yet to be drawn.
    /// Cls and switching AutoRedraw on, with which another picture begins, forget it.
    virtual void KeepPicture() = 0;
    /// Makes the back image the copy that was kept, and at least as large as the drawing area: what the copy
    /// lacks has the background colour. Without a copy the back image as it is becomes it.
    virtual void PutBackPicture() = 0;

    /// Shows something over the back image, which it never becomes part of, in the place of what was shown
    /// so before. paint draws it, inside the box, on a surface that has the places of the back image.
    virtual void ShowPreview(const PixelBox& box, const std::function<void(DrawSurface&)>& paint) = 0;
    virtual void HidePreview() = 0;

    /// Shows or hides the line under the drawing area. The drawing area keeps its size, as far as the screen
    /// has room, and the window grows or shrinks; a maximised window gives the line a part of its area.
    virtual void ShowStatusLine(bool shown) = 0;
    /// What stands in that line, shown or not: UTF-8, empty for nothing.
    virtual void SetStatusText(std::string_view text) = 0;
    /// The share of a work that is done, 0 to 1, beside the text; nothing when no work is being done. Cheap
    /// enough to be called at every turn of a loop.
    virtual void SetProgress(std::optional<double> share) = 0;

    virtual void SetMenuEnabled(Menu menu, int index, bool enabled) = 0;
    virtual void SetMenuChecked(Menu menu, int index, bool checked) = 0;
    virtual bool MenuChecked(Menu menu, int index) const = 0;
    /// Gives an item another text, "&" before the mnemonic; without one it is not seen.
    virtual void SetMenuText(Menu menu, int index, std::string_view text) = 0;
};

} // namespace quelmont
