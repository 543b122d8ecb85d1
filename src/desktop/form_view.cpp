#include "desktop/form_view.h"

#include "core/column_heads.h"
#include "desktop/heads_line.h"
#include "desktop/masked_edit.h"
#include "desktop/palette_grid.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace quelmont {

namespace {

/// Letters in a line of an explanation.
constexpr int LineLetters = 62;
/// Letters that a line of a caption keeps when it wraps.
constexpr int FewestLetters = 11;
/// What the sides of a window's frame take of the screen, at most.
constexpr int FrameSides = 16;

QString Text(const std::string& text) { return QString::fromStdString(text); }

/// A text without the marks of mnemonics.
QString Spoken(QString text) { return text.remove(QLatin1Char('&')).remove(QLatin1Char(':')); }

/// A text that wraps at a comfortable length, whatever the size of the letters.
class Explanation final : public QLabel {
public:
    Explanation() {
        setWordWrap(true);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override { return {Width(), heightForWidth(Width())}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// A wider dialog makes its lines no longer, and so the text no lower.
    int heightForWidth(int width) const override { return QLabel::heightForWidth(std::min(width, Width())); }

private:
    int Width() const {
        // Four heights of a line are more than the margins of a dialog.
        const int room = screen()->availableGeometry().width() - 4 * fontMetrics().height();
        return std::min(LineLetters * fontMetrics().averageCharWidth(), room);
    }
};

/// A square of a colour in a frame.
QIcon Swatch(std::uint32_t color, QSize size) {
    QPixmap square(size);
    square.fill(Qt::black);
    QPainter(&square).fillRect(QRect(QPoint(1, 1), size - QSize(2, 2)), QColorOf(color));
    return square;
}

QString Name(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

FormView::FormView(Form& form_, QWidget* parent)
    : QDialog(parent), form(form_), outer(new QVBoxLayout(this)), area(new FittingArea(this)),
      column(new QVBoxLayout(area->widget())) {
    setObjectName(Text(form.ClassName()));
    setWindowTitle(Text(form.Caption()));
    outer->setSizeConstraint(QLayout::SetFixedSize);
    outer->setSpacing(Gap());
    outer->setContentsMargins(Gap(), Gap(), Gap(), Gap());
    outer->addWidget(area);
    column->setSpacing(Gap());
    column->setContentsMargins(0, 0, 0, 0);
    form.SetWatcher([this] { FromForm(); });
}

FormView::~FormView() { form.SetWatcher(nullptr); }

int FormView::Gap() const { return fontMetrics().height(); }

void FormView::Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show) {
    widget->setObjectName(Name(name));
    widget->installEventFilter(this);
    show(form.At(name));
    bindings.push_back({std::string(name), widget, std::move(show)});
}

void FormView::Also(std::string_view name, std::function<void(const Control&)> show) {
    show(form.At(name));
    bindings.push_back({std::string(name), nullptr, std::move(show)});
}

QLabel* FormView::AddLabel(std::string_view name) {
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    Bind(name, label, [label](const Control& control) { label->setText(Text(control.text)); });
    return label;
}

QLabel* FormView::AddExplanation(std::string_view name) {
    auto* label = new Explanation;
    label->setParent(this);
    label->setTextFormat(Qt::PlainText);
    Bind(name, label, [label](const Control& control) { label->setText(Text(control.text)); });
    return label;
}

QSpinBox* FormView::AddSpin(std::string_view name) {
    auto* spin = new QSpinBox(this);
    spin->setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    spin->setAccessibleName(Spoken(Text(form.At(name).caption)));
    Bind(name, spin, [spin](const Control& control) {
        const QSignalBlocker quiet(spin);
        spin->setRange(control.minimum, control.maximum);
        if (spin->value() != control.value) {
            spin->setValue(control.value);
        }
        spin->setEnabled(control.enabled);
    });
    connect(spin, &QSpinBox::valueChanged, this,
            [this, own = std::string(name)](int value) { form.Spin(own, value); });
    spins.push_back(spin);
    return spin;
}

QWidget* FormView::AddEdit(std::string_view name) {
    const Control& control = form.At(name);
    auto* edit = new MaskedEdit(
        control.mask, [this, own = std::string(name)](const std::string& text) { form.Type(own, text); },
        this);
    edit->setAccessibleName(Spoken(Text(control.caption)));
    Bind(name, edit, [edit](const Control& now) {
        edit->Show(now.text);
        edit->setEnabled(now.enabled);
    });
    edit->setAccessibleDescription(Text(ColumnWords(control.mask)));
    edits.push_back(edit);
    return edit;
}

QRadioButton* FormView::AddOption(std::string_view name) {
    auto* option = new QRadioButton(this);
    Bind(name, option, [option](const Control& control) {
        const QSignalBlocker quiet(option);
        option->setText(Text(control.text));
        option->setAccessibleName(Spoken(Text(control.text)));
        option->setEnabled(control.enabled);
        if (control.value != 0) {
            option->setChecked(true);
        }
    });
    connect(option, &QRadioButton::toggled, this, [this, own = std::string(name)](bool on) {
        if (on) {
            form.Choose(own);
        }
    });
    return option;
}

QCheckBox* FormView::AddCheck(std::string_view name) {
    auto* check = new QCheckBox(this);
    Bind(name, check, [check](const Control& control) {
        const QSignalBlocker quiet(check);
        check->setText(Text(control.text));
        check->setAccessibleName(Spoken(Text(control.text)));
        check->setEnabled(control.enabled);
        check->setChecked(control.value != 0);
    });
    connect(check, &QCheckBox::toggled, this,
            [this, own = std::string(name)](bool on) { form.Choose(own, on ? 1 : 0); });
    return check;
}

QListWidget* FormView::AddList(std::string_view name) {
    auto* list = new QListWidget(this);
    list->setAccessibleName(Spoken(Text(form.At(name).caption)));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Bind(name, list, [list](const Control& control) {
        const QSignalBlocker quiet(list);
        const int count = static_cast<int>(control.items.size());
        while (list->count() > count) {
            delete list->takeItem(list->count() - 1);
        }
        for (int line = 0; line < count; ++line) {
            const QString text = Text(control.items[static_cast<std::size_t>(line)]);
            if (line == list->count()) {
                list->addItem(text);
            } else if (list->item(line)->text() != text) {
                list->item(line)->setText(text);
            }
        }
        list->setCurrentRow(control.value);
        list->setEnabled(control.enabled);
    });
    const int lines = std::clamp(list->count(), 3, 12);
    const int width = list->sizeHintForColumn(0) + 2 * list->frameWidth() + Gap();
    int height = lines * list->sizeHintForRow(0) + 2 * list->frameWidth();
    if (width > Room().width()) {
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        height += list->horizontalScrollBar()->sizeHint().height();
    }
    list->setFixedSize(std::min(width, Room().width()), height);
    connect(list, &QListWidget::currentRowChanged, this, [this, own = std::string(name)](int line) {
        if (line != form.At(own).value) {
            form.Choose(own, line);
        }
    });
    connect(list, &QListWidget::itemDoubleClicked, this, [this, own = std::string(name)] {
        form.DoubleClick(own);
        FollowFocus();
    });
    return list;
}

QWidget* FormView::AddPalette(std::string_view name) {
    const std::string own(name);
    auto* grid = new PaletteGrid([this, own](int cell) { form.Hover(own, cell); },
                                 [this, own](int cell) { form.Choose(own, cell); }, this);
    grid->setAccessibleName(Spoken(Text(form.At(name).caption)));
    Bind(name, grid, [grid](const Control& control) { grid->Show(control); });
    return grid;
}

GridTable* FormView::AddGrid(std::string_view name, GridTable::Painter painter) {
    const std::string own(name);
    const auto pressed = [this, own](int cell) {
        // The focus that the press brought is still on its way, and a dialog that opens would lose it.
        form.MoveFocus(own);
        form.Choose(own, cell);
        FollowFocus();
    };
    auto* grid =
        new GridTable([this, own](int cell) { form.MoveTo(own, cell); }, pressed, std::move(painter), this);
    grid->setAccessibleName(Spoken(Text(form.At(name).caption)));
    Bind(name, grid, [grid](const Control& control) { grid->Show(control); });
    return grid;
}

QLabel* FormView::CaptionOf(QWidget* field) {
    const std::string name = field->objectName().toStdString();
    auto* label = new QLabel(Text(form.At(name).caption), this);
    label->setObjectName(field->objectName() + QLatin1String("Caption"));
    label->setBuddy(field);
    return label;
}

QWidget* FormView::HeadsOf(QWidget* field) {
    const auto found = std::find(edits.begin(), edits.end(), field);
    if (found == edits.end() || ColumnHeads((*found)->Mask()).empty()) {
        return nullptr;
    }
    auto* heads = new HeadsLine(**found, this);
    heads->setObjectName(field->objectName() + QLatin1String("Heads"));
    return heads;
}

QWidget* FormView::AddField(std::string_view name) {
    switch (form.At(name).kind) {
    case ControlKind::Spin:
        return AddSpin(name);
    case ControlKind::Edit:
        return AddEdit(name);
    default: {
        QLabel* label = AddLabel(name);
        label->setAccessibleName(Spoken(Text(form.At(name).caption)));
        // A text that is only shown stands where that of an edit would (masked_edit.h).
        const bool twoDegreeDigits = form.At(name).text.find(' ') == 2;
        label->setIndent(style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + MaskedEdit::LineMargin +
                         (twoDegreeDigits ? fontMetrics().horizontalAdvance(QLatin1Char('0')) : 0));
        return label;
    }
    }
}

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

void FormView::AddFrame(std::string_view frame) {
    auto* group = new QGroupBox(this);
    auto* options = new QVBoxLayout(group);
    for (const Control& control : form.Controls()) {
        if (control.kind == ControlKind::Option && control.frame == frame) {
            options->addWidget(AddOption(control.name));
        }
    }
    Bind(frame, group, [group](const Control& control) { group->setTitle(Text(control.text)); });
    column->addWidget(group);
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

QPushButton* FormView::AddButton(std::string_view name) {
    auto* button = new QPushButton(this);
    button->setFocusPolicy(Qt::TabFocus);
    button->setDefault(name == form.DefaultButton());
    Bind(name, button, [button](const Control& control) {
        button->setText(Text(control.text));
        button->setAccessibleName(Spoken(Text(control.text)));
        button->setEnabled(control.enabled);
        if (!control.colors.empty()) {
            button->setIcon(Swatch(control.colors.front(), button->iconSize()));
        }
    });
    connect(button, &QPushButton::clicked, this, [this, own = std::string(name)] { Press(own); });
    return button;
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

void FormView::FollowFocus() {
    if (form.Closed()) {
        return;
    }
    for (const Binding& binding : bindings) {
        if (binding.name == form.Focus() && binding.widget != nullptr && focusWidget() != binding.widget) {
            binding.widget->setFocus(Qt::OtherFocusReason);
        }
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

QSize FormView::Room() const {
    const QMargins margins = outer->contentsMargins();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return screen()->availableGeometry().size() -
           QSize(margins.left() + margins.right() + area->verticalScrollBar()->sizeHint().width() +
                     FrameSides,
                 margins.top() + margins.bottom() + title + FrameSides / 2);
}

void FormView::FitScreen() {
    outer->activate();
    const int buttons = outer->totalSizeHint().height() - area->sizeHint().height() -
                        outer->contentsMargins().top() - outer->contentsMargins().bottom();
    const QSize room = Room() - QSize(0, buttons);
    WrapCaptions(room.width());
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

void FormView::MoveToMiddle() {
    adjustSize();
    QRect place = frameGeometry();
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft());
}

void FormView::reject() { form.PressCancel(); }

} // namespace quelmont
