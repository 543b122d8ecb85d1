#pragma once

#include <QObject>

class QSocketNotifier;
class QWidget;

namespace quelmont {

/// Ends the program as its close button does when its session ends: when the process is asked to end
/// (interrupt, terminate, hang up), or by the session manager. Open dialogs are cancelled, a draw is stopped,
/// the settings are written. A second signal ends the process at once.
///
/// There is one at a time. Signals that were to be ignored stay so.
class SessionEnd final : public QObject {
public:
    explicit SessionEnd(QWidget& window);
    ~SessionEnd() override;

    /// From the end of the session on nobody is asked anything: dialogs and message boxes cancel themselves.
    static bool IsEnding();

    /// Cancels what is open and closes the window.
    void End();

    /// The session manager asks to save what is to be kept. The session may go on after that.
    static void Save();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window;
    QSocketNotifier* notifier = nullptr;
};

} // namespace quelmont
