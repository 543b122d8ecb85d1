#pragma once

namespace quelmont {

/// The picture of a map that is being moved.

/// Seconds that such a picture may take. One of a large map file is shown as far as it has come by then.
constexpr double MovingPictureSeconds = 0.05;

enum class MovingPicture {
    Whole,    ///< what MapDraw would show, pixel for pixel
    Cut,      ///< the time was over: lines are missing
    Hindered, ///< something failed, which MapDraw would tell in a message box
};

/// Draws the design as it is and shows it at once, without anything else that tells of a draw (DrawPicture).
/// No events run meanwhile. seconds: the time that it may take.
MovingPicture DrawMovingPicture(double seconds = MovingPictureSeconds);

} // namespace quelmont
