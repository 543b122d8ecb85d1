#pragma once

namespace quelmont {

/// Which lines of map files a draw takes: the readers of formats whose files are large ask at the beginning
/// of each line, or of each segment of one.
class LineChoice {
public:
    virtual ~LineChoice() = default;
    /// False: the line is read and left out.
    virtual bool TakesNext() = 0;
};

/// Put here for a draw of which not every line is wanted; nullptr: all of them are drawn.
LineChoice*& ChosenLines();

/// Whether the line that begins is one to be drawn.
inline bool TakesLine() {
    LineChoice* const lines = ChosenLines();
    return lines == nullptr || lines->TakesNext();
}

} // namespace quelmont
