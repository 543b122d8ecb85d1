#include "desktop/choose_layout.h"

#include "core/map_design.h"
#include "desktop/form_view.h"
#include "desktop/qt_text.h"
#include "qtsurface/image_surface.h"
#include "view/choose_projection_form.h"
#include "view/small_map.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace quelmont {

namespace {

/// In heights of a line of text.
constexpr int PictureHeight = 5;
constexpr int PictureWidth = 8;
/// Of a line beside the picture, in letters.
constexpr int LineLetters = 56;
constexpr int CandidatesInSight = 3;

/// Paints a projection: its small map, and beside it its name, the reason and its errors in lines that wrap.
class CandidatePainter final : public QStyledItemDelegate {
public:
    explicit CandidatePainter(QListWidget* list_) : QStyledItemDelegate(list_), list(list_) {}

    QSize Picture() const {
        const int line = list->fontMetrics().height();
        return {PictureWidth * line, PictureHeight * line};
    }
    int Gap() const { return list->fontMetrics().height() / 2; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem item(option);
        initStyleOption(&item, index);
        const QStringList lines = LinesOf(index);
        item.text.clear();
        item.icon = {};
        list->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, list);
        const QRect place = item.rect.adjusted(Gap(), Gap(), -Gap(), -Gap());
        const QRect picture(place.topLeft(), Picture());
        painter->drawPixmap(picture, index.data(Qt::DecorationRole).value<QPixmap>());
        const bool chosen = (item.state & QStyle::State_Selected) != 0;
        const auto group = (item.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
        painter->save();
        painter->setPen(item.palette.color(group, chosen ? QPalette::HighlightedText : QPalette::Text));
        painter->drawRect(picture.adjusted(0, 0, -1, -1));
        int top = place.top();
        for (qsizetype line = 0; line < lines.size(); ++line) {
            painter->setFont(FontOf(line));
            const QRect room(picture.right() + 2 * Gap(), top, TextWidth(), place.height());
            QRect used;
            painter->drawText(room, Qt::TextWordWrap, lines[line], &used);
            top += used.height() + LineGap();
        }
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override {
        const QStringList lines = LinesOf(index);
        int height = 0;
        for (qsizetype line = 0; line < lines.size(); ++line) {
            height +=
                QFontMetrics(FontOf(line))
                    .boundingRect(QRect(0, 0, TextWidth(), QWIDGETSIZE_MAX), Qt::TextWordWrap, lines[line])
                    .height() +
                LineGap();
        }
        return {Picture().width(), std::max(height, Picture().height()) + 2 * Gap()};
    }

private:
    static QStringList LinesOf(const QModelIndex& index) {
        return index.data(Qt::DisplayRole).toString().split(QLatin1Char('\n'));
    }
    int LineGap() const { return Gap() / 2; }
    /// The same with and without a bar to scroll.
    int TextWidth() const {
        return list->width() - 2 * list->frameWidth() - list->verticalScrollBar()->sizeHint().width() -
               Picture().width() - 4 * Gap();
    }
    QFont FontOf(qsizetype line) const {
        QFont font = list->font();
        font.setBold(line == 0);
        return font;
    }

    QListWidget* list;
};

QPixmap PictureOf(const ProjectionCandidate& candidate, QSize size, qreal ratio) {
    const QSize pixels = size * ratio;
    ImageSurface surface(pixels.width(), pixels.height());
    surface.Clear(ColorBits(Design.BackColor));
    DrawSmallMap(surface, pixels.width(), pixels.height(), candidate.projNum, candidate.bounds);
    QPixmap picture = QPixmap::fromImage(surface.Image().copy());
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void AddCandidates(FormView& view) {
    QListWidget* list = view.AddList("Candidates");
    auto* painter = new CandidatePainter(list);
    list->setItemDelegate(painter);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int letters = LineLetters * list->fontMetrics().averageCharWidth();
    const int wanted = painter->Picture().width() + letters + 6 * painter->Gap();
    list->setMinimumWidth(std::min(wanted, view.Room().width()));
    list->setMaximumWidth(QWIDGETSIZE_MAX);
    list->setFixedHeight(CandidatesInSight * (painter->Picture().height() + 2 * painter->Gap()) +
                         2 * list->frameWidth());
    list->setResizeMode(QListView::Adjust);
    auto* form = dynamic_cast<ChooseProjectionForm*>(&view.Shown());
    view.Also("Candidates",
              [list, painter, form, shown = std::vector<std::string>()](const Control& control) mutable {
                  if (form == nullptr || shown == control.items) {
                      return;
                  }
                  shown = control.items;
                  for (int line = 0; line < list->count(); ++line) {
                      const auto& candidate = form->Candidates().at(static_cast<std::size_t>(line));
                      list->item(line)->setData(Qt::DecorationRole, PictureOf(candidate, painter->Picture(),
                                                                              list->devicePixelRatioF()));
                  }
                  list->doItemsLayout(); // other reasons may take another number of lines
                  list->scrollToTop();
              });
    view.Column()->addWidget(view.CaptionOf(list));
    view.Column()->addWidget(list);
}

} // namespace

void LayOutChooseProjection(FormView& view) {
    auto* questions = new QHBoxLayout;
    questions->setSpacing(view.Gap());
    for (const char* const frame : {"Purpose", "Region"}) {
        questions->addWidget(view.FrameOfOptions(frame));
    }
    view.Column()->addLayout(questions);
    view.Column()->addWidget(view.AddExplanation("RegionText"));
    AddCandidates(view);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
