#include "desktop/file_dialogs.h"

#include "core/file_names.h"
#include "core/text_encoding.h"
#include "desktop/dialogs.h"
#include "desktop/help_key.h"
#include "desktop/keyboard_return.h"
#include "desktop/message_box.h"
#include "desktop/qt_text.h"
#include "desktop/session_end.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QLabel>

#include <filesystem>
#include <system_error>

namespace quelmont {

namespace {

/// "Maps (.a, .b)|*.a;*.b|..." as "Maps (.a, .b) (*.a *.b)", ...
QStringList NameFilters(const std::string& filter) {
    const QStringList parts = Text(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' '));
        filters.push_back(parts[i] + QLatin1String(" (") + patterns + QLatin1Char(')'));
    }
    return filters;
}

QComboBox* FilterList(const QFileDialog& dialog) {
    return dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
}

/// Of the filter in force, counted from 1.
int FilterIndex(const QFileDialog& dialog) { return FilterList(dialog)->currentIndex() + 1; }

bool IsPattern(const QString& name) {
    return name.contains(QLatin1Char('*')) || name.contains(QLatin1Char('?'));
}

/// The folder, or the nearest one above it that Qt can name: its names are UTF-8. Empty where there is none.
std::string FolderInUtf8(const std::filesystem::path& folder) {
    std::filesystem::path nearest = folder;
    while (!IsUtf8(nearest.string())) {
        nearest = nearest.parent_path();
    }
    return nearest.string();
}

/// Where a dialog starts; empty: where the last one was.
std::string StartOf(const FileDialogRequest& request) {
    if (!request.folder.empty()) {
        return FolderInUtf8(request.folder);
    }
    std::error_code unknown;
    const std::filesystem::path current = std::filesystem::current_path(unknown);
    return IsUtf8(current.string()) ? std::string() : FolderInUtf8(current);
}

/// Whether a folder holds a name that is no UTF-8.
bool LeavesNamesOut(const QString& folder) {
    std::error_code failed;
    std::filesystem::directory_iterator entry(folder.toStdString(), failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        if (!IsUtf8(entry->path().filename().string())) {
            return true;
        }
    }
    return false;
}

/// Qt lists no file and no folder whose name is no UTF-8. A line below the fields says so where there are
/// some.
void TellNamesLeftOut(QFileDialog& dialog) {
    auto* const fields = qobject_cast<QGridLayout*>(dialog.layout());
    if (fields == nullptr) {
        return;
    }
    auto* const line = new QLabel(QFileDialog::tr(
        "Some files or folders here cannot be shown: their names are not UTF-8. Rename them first."));
    line->setObjectName(QStringLiteral("NamesLeftOut"));
    line->setWordWrap(true);
    fields->addWidget(line, fields->rowCount(), 0, 1, -1);
    const auto look = [line](const QString& folder) { line->setVisible(LeavesNamesOut(folder)); };
    look(dialog.directory().absolutePath());
    // Of a folder whose name was typed the dialog itself tells nothing.
    if (const auto* const files = dialog.findChild<QFileSystemModel*>()) {
        QObject::connect(files, &QFileSystemModel::rootPathChanged, line, look);
    }
}

/// What both dialogs show.
void Prepare(QFileDialog& dialog, const FileDialogRequest& request) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // The names of the filters tell the endings already.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QStringList filters = NameFilters(request.filter);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(request.filterIndex - 1));
    if (const std::string folder = StartOf(request); !folder.empty()) {
        dialog.setDirectory(Text(folder));
    }
    TellNamesLeftOut(dialog);
    if (const QString name = Text(request.name); !IsPattern(name)) {
        dialog.selectFile(name);
    }
}

/// Asks before it takes the name of a file that is there. The question is about the name that will be
/// written: Qt's own is asked before an ending is put behind a name that has a point already.
class SaveDialog final : public QFileDialog {
public:
    SaveDialog(QWidget* parent, const FileDialogRequest& request_)
        : QFileDialog(parent, Text(request_.title)), request(request_) {}

protected:
    void done(int result) override {
        if (result != QDialog::Accepted || !request.asksToReplace || MayReplace()) {
            QFileDialog::done(result);
        }
    }

private:
    bool MayReplace() {
        const std::string typed = selectedFiles().value(0).toStdString();
        const std::string extension = ExtensionOf(request, FilterIndex(*this));
        const std::string name = extension.empty() ? typed : WithExtension(typed, extension);
        const QFileInfo file(Text(name));
        return !file.isFile() || Replaces(file.fileName().toStdString());
    }
    bool Replaces(const std::string& name) {
        MessageBox question(request.title, name + " already exists.\nDo you want to replace it?",
                            BoxButtons::YesNo, BoxIcon::Exclamation, this);
        question.setDefaultButton(QMessageBox::No);
        OpenHelpOnF1(question, HelpContextOver(*this));
        return question.Ask() == BoxAnswer::Yes;
    }

    FileDialogRequest request;
};

FileDialogAnswer Ask(QFileDialog& dialog) {
    if (SessionEnd::IsEnding()) {
        return {FileDialogCancelled};
    }
    const KeyboardReturn keyboard(dialog, *dialog.parentWidget());
    OpenHelpOnF1(dialog, HelpContextOver(*dialog.parentWidget()));
    dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {FileDialogCancelled};
    }
    FileDialogAnswer answer;
    for (const QString& name : dialog.selectedFiles()) {
        answer.names.push_back(name.toStdString());
    }
    answer.filterIndex = FilterIndex(dialog);
    return answer;
}

} // namespace

FileDialogAnswer DesktopFileDialogs::Open(const FileDialogRequest& request) {
    QFileDialog dialog(WindowInUse(window), Text(request.title));
    dialog.setFileMode(request.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    Prepare(dialog, request);
    return Ask(dialog);
}

FileDialogAnswer DesktopFileDialogs::Save(const FileDialogRequest& request) {
    SaveDialog dialog(WindowInUse(window), request);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const auto follow = [&dialog, &request] {
        dialog.setDefaultSuffix(Text(ExtensionOf(request, FilterIndex(dialog))));
    };
    QObject::connect(FilterList(dialog), &QComboBox::currentIndexChanged, &dialog, follow);
    FileDialogRequest shown = request;
    if (shown.name.ends_with('.')) {
        shown.name.pop_back(); // the dialog puts the point there itself
    }
    Prepare(dialog, shown);
    follow();
    return Ask(dialog);
}

} // namespace quelmont
