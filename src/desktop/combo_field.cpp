#include "desktop/combo_field.h"

#include "desktop/qt_text.h"

#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>

#include <algorithm>

namespace quelmont {

namespace {

/// Characters that are seen at least and at most.
constexpr int FewestCharacters = 4;
constexpr int MostCharacters = 28;
constexpr int SeenLines = 12;

} // namespace

ComboField::ComboField(std::function<void(const std::string&)> typed, std::function<void(int)> chosen,
                       QWidget* parent)
    : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setMaxVisibleItems(SeenLines);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    // Every line is of the same height: a hundred thousand of them open as fast as ten.
    auto* popup = new QListView(this);
    popup->setUniformItemSizes(true);
    popup->setTextElideMode(Qt::ElideRight);
    setView(popup);
    // A text that is typed is no choice of the line that reads alike.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    // Also what the completion adds. The text of a line that is being chosen is not typed.
    connect(lineEdit(), &QLineEdit::textChanged, this, [this, typed = std::move(typed)](const QString& text) {
        if (currentIndex() == line) {
            typed(text.toStdString());
        }
    });
    connect(this, &QComboBox::activated, this, [chosen = std::move(chosen)](int index) { chosen(index); });
}

void ComboField::ShowLines(const std::vector<std::string>& now) {
    if (now == lines) {
        return;
    }
    lines = now;
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(lines.size()));
    int longest = FewestCharacters;
    for (const std::string& text : lines) {
        texts.push_back(Text(text));
        longest =
            std::max(longest, static_cast<int>(std::min<qsizetype>(texts.back().size(), MostCharacters)));
    }
    clear();
    addItems(texts);
    setMinimumContentsLength(longest);
}

void ComboField::Show(const Control& control) {
    const QSignalBlocker quiet(this);
    const QSignalBlocker quietLine(lineEdit());
    if (completes != control.completes) {
        completes = control.completes;
        setCompleter(nullptr);
    }
    ShowLines(control.items);
    line = control.value;
    if (currentIndex() != line) {
        setCurrentIndex(line);
    }
    if (const QString text = Text(control.text); lineEdit()->text() != text) {
        setEditText(text);
    }
    setEnabled(control.enabled);
}

} // namespace quelmont
