#include "desktop/form_view.h"

#include "desktop/map_reduce_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <stdexcept>

namespace quelmont {

namespace {

/// Letters in a line of an explanation.
constexpr int LineLetters = 62;

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
    QSize sizeHint() const override {
        const int width = LineLetters * fontMetrics().averageCharWidth();
        return {width, heightForWidth(width)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

std::unique_ptr<FormView> MakeView(Form& form, QWidget* parent) {
    if (form.ClassName() == "MapReduce") {
        return std::make_unique<MapReduceView>(form, parent);
    }
    throw std::logic_error("no view for " + form.ClassName());
}

} // namespace

FormView::FormView(Form& form_, QWidget* parent) : QDialog(parent), form(form_) {
    setObjectName(Text(form.ClassName()));
    setWindowTitle(Text(form.Caption()));
    form.SetWatcher([this] { FromForm(); });
}

FormView::~FormView() { form.SetWatcher(nullptr); }

void FormView::Bind(std::string_view name, QWidget* widget, std::function<void(const Control&)> show) {
    widget->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    widget->installEventFilter(this);
    show(form.At(name));
    bindings.push_back({std::string(name), widget, std::move(show)});
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

QSpinBox* FormView::AddSpin(std::string_view name, QLabel* label) {
    auto* spin = new QSpinBox(this);
    spin->setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    label->setBuddy(spin);
    spin->setAccessibleName(Spoken(label->text()));
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

QPushButton* FormView::AddButton(std::string_view name) {
    auto* button = new QPushButton(this);
    button->setFocusPolicy(Qt::TabFocus);
    button->setDefault(name == form.DefaultButton());
    Bind(name, button, [button](const Control& control) {
        button->setText(Text(control.text));
        button->setAccessibleName(Spoken(Text(control.text)));
        button->setEnabled(control.enabled);
    });
    connect(button, &QPushButton::clicked, this, [this, own = std::string(name)] { Press(own); });
    return button;
}

void FormView::Press(const std::string& button) {
    // What was typed counts, though the focus has not left its field.
    for (QAbstractSpinBox* spin : spins) {
        spin->interpretText();
    }
    form.Press(button);
    FollowFocus();
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
        if (binding.name == form.Focus() && focusWidget() != binding.widget) {
            binding.widget->setFocus(Qt::OtherFocusReason);
        }
    }
}

void FormView::FocusArrived(const QObject* widget) {
    const Binding* binding = Of(widget);
    if (binding == nullptr || form.Closed() || focusWidget() != widget || !isActiveWindow() ||
        QApplication::activeModalWidget() != this) {
        return;
    }
    form.MoveFocus(binding->name);
    FollowFocus();
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
        MoveToMiddle();
        FollowFocus();
        for (QAbstractSpinBox* spin : spins) {
            if (spin == focusWidget()) {
                spin->selectAll();
            }
        }
    }
}

void FormView::MoveToMiddle() {
    adjustSize();
    QRect place = frameGeometry();
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft());
}

void FormView::reject() { form.PressCancel(); }

void DesktopForms::Show(Form& form) {
    const std::unique_ptr<FormView> view = MakeView(form, &parent);
    view->exec();
    if (!form.Closed()) {
        form.PressCancel();
    }
}

} // namespace quelmont
