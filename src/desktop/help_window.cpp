#include "desktop/help_window.h"

#include "desktop/help_browser.h"
#include "desktop/help_collection.h"

#include <QAction>
#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quelmont {

namespace {

constexpr int Width = 940;
constexpr int Height = 680;
constexpr int SideWidth = 270;
/// Beside another window: the narrowest that can be read, and what two frames take.
constexpr int LeastWidth = 360;
constexpr int FrameRoom = 16;
/// A narrower window has the contents above the page.
constexpr int NarrowWidth = 600;
constexpr int MostResults = 100;
constexpr int FindLetters = 18;

/// A line to type into above what it finds.
QWidget* Below(QLineEdit* line, QWidget* list) {
    auto* both = new QWidget;
    auto* column = new QVBoxLayout(both);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(line);
    column->addWidget(list);
    return both;
}

} // namespace

HelpWindow::HelpWindow(HelpCollection& collection_)
    : collection(collection_), browser(new HelpBrowser(collection_.Engine(), this)),
      sides(new QTabWidget(this)), splitter(new QSplitter(this)) {
    setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its own window
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(tr("Quelmont Help"));
    setWindowIcon(QApplication::windowIcon());
    QHelpContentWidget* const contents = collection.Engine().contentWidget();
    contents->setAccessibleName(tr("Contents"));
    connect(contents, &QHelpContentWidget::linkActivated, this,
            [this](const QUrl& link) { browser->setSource(link); });
    connect(collection.Engine().contentModel(), &QHelpContentModel::contentsCreated, this, [this, contents] {
        contents->expandToDepth(0);
        MarkPage(browser->source());
    });
    // The browser itself still names the page before when it tells of another one.
    connect(browser, &HelpBrowser::sourceChanged, this, [this](const QUrl& page) { MarkPage(page); });
    sides->addTab(contents, tr("&Contents"));
    sides->addTab(MakeIndex(), tr("&Index"));
    sides->addTab(MakeSearch(), tr("&Search"));
    browser->setAccessibleName(tr("Page"));
    splitter->addWidget(sides);
    splitter->addWidget(browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({SideWidth, Width - SideWidth});
    setCentralWidget(splitter);
    QToolBar* const bar = addToolBar(tr("Help"));
    bar->setMovable(false);
    setContextMenuPolicy(Qt::NoContextMenu); // it would hide the bar
    FillToolBar(*bar);
    collection.Engine().searchEngine()->scheduleIndexDocumentation();
    const QSize room = screen()->availableSize();
    resize(QSize(Width, Height).boundedTo(room * 4 / 5));
}

void HelpWindow::StandBeside(const QWidget& used) {
    const QRect screen = used.screen()->availableGeometry();
    const QRect taken = used.frameGeometry();
    const int atRight = screen.right() - taken.right() - FrameRoom;
    const int atLeft = taken.left() - screen.left() - FrameRoom;
    const int room = std::max(atLeft, atRight);
    if (room < LeastWidth) {
        return;
    }
    resize(std::min(room, width()), height());
    const int left =
        atRight >= atLeft ? taken.right() + FrameRoom / 2 : taken.left() - width() - FrameRoom / 2;
    move(left, std::clamp(taken.top(), screen.top(),
                          std::max(screen.top(), screen.bottom() - height() - FrameRoom)));
}

QWidget* HelpWindow::MakeIndex() {
    QHelpIndexWidget* const index = collection.Engine().indexWidget();
    index->setAccessibleName(tr("Index"));
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(tr("Begin of a word"));
    filter->setAccessibleName(tr("Word of the index"));
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, index,
            [index](const QString& text) { index->filterIndices(text, QString()); });
    connect(filter, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink& link) { browser->setSource(link.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this,
            [this](const QList<QHelpLink>& links) { browser->setSource(links.first().url); });
    return Below(filter, index);
}

QWidget* HelpWindow::MakeSearch() {
    searchText = new QLineEdit;
    searchText->setObjectName(QStringLiteral("SearchText"));
    searchText->setPlaceholderText(tr("Words, then Enter"));
    searchText->setAccessibleName(tr("Words to search for"));
    searchText->setClearButtonEnabled(true);
    results = new QListWidget;
    results->setObjectName(QStringLiteral("SearchResults"));
    results->setAccessibleName(tr("Pages found"));
    results->setWordWrap(true);
    connect(searchText, &QLineEdit::returnPressed, this, [this] { Search(); });
    const auto open = [this](const QListWidgetItem* item) {
        if (const QUrl page = item->data(Qt::UserRole).toUrl(); page.isValid()) {
            browser->setSource(page);
        }
    };
    connect(results, &QListWidget::itemClicked, this, open);
    connect(results, &QListWidget::itemActivated, this, open);
    connect(collection.Engine().searchEngine(), &QHelpSearchEngine::searchingFinished, this,
            [this] { ListResults(); });
    return Below(searchText, results);
}

void HelpWindow::FillToolBar(QToolBar& bar) {
    const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const QKeySequence& key,
                         auto&& act) {
        QAction* const action = bar.addAction(style()->standardIcon(icon), text);
        action->setShortcut(key);
        action->setToolTip(text + QStringLiteral(" (%1)").arg(key.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    QAction* const back =
        add(QStyle::SP_ArrowBack, tr("Back"), QKeySequence::Back, [this] { browser->backward(); });
    QAction* const forward =
        add(QStyle::SP_ArrowForward, tr("Forward"), QKeySequence::Forward, [this] { browser->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser, &HelpBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser, &HelpBrowser::forwardAvailable, forward, &QAction::setEnabled);
    add(QStyle::SP_DirHomeIcon, tr("Contents"), QKeySequence(Qt::ALT | Qt::Key_Home), [this] {
        browser->setSource(HelpCollection::UrlOf({HelpContentsPage, {}}));
    });
    bar.addSeparator();
    const auto addText = [&](const QString& text, const QString& tip, const QKeySequence& key, auto&& act) {
        QAction* const action = bar.addAction(text);
        action->setShortcut(key);
        action->setToolTip(tip + QStringLiteral(" (%1)").arg(key.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, act);
    };
    addText(tr("A\u2212"), tr("Smaller letters"), QKeySequence::ZoomOut, [this] { browser->zoomOut(); });
    addText(tr("A+"), tr("Larger letters"), QKeySequence::ZoomIn, [this] { browser->zoomIn(); });
    bar.addSeparator();
    addText(tr("Print"), tr("Print the page"), QKeySequence::Print, [this] { Print(); });
    bar.addSeparator();
    AddFind(bar);
}

void HelpWindow::AddFind(QToolBar& bar) {
    findText = new QLineEdit;
    findText->setObjectName(QStringLiteral("FindText"));
    findText->setPlaceholderText(tr("Find in page"));
    findText->setAccessibleName(tr("Find in page"));
    findText->setClearButtonEnabled(true);
    findText->setMaximumWidth(FindLetters * fontMetrics().averageCharWidth() + 40);
    bar.addWidget(findText);
    connect(findText, &QLineEdit::returnPressed, this,
            [this] { Find(QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)); });
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, this, [this] {
        findText->setFocus();
        findText->selectAll();
    });
    addAction(find);
    auto* next = new QAction(this);
    next->setShortcut(QKeySequence::FindNext);
    connect(next, &QAction::triggered, this, [this] { Find(false); });
    addAction(next);
}

void HelpWindow::Find(bool backward) {
    QPalette colors = QApplication::palette(findText);
    if (!browser->FindNext(findText->text(), backward)) {
        colors.setColor(QPalette::Text, Qt::red);
    }
    findText->setPalette(colors);
}

void HelpWindow::Search() {
    results->clear();
    collection.Engine().searchEngine()->search(searchText->text());
}

void HelpWindow::ListResults() {
    results->clear();
    const QHelpSearchEngine& engine = *collection.Engine().searchEngine();
    for (const QHelpSearchResult& result : engine.searchResults(0, MostResults)) {
        auto* item = new QListWidgetItem(result.title(), results);
        item->setData(Qt::UserRole, result.url());
    }
    if (results->count() == 0) {
        auto* none = new QListWidgetItem(tr("No page has these words."), results);
        none->setFlags(Qt::NoItemFlags);
    }
}

void HelpWindow::MarkPage(const QUrl& page) {
    QHelpContentWidget* const contents = collection.Engine().contentWidget();
    if (const QModelIndex entry = contents->indexOf(page); entry.isValid()) {
        contents->setCurrentIndex(entry);
        contents->scrollTo(entry);
    }
}

void HelpWindow::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(browser->documentTitle());
    QPrintDialog dialog(&printer, this);
    dialog.setWindowModality(Qt::WindowModal);
    if (dialog.exec() == QDialog::Accepted) {
        browser->PrintOn(printer);
    }
}

void HelpWindow::ShowPlace(const HelpPlace& place) {
    Raise();
    browser->setSource(HelpCollection::UrlOf(place));
}

void HelpWindow::ShowSearch() {
    Raise();
    if (browser->source().isEmpty()) {
        browser->setSource(HelpCollection::UrlOf({HelpContentsPage, {}}));
    }
    sides->setCurrentIndex(2);
    searchText->setFocus();
    searchText->selectAll();
}

void HelpWindow::Raise() {
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const Qt::Orientation wanted = width() < NarrowWidth ? Qt::Vertical : Qt::Horizontal;
    if (splitter->orientation() != wanted) {
        splitter->setOrientation(wanted);
        const int side = wanted == Qt::Vertical ? height() / 4 : SideWidth;
        splitter->setSizes({side, (wanted == Qt::Vertical ? height() : width()) - side});
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

} // namespace quelmont
