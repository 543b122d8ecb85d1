#include "desktop/map_reduce_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quelmont {

MapReduceView::MapReduceView(Form& shown, QWidget* parent) : FormView(shown, parent) {
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    const int gap = fontMetrics().height();
    column->setSpacing(gap);
    column->setContentsMargins(gap, gap, gap, gap);

    QLabel* label = AddLabel("Label1");
    QSpinBox* percent = AddSpin("MapReduction", label);
    auto* choice = new QHBoxLayout;
    choice->addStretch();
    choice->addWidget(label);
    choice->addWidget(percent);
    choice->addStretch();

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(AddButton("DrawMap"));
    buttons->addWidget(AddButton("Cancel"));

    column->addWidget(AddExplanation("Label2"));
    column->addLayout(choice);
    column->addLayout(buttons);
}

} // namespace quelmont
