#pragma once

#include "platform/form.h"

#include <QComboBox>

#include <functional>
#include <string>
#include <vector>

namespace quelmont {

/// A line for a text that is typed freely or taken from a list. It is as wide as its lines, within reason;
/// what is wider is cut off in the list and scrolls in the field.
class ComboField final : public QComboBox {
public:
    /// typed is called with each text that a person makes, chosen with the line that was taken.
    ComboField(std::function<void(const std::string&)> typed, std::function<void(int)> chosen,
               QWidget* parent);

    /// Shows another text and other lines; neither function is called.
    void Show(const Control& control);

private:
    void ShowLines(const std::vector<std::string>& now);

    std::vector<std::string> lines; ///< as they are shown
    int line = -1;                  ///< the one that was shown last
    bool completes = true;          ///< as a QComboBox begins
};

} // namespace quelmont
