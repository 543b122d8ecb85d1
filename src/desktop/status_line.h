#pragma once

#include <QElapsedTimer>
#include <QStatusBar>

#include <optional>
#include <string_view>

class QLabel;
class QProgressBar;

namespace quelmont {

/// The line under the drawing area: a text, and at its right end how much of a work is done. Its height is
/// always the same, and no text makes the window wider.
class StatusLine final : public QStatusBar {
public:
    explicit StatusLine(QWidget* parent);

    /// UTF-8; empty for nothing. What is longer than the line is cut at its end.
    void SetText(std::string_view text);
    /// 0 to 1; nothing when no work is being done. While one is, the bar moves at most some thirty times a
    /// second.
    void SetProgress(std::optional<double> share);

    QString Text() const;
    /// Percent; nothing when no bar is seen.
    std::optional<int> Percent() const;

private:
    QLabel* label;
    QProgressBar* bar;
    QElapsedTimer sinceMove;
};

} // namespace quelmont
