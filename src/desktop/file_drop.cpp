#include "desktop/file_drop.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>

#include <utility>

namespace quelmont {

namespace {

std::vector<std::string> FilesOf(const QMimeData& data) {
    std::vector<std::string> files;
    for (const QUrl& url : data.urls()) {
        const QString name = url.toLocalFile();
        if (!name.isEmpty() && !QFileInfo(name).isDir()) {
            files.push_back(name.toStdString());
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

void AcceptFiles(QListWidget& list, std::function<void(int line, std::vector<std::string> files)> dropped) {
    new FileDrop(list, std::move(dropped));
}

} // namespace quelmont
