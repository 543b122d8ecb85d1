#pragma once

namespace quelmont {

/// The picture of a map that is being moved.

enum class MovingPicture {
    Whole,    ///< what MapDraw would show, pixel for pixel
    Thinned,  ///< every n-th line
    Cut,      ///< the time was over: lines are missing
    Hindered, ///< something failed, which MapDraw would tell in a message box
};

/// Draws the design as it is and shows it at once, without anything else that tells of a draw (DrawPicture).
/// No events run meanwhile. seconds: the time that it may take. nth: of large map files every n-th line is
/// drawn, from 1.
MovingPicture DrawMovingPicture(double seconds, int nth = 1);

} // namespace quelmont
