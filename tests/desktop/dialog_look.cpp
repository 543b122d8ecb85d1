// Shows every dialog in turn and leaves its picture in a folder:
//
//   dialog_look FOLDER
//
// The pictures under docs/look are those of the offscreen platform at ratio 1.

#include "desktop/desktop.h"
#include "desktop/dialog_catalogue.h"
#include "platform/machine.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QTimer>

#include <cstdio>

namespace {

void Show(const QString& folder, const quelmont::CataloguedDialog& dialog) {
    const std::unique_ptr<quelmont::Form> form = dialog.make();
    QTimer::singleShot(50, [&] {
        auto* shown = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        const QString file = folder + QLatin1Char('/') + QString::fromStdString(dialog.name) + ".png";
        if (shown == nullptr || !shown->grab().save(file)) {
            std::fprintf(stderr, "dialog_look: cannot make %s\n", qPrintable(file));
        }
        if (shown != nullptr) {
            shown->reject();
        }
    });
    quelmont::Machine().forms->Show(*form);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: dialog_look FOLDER\n", stderr);
        return 1;
    }
    quelmont::Desktop desktop;
    desktop.Start();
    for (const quelmont::CataloguedDialog& dialog : quelmont::DialogCatalogue()) {
        Show(QString::fromLocal8Bit(argv[1]), dialog);
    }
    return 0;
}
