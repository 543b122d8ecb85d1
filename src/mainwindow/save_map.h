#pragma once

namespace quelmont {

/// The File menu's items that save the map: 5 BMP, 6 CGM, 7 DXF, 8 WMF, by the name that a file dialog
/// gives, and 9 ASCII by the names of its own dialog. BMP saves the picture as it is; the others draw
/// the map once more, into the window and the file. Cancel does nothing; another failure of the file
/// dialog shows "File Common Dialog Error". Other indices are ignored.
void SaveMapAs(int Index);

} // namespace quelmont
