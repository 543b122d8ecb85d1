#include "desktop/file_drop.h"

#include "core/text_encoding.h"

#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>

#include <filesystem>
#include <system_error>
#include <utility>

namespace quelmont {

namespace {

std::vector<std::string> FilesOf(const QMimeData& data) {
    std::vector<std::string> files;
    for (const QUrl& url : data.urls()) {
        const std::string name = LocalFileOf(url);
        std::error_code unknown;
        if (!name.empty() && !std::filesystem::is_directory(name, unknown)) {
            files.push_back(name);
        }
    }
    return files;
}

class FileDrop final : public QObject {
public:
    FileDrop(QListWidget& list_, std::function<void(int, std::vector<std::string>)> dropped_)
        : QObject(&list_), list(list_), dropped(std::move(dropped_)) {
        list.viewport()->setAcceptDrops(true);
        list.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            Hold(*static_cast<QDropEvent*>(event));
            return true;
        case QEvent::DragLeave:
            return true;
        case QEvent::Drop:
            Take(*static_cast<QDropEvent*>(event));
            return true;
        default:
            return false;
        }
    }

private:
    int LineAt(const QDropEvent& event) const {
        const int line = list.indexAt(event.position().toPoint()).row();
        return line < 0 ? list.count() - 1 : line;
    }

    void Hold(QDropEvent& event) const {
        if (FilesOf(*event.mimeData()).empty()) {
            event.ignore();
            return;
        }
        list.setCurrentRow(LineAt(event));
        Accept(event);
    }

    void Take(QDropEvent& event) {
        std::vector<std::string> files = FilesOf(*event.mimeData());
        if (files.empty()) {
            event.ignore();
            return;
        }
        Accept(event);
        QMetaObject::invokeMethod(
            this, [this, line = LineAt(event), files = std::move(files)] { dropped(line, files); },
            Qt::QueuedConnection);
    }

    /// The files stay where they are, whatever else was proposed.
    static void Accept(QDropEvent& event) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    }

    QListWidget& list;
    std::function<void(int, std::vector<std::string>)> dropped;
};

} // namespace

std::string LocalFileOf(const QUrl& url) {
    const std::string name = url.toLocalFile().toStdString();
    // Qt's own name has U+FFFD for each byte that is no UTF-8, and names another file.
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return name.empty() || IsUtf8(bytes.toStdString()) ? name : bytes.toStdString();
}

void AcceptFiles(QListWidget& list, std::function<void(int line, std::vector<std::string> files)> dropped) {
    new FileDrop(list, std::move(dropped));
}

} // namespace quelmont
