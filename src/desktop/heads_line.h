#pragma once

#include "desktop/masked_edit.h"

#include <QWidget>

namespace quelmont {

/// The words above the columns of an angle's field. It lies in the same column of a layout as the
/// field, with the same left edge.
class HeadsLine final : public QWidget {
public:
    HeadsLine(const MaskedEdit& edit, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const MaskedEdit& edit;
};

} // namespace quelmont
