#pragma once

#include "platform/file_dialogs.h"

class QWidget;

namespace quelmont {

/// File dialogs above the window that is in use: Qt's own on every desktop.
class DesktopFileDialogs final : public FileDialogs {
public:
    explicit DesktopFileDialogs(QWidget& window_) : window(window_) {}
    FileDialogAnswer Open(const FileDialogRequest& request) override;
    FileDialogAnswer Save(const FileDialogRequest& request) override;

private:
    QWidget& window;
};

} // namespace quelmont
