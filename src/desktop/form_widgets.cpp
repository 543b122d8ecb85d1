#include "desktop/form_widgets.h"

#include "core/column_heads.h"
#include "desktop/combo_field.h"
#include "desktop/fitting_area.h"
#include "desktop/heads_line.h"
#include "desktop/letter_sample.h"
#include "desktop/masked_edit.h"
#include "desktop/page_view.h"
#include "desktop/palette_grid.h"
#include "desktop/qt_text.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
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

/// The name of what has a caption.
QString Named(const std::string& caption) { return Spoken(Text(caption)).remove(QLatin1Char(':')); }

/// Letters in a line of an explanation.
constexpr int LineLetters = 62;
/// What the sides of a window's frame take of the screen, at most.
constexpr int FrameSides = 16;

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

} // namespace

FormWidgets::FormWidgets(Form& form_, QWidget* parent)
    : QDialog(parent), form(form_), outer(new QVBoxLayout(this)), area(new FittingArea(this)),
      column(new QVBoxLayout(area->widget())) {
    outer->setSizeConstraint(QLayout::SetFixedSize);
    outer->setSpacing(Gap());
    outer->setContentsMargins(Gap(), Gap(), Gap(), Gap());
    outer->addWidget(area);
    column->setSpacing(Gap());
    column->setContentsMargins(0, 0, 0, 0);
}

int FormWidgets::Gap() const { return fontMetrics().height(); }

void FormWidgets::Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show) {
    widget->setObjectName(Text(name));
    widget->installEventFilter(this);
    show(form.At(name));
    bindings.push_back({std::string(name), widget, std::move(show)});
}

void FormWidgets::Also(std::string_view name, std::function<void(const Control&)> show) {
    show(form.At(name));
    bindings.push_back({std::string(name), nullptr, std::move(show)});
}

QLabel* FormWidgets::AddLabel(std::string_view name) {
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    Bind(name, label, [label](const Control& control) { label->setText(Text(control.text)); });
    return label;
}

QLabel* FormWidgets::AddExplanation(std::string_view name) {
    auto* label = new Explanation;
    label->setParent(this);
    label->setTextFormat(Qt::PlainText);
    Bind(name, label, [this, label](const Control& control) {
        label->setText(Text(control.text));
        setAccessibleDescription(Text(control.text)); // what is read out when the dialog comes
    });
    return label;
}

