#pragma once

#include "platform/boxes.h"

#include <QMessageBox>
#include <QRect>

#include <optional>
#include <string_view>

namespace quelmont {

/// Where a message box is to stand, all in units of the screen: beside the dialog at the height of a part
/// of it, else below, above, right or left of that part; never over the part unless the screen has no
/// other room. box is the size with its frame, part lies in the dialog.
QPoint BesidePart(QSize box, const QRect& part, const QRect& dialog, const QRect& screen);

/// A message box that is wide enough for its title and covers nothing that it speaks of.
class MessageBox final : public QMessageBox {
public:
    MessageBox(std::string_view title, std::string_view text, BoxButtons buttons, BoxIcon icon,
               QWidget* parent);

    /// The part of the dialog below that it speaks of, in the dialog's own units; an empty one is the whole
    /// dialog.
    void StandBeside(const QRect& part) { spokenOf = part; }

    /// Shows the message box and returns the button that closed it.
    BoxAnswer Ask();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void MakeRoomForTitle();

    std::optional<QRect> spokenOf;
};

} // namespace quelmont
