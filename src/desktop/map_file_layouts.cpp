#include "desktop/map_file_layouts.h"

#include "core/file_names.h"
#include "desktop/file_drop.h"
#include "desktop/form_view.h"
#include "desktop/grid_table.h"
#include "desktop/line_drag.h"
#include "desktop/qt_text.h"
#include "desktop/symbol_picture.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace quelmont {

namespace {

/// Lines of the list of files that are seen at once, and the letters of a line.
constexpr int ListLines = 10;
constexpr int ListLetters = 72;
/// Features that are seen at once.
constexpr int FeatureRowsShown = 14;

/// A caption and the name of a file, of which the end is shown when it is too long for the window.
class FileNameLabel final : public QLabel {
public:
    explicit FileNameLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    void Show(const Control& control) {
        caption = Text(control.caption);
        name = control.text;
        setAccessibleName(caption + Text(name));
        setToolTip(Text(name));
        Elide();
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        Elide();
    }

private:
    void Elide() {
        const auto shown = [this](std::string_view text) { return caption + Text(text); };
        setText(shown(ElidedName(name, [&](std::string_view text) {
            return fontMetrics().horizontalAdvance(shown(text)) <= contentsRect().width();
        })));
    }

    QString caption;
    std::string name;
};

/// Lines as wide as their list, so that long ones are elided.
class NarrowLines final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {1, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

/// The beginning and the end of a long name tell more than its middle; the whole stands in a tooltip.
void ElideLines(FormView& view, const char* name, QListWidget* list) {
    list->setItemDelegate(new NarrowLines(list));
    list->setTextElideMode(Qt::ElideMiddle);
    view.Also(name, [list](const Control&) {
        for (int line = 0; line < list->count(); ++line) {
            list->item(line)->setToolTip(list->item(line)->text().toHtmlEscaped());
        }
    });
}

QVBoxLayout* UnderCaption(FormView& view, QWidget* field) {
    auto* place = new QVBoxLayout;
    place->addWidget(view.CaptionOf(field));
    place->addWidget(field);
    place->addStretch();
    return place;
}

} // namespace

void LayOutFileList(FormView& view) {
    for (const char* const text : {"Label1", "Label2", "Label4"}) {
        view.Column()->addWidget(view.AddExplanation(text));
    }
    QLabel* caption = view.AddLabel("Label3");
    view.Column()->addWidget(caption);
    QListWidget* list = view.AddList("InputFilesOpen");
    ElideLines(view, "InputFilesOpen", list);
    auto* moves = new QVBoxLayout;
    for (const char* const button : {"MoveUp", "MoveDown"}) {
        moves->addWidget(view.AddButton(button));
    }
    moves->addStretch();
    const int mostWidth =
        view.screen()->availableGeometry().width() - 5 * view.Gap() - moves->sizeHint().width();
    list->setFixedSize(std::min(ListLetters * view.fontMetrics().averageCharWidth(), mostWidth),
                       ListLines * list->sizeHintForRow(0) + 2 * list->frameWidth());
    AcceptFiles(*list, [&view](int line, std::vector<std::string> files) {
        view.Shown().Drop("InputFilesOpen", line, std::move(files));
    });
    AcceptLineDrags(
        *list, [&view](int line, int before) { view.Shown().Drag("InputFilesOpen", line, before); },
        [&view] { view.Shown().PressDelete("InputFilesOpen"); });
    caption->setBuddy(list);
    auto* files = new QHBoxLayout;
    files->addWidget(list);
    files->addLayout(moves);
    view.Column()->addLayout(files);
    auto* buttons = new QHBoxLayout;
    for (const char* const button : {"InputFileAdd", "InputFileEdit", "InputFileDelete"}) {
        buttons->addWidget(view.AddButton(button));
    }
    view.Column()->addLayout(buttons);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutFileParameters(FormView& view) {
    auto* name = new FileNameLabel(&view);
    view.Bind("MapFile", name, [name](const Control& control) { name->Show(control); });
    view.Column()->addWidget(name);
    auto* grids = new QHBoxLayout;
    grids->setSpacing(view.Gap());
    const int mostWidth = view.screen()->availableGeometry().width() * 3 / 5;
    GridTable* types = view.AddGrid("SymbolType1", SymbolPicture);
    GridTable* features = view.AddGrid("GeoFeatures", {});
    features->ReserveHeading(0, QStringLiteral("Symbol Radius"));
    features->Fit(FeatureRowsShown, mostWidth);
    types->FillHeight(features->height());
    types->Fit(types->rowCount(), mostWidth);
    types->FillHeight(features->height());
    grids->addLayout(UnderCaption(view, types));
    QVBoxLayout* const featuresPlace = UnderCaption(view, features);
    auto* allRows = new QHBoxLayout;
    allRows->addWidget(view.AddButton("ShowAll"));
    allRows->addWidget(view.AddButton("HideAll"));
    allRows->addStretch();
    featuresPlace->addLayout(allRows);
    grids->addLayout(featuresPlace);
    view.Column()->addLayout(grids);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutSymbolSize(FormView& view) {
    QWidget* size = view.AddField("SymbolSize");
    auto* row = new QHBoxLayout;
    row->addWidget(view.CaptionOf(size));
    row->addWidget(size);
    row->addWidget(view.AddLabel("SizeUnit"));
    row->addStretch();
    view.Column()->addLayout(row);
    view.AddButtons({"ButtonOK"});
}

void LayOutAsciiOutputs(FormView& view) {
    view.Column()->addWidget(view.AddExplanation("Help"));
    GridTable* files = view.AddGrid("AscGrid", {});
    // Names of eight and three letters fit in, longer ones widen their columns.
    files->ReserveHeading(0, QStringLiteral("888"));
    files->ReserveHeading(1, QStringLiteral("  WWWWWWWW.WWW"));
    files->ReserveHeading(2, QStringLiteral("  WWWWWWWW.WWW"));
    files->Fit(ListLines, view.screen()->availableGeometry().width() * 3 / 5);
    view.Column()->addWidget(view.CaptionOf(files));
    view.Column()->addWidget(files);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