QSpinBox* FormWidgets::AddSpin(std::string_view name) {
    auto* spin = new QSpinBox(this);
    spin->setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    spin->setAccessibleName(Named(form.At(name).caption));
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

QWidget* FormWidgets::AddEdit(std::string_view name) {
    const Control& control = form.At(name);
    auto* edit = new MaskedEdit(
        control.mask, [this, own = std::string(name)](const std::string& text) { form.Type(own, text); },
        this);
    edit->setAccessibleName(Named(control.caption));
    Bind(name, edit, [edit](const Control& now) {
        edit->Show(now.text);
        edit->setEnabled(now.enabled);
    });
    edit->setAccessibleDescription(Text(ColumnWords(control.mask)));
    edits.push_back(edit);
    return edit;
}

QRadioButton* FormWidgets::AddOption(std::string_view name) {
    auto* option = new QRadioButton(this);
    Bind(name, option, [option](const Control& control) {
        const QSignalBlocker quiet(option);
        option->setText(Text(control.text));
        option->setAccessibleName(Named(control.text));
        option->setEnabled(control.enabled);
        if (control.value != 0) {
            option->setChecked(true);
        }
        // Of options, Tab reaches the one that is chosen: Qt cares for that from the first focus on alone.
        option->setFocusPolicy(control.value != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    });
    connect(option, &QRadioButton::toggled, this, [this, own = std::string(name)](bool on) {
        if (on) {
            form.Choose(own);
        }
    });
    return option;
}

QCheckBox* FormWidgets::AddCheck(std::string_view name) {
    auto* check = new QCheckBox(this);
    Bind(name, check, [check](const Control& control) {
        const QSignalBlocker quiet(check);
        check->setText(Text(control.text));
        check->setAccessibleName(Named(control.text));
        check->setEnabled(control.enabled);
        check->setChecked(control.value != 0);
    });
    connect(check, &QCheckBox::toggled, this,
            [this, own = std::string(name)](bool on) { form.Choose(own, on ? 1 : 0); });
    return check;
}

QListWidget* FormWidgets::AddList(std::string_view name) {
    auto* list = new QListWidget(this);
    list->setAccessibleName(Named(form.At(name).caption));
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

QWidget* FormWidgets::AddPalette(std::string_view name) {
    const std::string own(name);
    auto* grid = new PaletteGrid([this, own](int cell) { form.Hover(own, cell); },
                                 [this, own](int cell) { form.Choose(own, cell); }, this);
    grid->setAccessibleName(Named(form.At(name).caption));
    Bind(name, grid, [grid](const Control& control) { grid->Show(control); });
    return grid;
}

GridTable* FormWidgets::AddGrid(std::string_view name, GridTable::Painter painter) {
    const std::string own(name);
    const auto pressed = [this, own](int cell) {
        // The focus that the press brought is still on its way, and a dialog that opens would lose it.
        form.MoveFocus(own);
        form.Choose(own, cell);
        FollowFocus();
    };
    auto* grid =
        new GridTable([this, own](int cell) { form.MoveTo(own, cell); }, pressed, std::move(painter), this);
    grid->setAccessibleName(Named(form.At(name).caption));
    Bind(name, grid, [grid](const Control& control) { grid->Show(control); });
    return grid;
}

ComboField* FormWidgets::AddCombo(std::string_view name) {
    const std::string own(name);
    auto* combo = new ComboField([this, own](const std::string& text) { form.Type(own, text); },
                                 [this, own](int line) { form.Choose(own, line); }, this);
    combo->setAccessibleName(Named(form.At(name).caption));
    combo->lineEdit()->setAccessibleName(combo->accessibleName());
    Bind(name, combo, [combo](const Control& control) { combo->Show(control); });
    return combo;
}

LetterSample* FormWidgets::AddSample(std::string_view name) {
    auto* sample = new LetterSample(this);
    Bind(name, sample, [sample](const Control& control) {
        sample->setAccessibleName(Text(control.caption));
        sample->Show(control);
    });
    return sample;
}

PageView* FormWidgets::AddPage(std::string_view name) {
    auto* page = new PageView(Room(), this);
    page->setAccessibleName(Text(form.Caption()));
    Bind(name, page, [this, page](const Control& control) {
        page->Show(control);
        area->updateGeometry(); // letters of another size make another page
    });
    pages.push_back(page);
    return page;
}

void FormWidgets::AddMenu(std::string_view name) {
    const Control& control = form.At(name);
    auto* bar = qobject_cast<QMenuBar*>(outer->menuBar());
    if (bar == nullptr) {
        bar = new QMenuBar(this);
        bar->setNativeMenuBar(false);
        outer->setMenuBar(bar);
    }
    QMenu* menu = bar->addMenu(Text(control.text));
    menu->setObjectName(Text(name));
    menu->setAccessibleName(Spoken(menu->title()));
    int index = 0;
    for (const std::string& item : control.items) {
        connect(menu->addAction(Text(item)), &QAction::triggered, this,
                [this, own = std::string(name), index] {
                    form.Choose(own, index);
                    FollowFocus();
                });
        ++index;
    }
}

QPushButton* FormWidgets::AddButton(std::string_view name) {
    auto* button = new QPushButton(this);
    button->setFocusPolicy(Qt::TabFocus);
    button->setDefault(name == form.DefaultButton());
    Bind(name, button, [button](const Control& control) {
        button->setText(Text(control.text));
        button->setAccessibleName(Named(control.text));
        button->setEnabled(control.enabled);
        if (!control.colors.empty()) {
            button->setIcon(Swatch(control.colors.front(), button->iconSize()));
        }
    });
    connect(button, &QPushButton::clicked, this, [this, own = std::string(name)] { Press(own); });
    return button;
}

QWidget* FormWidgets::AddField(std::string_view name) {
    switch (form.At(name).kind) {
    case ControlKind::Spin:
        return AddSpin(name);
    case ControlKind::Edit:
        return AddEdit(name);
    case ControlKind::Combo:
        return AddCombo(name);
    default: {
        QLabel* label = AddLabel(name);
        label->setAccessibleName(Named(form.At(name).caption));
        // A text that is only shown stands where that of an edit would (masked_edit.h).
        const bool twoDegreeDigits = form.At(name).text.find(' ') == 2;
        label->setIndent(style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + MaskedEdit::LineMargin +
                         (twoDegreeDigits ? fontMetrics().horizontalAdvance(QLatin1Char('0')) : 0));
        return label;
    }
    }
}

QLabel* FormWidgets::CaptionOf(QWidget* field) {
    const std::string name = field->objectName().toStdString();
    auto* label = new QLabel(Text(form.At(name).caption), this);
    label->setObjectName(field->objectName() + QLatin1String("Caption"));
    label->setBuddy(field);
    return label;
}

QWidget* FormWidgets::HeadsOf(QWidget* field) {
    const auto found = std::find(edits.begin(), edits.end(), field);
    if (found == edits.end() || ColumnHeads((*found)->Mask()).empty()) {
        return nullptr;
    }
    auto* heads = new HeadsLine(**found, this);
    heads->setObjectName(field->objectName() + QLatin1String("Heads"));
    return heads;
}

void FormWidgets::FollowFocus() {
    if (form.Closed()) {
        return;
    }
    for (const Binding& binding : bindings) {
        if (binding.name == form.Focus() && binding.widget != nullptr && focusWidget() != binding.widget) {
            binding.widget->setFocus(Qt::OtherFocusReason);
        }
    }
}

QSize FormWidgets::Room() const {
    const QMargins margins = outer->contentsMargins();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return screen()->availableGeometry().size() -
           QSize(margins.left() + margins.right() + area->verticalScrollBar()->sizeHint().width() +
                     FrameSides,
                 margins.top() + margins.bottom() + title + FrameSides / 2);
}

} // namespace quelmont
