#pragma once

#include <functional>
#include <string>
#include <vector>

class QListWidget;
class QUrl;

namespace quelmont {

/// The full name of a file of this machine, byte for byte, even where it is not UTF-8; empty for any other
/// address.
std::string LocalFileOf(const QUrl& url);

/// Lets files of this machine be dropped on a list. While they are held over it, the line below the
/// mouse is selected: below the lines it is the last one. dropped is called with that line and the
/// files' full names from the event queue, so that whoever held them is not kept waiting. Folders
/// are passed over.
void AcceptFiles(QListWidget& list, std::function<void(int line, std::vector<std::string> files)> dropped);

} // namespace quelmont
