#pragma once

namespace quelmont {

/// Qt's fonts need an application. A program with a window has one; for any other this makes one without
/// a display at the first call, which takes some hundredths of a second, and keeps it to the program's end.
void NeedGuiApplication();

} // namespace quelmont
