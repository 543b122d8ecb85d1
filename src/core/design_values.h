#pragma once

#include <cstddef>
#include <cstdint>

/// Names for the values that fields of the design take, and for the places in its lists of texts.

namespace quelmont {

/// PointStatus: the state of a point for drawing.
enum PointStatusValue : std::int16_t {
    PointContinues = 0,     ///< the line goes on to it
    PointBeginsLine = 1,    ///< the pen is lifted before it
    PointBeyondHorizon = 2, ///< it cannot be seen, or is the antipode
    PointInRange = 4,       ///< answer of a test: inside the circle of an azimuthal map
    PointOutOfRange = 5,    ///< answer of a test: outside it
};

/// LineStart: where a line stands. Only LineMoves means something to PrintToScreen.
enum LineStartValue : std::int16_t {
    LineContinues = 0,
    LineHeaderRead = 1, ///< the header of a line in a map file was read, its first point comes
    LineAfterGap = 2,   ///< the last point of a grid line had no place on the map
    LineMoves = 3,      ///< the next point is a move, whatever PointStatus says
    LineBegins = 4,     ///< the next point is the first of a grid line
};

/// ProjTestMode: what ProjectSelect does with a point of an azimuthal map.
enum ProjTestModeValue : std::int16_t {
    TestOnly = -1,  ///< classifies the point in PointStatus and projects nothing; as any value not named here
    TestNone = 0,   ///< projects it
    TestResume = 2, ///< projects the point that was tested last, with the terms of that test
};

/// PlotStopReason: why a draw ends before its end.
enum class StopReason : std::uint8_t {
    None,
    Escape,        ///< the user stopped it
    GridDiskError, ///< the output file could not be opened or written while the grid was drawn
};

/// Places in GridText.
enum GridTextIndex : std::size_t {
    GridTextNorth,
    GridTextSouth,
    GridTextLatSpacing,
    GridTextWest,
    GridTextEast,
    GridTextLonSpacing,
    GridTextCentralLat,
    GridTextCentralLon,
    GridTextRange,  ///< angular radius of an azimuthal map
    GridTextHeight, ///< of the view point, kilometres
    GridTextCount,
};

/// Places in StdParText.
enum StdParTextIndex : std::size_t { StdParTextNorth, StdParTextSouth, StdParTextCount };

/// Places in LobeText. Each hemisphere has room for three interruptions.
enum LobeTextIndex : std::size_t {
    LobeTextCountNorth, ///< number of interruptions, 0 to 3
    LobeTextCountSouth,
    LobeTextLeft,      ///< left boundary of the map
    LobeTextNorth = 3, ///< the first interruption of the northern hemisphere
    LobeTextSouth = 6, ///< the first of the southern
    LobeTextCount = 10,
};

/// Places in UtmText.
enum UtmTextIndex : std::size_t {
    UtmTextCentralLon,
    UtmTextOriginLat,
    UtmTextFalseEasting, ///< metres, as all that follow but the scale factor
    UtmTextFalseNorthing,
    UtmTextScale, ///< scale factor of the central meridian
    UtmTextNorth,
    UtmTextSouth,
    UtmTextNorthingSpacing,
    UtmTextWest,
    UtmTextEast,
    UtmTextEastingSpacing,
    UtmTextCount,
};

} // namespace quelmont
