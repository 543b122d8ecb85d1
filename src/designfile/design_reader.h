#pragma once

#include "designfile/design_records.h"
#include "designfile/line_text.h"

#include <functional>
#include <span>

namespace quelmont {

/// What a reader does with text items, which belong to the window in which they were placed.
struct TextPlacing {
    /// Called when the screen and the window of the file are known, before the first text item.
    std::function<void(const SavedWindow& saved)> begin;
    /// Called with each text item that was read, before it joins the design. RunTimeErrors pass.
    std::function<void(TextItem& text)> place;
};

/// Reads the lines of records into the design, record by record, so that what stands before a fault is in
/// it. The numbers of the bounds, which have to fit each other, are stored together; as long as they are not,
/// no bounds are accepted for the projection (BoundsProjNum 0). A text item joins the design when all its
/// records are read.
///
/// The file's design must be Design. Empties the lists of map files and of text items where the file begins
/// its own. RunTimeErrors as ReadRecord; "Input past end of file" for counts that the lines left cannot hold,
/// before anything is sized.
void ReadDesign(LineReader& lines, std::span<const Record> records, DesignFile& file,
                const TextPlacing& placing);

} // namespace quelmont
