#pragma once

namespace quelmont {

/// What surrounds a map besides its grid and its files, such as the labels of the grid: what the fit and
/// the draws ask of it. All of it does nothing while nothing of that kind is switched on.
class MapSurround {
public:
    virtual ~MapSurround() = default;
    /// The share of the drawing area that the map may fill so that what belongs beside it has room: share,
    /// or less. The same on every device. Throws nothing and writes nothing of the design.
    virtual double ShareOfArea(double share) = 0;
    /// How far the map is moved up from the middle of the area, of which it fills such a share (ShareOfArea),
    /// so that what belongs below it has room: a share of the area's height. As ShareOfArea.
    virtual double RiseOfMap(double share) = 0;
    /// Plots the lines around the map, on the surface in use and into the file that is armed, when the map's
    /// files and circles are plotted. A failure shows its message box.
    virtual void PlotLines() = 0;
    /// Puts the texts around the map behind the text items, for the export in hand. The map's own texts and
    /// labels have their places.
    /// Writes  TextItems. A failure shows its message box.
    virtual void AddTexts() = 0;
    /// Draws the texts around the map on the surface in use, after a draw or a print of the map.
    /// A failure shows its message box.
    virtual void DrawTexts() = 0;
    /// A draw on the window begins: what an earlier one left to be drawn again is gone with its picture.
    virtual void ForgetTexts() = 0;
    /// Draws those of the last draw on the window again, where the text items leave room for them.
    virtual void DrawTextsAgain() = 0;
};

/// Put here at start-up; nullptr: there is nothing around the map.
MapSurround*& Surround();

} // namespace quelmont
