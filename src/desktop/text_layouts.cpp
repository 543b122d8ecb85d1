#include "desktop/text_layouts.h"

#include "desktop/combo_field.h"
#include "desktop/form_view.h"
#include "desktop/letter_sample.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quelmont {

namespace {

/// Characters of a text that are seen at least.
constexpr int TextCharacters = 40;

/// A field below its caption.
void AddBelowCaption(FormView& view, QVBoxLayout& column, QWidget* field) {
    auto* pair = new QVBoxLayout;
    pair->setSpacing(view.Gap() / 4);
    pair->addWidget(view.CaptionOf(field));
    pair->addWidget(field);
    column.addLayout(pair);
}

} // namespace

void LayOutText(FormView& view) {
    view.AddMenu("mnuFont");
    auto* fonts = new QGridLayout;
    fonts->setHorizontalSpacing(view.Gap());
    fonts->addWidget(view.AddLabel("CurrentFont"), 0, 0);
    fonts->addWidget(view.AddLabel("FontStyle"), 1, 0);
    fonts->addWidget(view.AddSample("FontColor"), 0, 1, 2, 1, Qt::AlignCenter);
    fonts->setColumnStretch(0, 1);
    view.Column()->addLayout(fonts);
    view.Column()->addWidget(view.AddExplanation("Help"));
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(view.Gap());
    ComboField* texts = view.AddCombo("TextStrings");
    texts->setMinimumContentsLength(TextCharacters);
    fields->addWidget(view.CaptionOf(texts), 0, 0);
    fields->addWidget(texts, 0, 1, 1, 2);
    QWidget* rotation = view.AddEdit("TextRotation");
    fields->addWidget(view.CaptionOf(rotation), 1, 0);
    fields->addWidget(rotation, 1, 1, Qt::AlignLeft);
    fields->setColumnStretch(2, 1);
    view.Column()->addLayout(fields);
    auto* deletions = new QHBoxLayout;
    deletions->addWidget(view.AddButton("DeleteText"));
    deletions->addWidget(view.AddButton("DeleteAllText"));
    deletions->addStretch();
    view.Column()->addLayout(deletions);
    view.AddButtons({"OK", "Cancel"});
}

void LayOutFonts(FormView& view) {
    auto* letters = new QVBoxLayout;
    letters->setSpacing(view.Gap());
    AddBelowCaption(view, *letters, view.AddCombo("comFontName"));
    AddBelowCaption(view, *letters, view.AddCombo("comFontSize"));
    auto* styles = new QGridLayout;
    styles->addWidget(view.AddCheck("chkBold"), 0, 0);
    styles->addWidget(view.AddCheck("chkItalic"), 1, 0);
    styles->addWidget(view.AddCheck("chkUnderline"), 0, 1);
    styles->addWidget(view.AddCheck("chkStrikethru"), 1, 1);
    letters->addLayout(styles);
    QWidget* const cells = view.AddPalette("ColorSquare");
    AddBelowCaption(view, *letters, view.AddSample("SampleText"));
    letters->addStretch();
    auto* colors = new QVBoxLayout;
    AddBelowCaption(view, *colors, cells);
    // The colour under the mouse in words, in a line that is always there.
    auto* words = new QLabel(&view);
    words->setTextFormat(Qt::PlainText);
    words->setFixedHeight(words->fontMetrics().height());
    words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    view.Also("ColorSquare",
              [words](const Control& control) { words->setText(QString::fromStdString(control.text)); });
    colors->addWidget(words);
    colors->addStretch();
    auto* both = new QHBoxLayout;
    both->setSpacing(2 * view.Gap());
    both->addLayout(letters);
    both->addLayout(colors);
    view.Column()->addLayout(both);
    view.AddButtons({"OK", "Cancel"});
}

} // namespace quelmont
