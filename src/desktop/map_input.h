#pragma once

#include "desktop/drawing_area.h"
#include "view/map_hand.h"

#include <QTimer>

#include <functional>
#include <vector>

class QKeyEvent;

namespace quelmont {

class DesktopWindow;

/// What the mouse and the keyboard do with the map, and who gets it: a text that is being placed, a
/// distance that is measured, then what moves the map. While a command runs nobody does, but for a dialog
/// that waits for a place of the map.
///
/// A map of so many lines that its picture is cut while it moves is filled in when the hand rests; the next
/// move stops that and goes on.
class MapInput {
public:
    explicit MapInput(DesktopWindow& window);

    void Take(const AreaMouse& mouse);
    /// False for a key that means nothing to the map.
    bool Take(const QKeyEvent& event);
    /// Ends a drag, Escape: the map is as it was before. False when there is none.
    bool GiveUp();
    /// Something else begins: a drag is given up, and a move by wheel or keys is accepted.
    void End();
    /// The button was pressed on the map and not released: the map is dragged, or may be.
    bool IsHolding() const { return hand.IsHolding(); }

private:
    /// True when the event was theirs.
    static bool TakenByText(const AreaMouse& mouse);
    static bool TakenByText(const QKeyEvent& event);
    static bool TakenByClick(const AreaMouse& mouse);
    bool TakenByMove(const AreaMouse& mouse);
    bool TakenByMove(const QKeyEvent& event);

    void TurnWheel(const AreaMouse& mouse);
    /// Whether the mouse does something that the filling in has to stop for.
    bool Interrupts(const AreaMouse& mouse) const;
    /// Stops the filling in for a move, which has its turn then.
    void Interrupt(std::function<void()> move);
    void WaitForRest();
    void Rest();
    void FillIn();

    DesktopWindow& window;
    MapHand hand;
    QTimer rest;    ///< until the hand counts as resting
    int turned = 0; ///< of the wheel since its last whole step, eighths of a degree
    bool fillingIn = false;
    std::vector<std::function<void()>> waiting; ///< for the filling in to have stopped
};

} // namespace quelmont
