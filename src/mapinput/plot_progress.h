#pragma once

#include <cstddef>
#include <cstdint>

/// How far a draw has come with its map files, in their bytes, all files and all passes over them together.
/// The main window shows it; the share never goes back.

namespace quelmont {

/// A draw begins that reads its map files so many times, once for each lobe of an interrupted map. Files
/// that are not there count nothing.
/// Reads   InputFiles with MapFileCount.
void BeginProgress(std::size_t passes);

/// A file of the list, counted from 1, is the next to be read; a file before the last one begins another
/// pass.
void BeginFileProgress(std::int32_t index);

/// Shows how much of it has been read. To be called between points: it costs little as long as
/// nothing was read from the disk since the last time.
void ShowProgress();

/// The draw has ended.
void EndProgress();

} // namespace quelmont
