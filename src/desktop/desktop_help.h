#pragma once

#include "platform/system.h"

#include <memory>

namespace quelmont {

class HelpCollection;
class HelpWindow;

/// The help in a window of its own. Its file is HelpFile, which is opened when the help is asked for first; a
/// box names a file that is not there or cannot be read.
class DesktopHelp final : public Help {
public:
    DesktopHelp();
    ~DesktopHelp() override;
    void Show(int command, int context) override;

    /// The window, nullptr before the help was asked for.
    HelpWindow* Window() const { return window.get(); }

private:
    bool Open();

    std::unique_ptr<HelpCollection> collection;
    std::unique_ptr<HelpWindow> window;
};

} // namespace quelmont
