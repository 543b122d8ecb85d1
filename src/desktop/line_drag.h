#pragma once

#include <functional>

class QListWidget;

namespace quelmont {

/// Lets lines of a list be dragged to another place, and deleted by the Delete key. While a line is held, a
/// bar shows the gap that it would go to, and Escape lets it go where it was. The last line is the end of the
/// list: nothing comes behind it. moved is called from the event queue with the line and the one before which
/// it was let go, deleted at once.
void AcceptLineDrags(QListWidget& list, std::function<void(int line, int before)> moved,
                     std::function<void()> deleted);

} // namespace quelmont
