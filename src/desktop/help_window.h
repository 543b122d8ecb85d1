#pragma once

#include "platform/help_pages.h"

#include <QMainWindow>

class QAction;
class QLineEdit;
class QListWidget;
class QSplitter;
class QTabWidget;
class QToolBar;

namespace quelmont {

class HelpBrowser;
class HelpCollection;

/// The window of the help: contents, index and search on the left, a page on the right. It stands for itself,
/// so that it can be read while a dialog is open.
class HelpWindow final : public QMainWindow {
public:
    /// The collection is open and outlives the window.
    explicit HelpWindow(HelpCollection& collection);

    /// Takes the room beside a window, where there is enough for a page.
    void StandBeside(const QWidget& used);
    /// Shows a page, and the window above the others.
    void ShowPlace(const HelpPlace& place);
    /// Shows the search, ready to be typed into.
    void ShowSearch();

    HelpBrowser& Browser() { return *browser; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* MakeIndex();
    QWidget* MakeSearch();
    void FillToolBar(QToolBar& bar);
    void AddFind(QToolBar& bar);
    void Find(bool backward);
    void Search();
    void ListResults();
    /// Marks a page in the contents.
    void MarkPage(const QUrl& page);
    void Print();
    void Raise();

    HelpCollection& collection;
    HelpBrowser* browser;
    QTabWidget* sides;
    QSplitter* splitter;
    QLineEdit* findText = nullptr;
    QLineEdit* searchText = nullptr;
    QListWidget* results = nullptr;
};

} // namespace quelmont
