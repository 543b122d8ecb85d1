#include "desktop/line_drag.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

constexpr int NoLine = -1;
constexpr int BarHeight = 2;

class LineDrag final : public QObject {
public:
    LineDrag(QListWidget& list_, std::function<void(int, int)> moved_, std::function<void()> deleted_)
        : QObject(&list_), list(list_), moved(std::move(moved_)), deleted(std::move(deleted_)),
          bar(new QFrame(list_.viewport())) {
        bar->setObjectName(QStringLiteral("DragBar"));
        bar->setAutoFillBackground(true);
        bar->setBackgroundRole(QPalette::Highlight);
        bar->setAttribute(Qt::WA_TransparentForMouseEvents);
        bar->hide();
        list.installEventFilter(this);
        list.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &list) {
            return event->type() == QEvent::KeyPress && TakesKey(static_cast<QKeyEvent*>(event)->key());
        }
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            Press(*static_cast<QMouseEvent*>(event));
            return false;
        case QEvent::MouseMove:
            return Move(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            Release(*static_cast<QMouseEvent*>(event));
            return false;
        default:
            return false;
        }
    }

private:
    bool TakesKey(int key) {
        if (key == Qt::Key_Delete) {
            deleted();
            return true;
        }
        if (key == Qt::Key_Escape && dragging) {
            Forget();
            return true;
        }
        return false;
    }

    void Press(const QMouseEvent& event) {
        const QPoint place = event.position().toPoint();
        held = event.button() == Qt::LeftButton ? list.indexAt(place).row() : NoLine;
        from = place;
    }

    /// The list itself would select whatever the mouse is drawn over.
    bool Move(const QMouseEvent& event) {
        if (held == NoLine || (event.buttons() & Qt::LeftButton) == 0) {
            return false;
        }
        const QPoint place = event.position().toPoint();
        dragging = dragging || (place - from).manhattanLength() >= QApplication::startDragDistance();
        if (dragging) {
            ScrollTo(place.y());
            ShowBar(LineBelow(place.y()));
        }
        return true;
    }

    void Release(const QMouseEvent& event) {
        if (dragging && event.button() == Qt::LeftButton) {
            QMetaObject::invokeMethod(
                this,
                [this, line = held, before = LineBelow(event.position().toPoint().y())] {
                    moved(line, before);
                },
                Qt::QueuedConnection);
        }
        Forget();
    }

    void Forget() {
        held = NoLine;
        dragging = false;
        bar->hide();
    }

    void ScrollTo(int y) {
        QScrollBar& scroll = *list.verticalScrollBar();
        if (y < 0) {
            scroll.setValue(scroll.value() - scroll.singleStep());
        } else if (y >= list.viewport()->height()) {
            scroll.setValue(scroll.value() + scroll.singleStep());
        }
    }

    /// The line whose upper edge is the nearest to a height in the viewport.
    int LineBelow(int y) const {
        const int last = list.count() - 1;
        const QPoint inside(0, std::clamp(y, 0, list.viewport()->height() - 1));
        const QModelIndex index = list.indexAt(inside);
        if (!index.isValid()) {
            return last;
        }
        return std::min(last, index.row() + (y > list.visualRect(index).center().y() ? 1 : 0));
    }

    void ShowBar(int line) {
        const int top = list.visualItemRect(list.item(line)).top();
        bar->setGeometry(0, std::max(0, top - BarHeight / 2), list.viewport()->width(), BarHeight);
        bar->show();
    }

    QListWidget& list;
    std::function<void(int, int)> moved;
    std::function<void()> deleted;
    QFrame* bar;
    int held = NoLine; ///< the line under the mouse when its button went down
    QPoint from;
    bool dragging = false;
};

} // namespace

void AcceptLineDrags(QListWidget& list, std::function<void(int line, int before)> moved,
                     std::function<void()> deleted) {
    new LineDrag(list, std::move(moved), std::move(deleted));
}

} // namespace quelmont
