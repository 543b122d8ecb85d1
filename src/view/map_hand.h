#pragma once

#include "core/map_design.h"
#include "output/area_rings.h"
#include "platform/draw_surface.h"
#include "view/map_move.h"
#include "view/moving_picture.h"

#include <optional>
#include <string>

namespace quelmont {

/// What moves the map in the window: the mouse, its wheel, and keys. Places are pixels of the picture.
///
/// The picture follows each move at once. When a move has ended, the design that it led to is accepted and
/// told as one change: a drag when the button is released, turns of the wheel and keys with Finish, which
/// whoever has the events calls when none has come for a moment and before anything else is done.
///
/// Nothing is moved while IsFree tells so.
class MapHand {
public:
    /// Pixels that the mouse moves with its button held before that is a drag and no click.
    static constexpr int DragPixels = 4;

    enum class Key {
        Left,
        Up,
        Right,
        Down,
        In,
        Out,
        Whole,
    };

    /// Whether the map can be moved: that is switched on, the window shows a picture of the bounds that the
    /// design has, no draw runs and no text is being placed.
    static bool IsFree();

    /// The button was pressed: what follows may become a drag of the map or, for a rectangle, a box that
    /// becomes the map.
    void Press(SurfacePoint pixel, bool rectangle);
    /// The mouse was moved with the button held. True once that is a drag.
    bool Drag(SurfacePoint pixel);
    /// The button was released. True when there was a drag, false for a click.
    bool Release(SurfacePoint pixel);
    /// Ends a drag with the design as it was before. False when there is none.
    bool GiveUp();

    /// The wheel was turned by whole steps, away from the person for more than 0: that shows less of the
    /// globe. As many steps back, with the mouse where it was, lead to the design of the first one. True when
    /// the map has changed.
    bool Wheel(SurfacePoint pixel, int steps);
    /// Makes the place under the mouse the middle of the map. True when the map has changed.
    bool Centre(SurfacePoint pixel);
    /// True when the map has changed.
    bool Press(Key key);
    /// Tells what the wheel and keys have changed since the last change was told.
    void Finish();
    /// There is something to finish.
    bool IsUnfinished() const { return !changeName.empty(); }
    /// The button is down: the map or a box is being dragged, or would be with the next move of the mouse.
    bool IsHolding() const { return drag.has_value(); }
    /// The map or a box is being dragged.
    bool IsDragging() const { return drag && drag->begun; }

    /// The picture lacks lines: FillIn is to be called when the hand rests, with its button held or not.
    bool LacksLines() const;
    /// Draws the whole map as Draw Again does, without its beep; in a drag without anything else that tells
    /// of a draw. Events run meanwhile. False when it was stopped or something failed.
    bool FillIn();
    /// The picture is to stay as it is.
    void LeaveAsItIs() { cut = false; }

private:
    /// From the press of the button to its release.
    struct Dragging {
        SurfacePoint pressed;
        PlanePoint from;
        double unitsX = 0.0, unitsY = 0.0; ///< projection units of a pixel
        MapDrag move;
        bool rectangle = false;
        bool begun = false;
        bool moved = false; ///< the picture is another one than at the press
    };
    /// Turns of the wheel, or of its keys, from one and the same design.
    struct Zooming {
        DesignBounds first;
        DesignBounds last;              ///< where they have led to
        std::optional<SurfacePoint> at; ///< nothing for the keys
        std::optional<PlanePoint> about;
        int steps = 0;
    };

    bool Zoom(std::optional<SurfacePoint> at, int steps);
    bool ZoomOn(int steps);
    void DragTo(SurfacePoint pixel);
    static void ShowRectangleTo(SurfacePoint from, SurfacePoint to);
    bool Step(double north, double east);
    void Show();
    /// Shows a move that has changed the design, and remembers its name. Returns changed.
    bool Shown(const char* name, bool changed);
    /// Finishes what has another name.
    void FinishOther(const char* name);

    std::optional<Dragging> drag;
    std::optional<Zooming> zooming;
    std::string changeName; ///< of what is to be told; empty: nothing
    bool cut = false;
    int nth = 1; ///< of large files every n-th line is drawn while they move
};

} // namespace quelmont
