#pragma once

#include <QScrollArea>

namespace quelmont {

/// What a dialog shows above its buttons: as large as it needs to be, or as the room on the screen allows,
/// and then it scrolls.
class FittingArea final : public QScrollArea {
public:
    explicit FittingArea(QWidget* parent);

    /// Room that it may take, in units of the screen.
    void SetRoom(QSize room_);
    QSize Room() const { return room; }

    /// Scrolls until a widget inside is seen, as much of it as there is room for.
    void BringIntoSight(const QWidget& inside);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QSize room{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

} // namespace quelmont
