#include "desktop/form_view.h"

#include "desktop/fitting_area.h"
#include "desktop/heads_line.h"
#include "desktop/masked_edit.h"
#include "desktop/page_view.h"
#include "desktop/qt_text.h"
#include "platform/help_pages.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace quelmont {

namespace {

/// Letters that a line of a caption keeps when it wraps.
constexpr int FewestLetters = 11;

} // namespace

FormView::FormView(Form& shown, QWidget* parent) : FormWidgets(shown, parent) {
    setObjectName(Text(form.ClassName()));
    setWindowTitle(Text(form.Caption()));
    form.SetWatcher([this] { FromForm(); });
}

FormView::~FormView() { form.SetWatcher(nullptr); }

void FormView::AddFields(const QString& title, std::initializer_list<std::string_view> names,
                         std::string_view heading) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Gap());
    int row = 0;
    if (!heading.empty()) {
        grid->addWidget(AddLabel(heading), row++, 1);
    }
    bool headed = false;
    for (const std::string_view name : names) {
        QWidget* field = AddField(name);
        if (QWidget* heads = headed ? nullptr : HeadsOf(field); heads != nullptr) {
            headed = true;
            grid->addWidget(heads, row++, 1, Qt::AlignLeft | Qt::AlignBottom);
        }
        QLabel* label = CaptionOf(field);
        fieldCaptions.push_back(label);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1, Qt::AlignLeft | Qt::AlignVCenter);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    if (title.isEmpty()) {
        column->addLayout(grid);
        return;
    }
    auto* group = new QGroupBox(title, this);
    group->setLayout(grid);
    column->addWidget(group);
}

void FormView::AddFrame(std::string_view frame) { column->addWidget(FrameOfOptions(frame)); }

QGroupBox* FormView::FrameOfOptions(std::string_view frame) {
    auto* group = new QGroupBox(this);
    auto* options = new QVBoxLayout(group);
    for (const Control& control : form.Controls()) {
        if (control.kind == ControlKind::Option && control.frame == frame) {
            options->addWidget(AddOption(control.name));
        }
    }
    options->addStretch();
    Bind(frame, group, [group](const Control& control) { group->setTitle(Text(control.text)); });
    return group;
}

void FormView::AddButtons(std::initializer_list<std::string_view> names) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (const std::string_view name : names) {
        row->addWidget(AddButton(name));
    }
    outer->addLayout(row);
}

void FormView::AlignCaptions() const {
    int widest = 0;
    for (const QLabel* label : fieldCaptions) {
        widest = std::max(widest, label->sizeHint().width());
    }
    for (QLabel* label : fieldCaptions) {
        label->setMinimumWidth(widest);
    }
}

void FormView::Press(const std::string& button) {
    // What was typed counts, though the focus has not left its field.
    for (QAbstractSpinBox* spin : spins) {
        spin->interpretText();
    }
    for (MaskedEdit* edit : edits) {
        edit->Leave();
    }
    form.Press(button);
    TakeFocusBack(button);
}

const FormView::Binding* FormView::Of(const QObject* widget) const {
    const auto found = std::find_if(bindings.begin(), bindings.end(),
                                    [&](const Binding& binding) { return binding.widget == widget; });
    return found == bindings.end() ? nullptr : &*found;
}

void FormView::FromForm() {
    if (form.Closed()) {
        done(0);
        return;
    }
    for (const Binding& binding : bindings) {
        binding.show(form.At(binding.name));
    }
}

void FormView::TakeFocusBack(std::string_view asked) {
    FollowFocus();
    if (form.Closed() || form.Focus() == asked) {
        return;
    }
    for (MaskedEdit* edit : edits) {
        if (edit->objectName() == Text(form.Focus())) {
            edit->Enter();
        }
    }
}

void FormView::FocusArrived(QObject* widget) {
    if (auto* reached = qobject_cast<QWidget*>(widget); area->isAncestorOf(reached)) {
        area->BringIntoSight(*reached);
    }
    const Binding* binding = Of(widget);
    if (binding == nullptr || form.Closed() || focusWidget() != widget || !isActiveWindow() ||
        QApplication::activeModalWidget() != this) {
        return;
    }
    form.MoveFocus(binding->name);
    TakeFocusBack(binding->name);
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        QMetaObject::invokeMethod(
            this, [this, watched] { FocusArrived(watched); }, Qt::QueuedConnection);
    }
    return QDialog::eventFilter(watched, event);
}

void FormView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        form.PressF1();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void FormView::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!seen) {
        seen = true;
        AlignCaptions();
        FitScreen();
        MoveToMiddle();
        FollowFocus();
        for (QAbstractSpinBox* spin : spins) {
            if (spin == focusWidget()) {
                spin->selectAll();
            }
        }
    }
}

void FormView::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const QRect room = screen()->availableGeometry();
    const QRect place = frameGeometry();
    if (seen && !room.contains(place)) {
        move(std::clamp(place.left(), room.left(), std::max(room.left(), room.right() + 1 - place.width())),
             std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() + 1 - place.height())));
    }
}

void FormView::FitScreen() {
    outer->activate();
    const int buttons = outer->totalSizeHint().height() - area->sizeHint().height() -
                        outer->contentsMargins().top() - outer->contentsMargins().bottom();
    const QSize room = Room() - QSize(0, buttons);
    WrapCaptions(room.width());
    for (PageView* page : pages) {
        page->SetRoom(room); // a page has bars of its own
    }
    // The bar that Room leaves free is the area's own.
    area->SetRoom(room + QSize(area->verticalScrollBar()->sizeHint().width(), 0));
}

void FormView::WrapCaptions(int room) const {
    const int tooWide = area->widget()->sizeHint().width() - room;
    if (tooWide <= 0) {
        return;
    }
    for (QLabel* label : fieldCaptions) {
        label->setWordWrap(true);
        label->setFixedWidth(
            std::max(label->minimumWidth() - tooWide, FewestLetters * fontMetrics().averageCharWidth()));
    }
}

QRect FormView::PlaceOf(std::string_view name) const {
    const auto found = std::find_if(bindings.begin(), bindings.end(),
                                    [&](const Binding& binding) { return binding.name == name; });
    if (found == bindings.end() || found->widget == nullptr || !found->widget->isVisible()) {
        return {};
    }
    QRect place(found->widget->mapTo(this, QPoint(0, 0)), found->widget->size());
    for (const QLabel* label : findChildren<QLabel*>()) {
        if (label->buddy() == found->widget) {
            place |= QRect(label->mapTo(this, QPoint(0, 0)), label->size());
        }
    }
    return place & rect();
}

int FormView::HelpContextOf(std::string_view name) const {
    const int context = quelmont::HelpContextOf(form.ClassName(), name.empty() ? form.Focus() : name);
    return context != 0 ? context : form.HelpPage();
}

void FormView::MoveToMiddle() {
    adjustSize();
    QRect place = frameGeometry();
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft());
}

void FormView::reject() { form.PressCancel(); }

} // namespace quelmont
