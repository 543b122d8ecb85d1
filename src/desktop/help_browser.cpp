#include "desktop/help_browser.h"

#include <QEvent>
#include <QHelpEngineCore>
#include <QImage>
#include <QPagedPaintDevice>
#include <QScrollBar>

#include <cmath>

namespace quelmont {

namespace {

/// Milliseconds after which a window is taken to have its size.
constexpr int SettledAfter = 80;

/// What a link looks like on white paper.
constexpr QColor LinkOnPaper(0, 0, 190);

/// Links that can be read on the background of the pages: dark themes may leave them dark blue.
QColor ReadableLink(const QPalette& palette) {
    constexpr int half = 128;
    const QColor link = palette.color(QPalette::Link);
    const bool dark = palette.color(QPalette::Base).lightness() < half;
    return dark && qGray(link.rgb()) < half ? QColor(120, 175, 255) : link;
}

} // namespace

HelpBrowser::HelpBrowser(QHelpEngineCore& engine_, QWidget* parent) : QTextBrowser(parent), engine(engine_) {
    setOpenExternalLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // one that comes and goes would change the width
    document()->setDocumentMargin(12);
    ColorLinks(ReadableLink(palette()));
    resized.setSingleShot(true);
    resized.setInterval(SettledAfter);
    connect(&resized, &QTimer::timeout, this, [this] { Fit(); });
}

QVariant HelpBrowser::loadResource(int type, const QUrl& url) {
    const QUrl full = url.isRelative() ? source().resolved(url) : url;
    if (full.scheme() != QLatin1String("qthelp")) {
        return {};
    }
    const QByteArray bytes = engine.fileData(full.adjusted(QUrl::RemoveFragment));
    return type == QTextDocument::ImageResource ? Picture(bytes) : QVariant(QString::fromUtf8(bytes));
}

QVariant HelpBrowser::Picture(const QByteArray& bytes) const {
    QImage image = QImage::fromData(bytes);
    const double room = viewport()->width() - 2.0 * document()->documentMargin() - 2.0;
    if (image.isNull() || room < 1.0) {
        return image;
    }
    const double ratio = devicePixelRatioF();
    if (image.width() > room) {
        image = image.scaledToWidth(static_cast<int>(std::lround(room * ratio)), Qt::SmoothTransformation);
        image.setDevicePixelRatio(ratio);
    }
    return image;
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (viewport()->width() != fittedWidth) {
        resized.start();
    }
}

void HelpBrowser::Fit() {
    fittedWidth = viewport()->width();
    QScrollBar& bar = *verticalScrollBar();
    const double share = bar.maximum() > 0 ? static_cast<double>(bar.value()) / bar.maximum() : 0.0;
    reload();
    bar.setValue(static_cast<int>(std::lround(share * bar.maximum())));
}

void HelpBrowser::ColorLinks(const QColor& color) {
    // A page takes the colour of its links when it is loaded, from the application unless a style tells
    // another.
    document()->setDefaultStyleSheet(QStringLiteral("a { color: %1; }").arg(color.name()));
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ColorLinks(ReadableLink(palette()));
        Fit();
    }
}

void HelpBrowser::PrintOn(QPagedPaintDevice& paper) {
    ColorLinks(LinkOnPaper);
    Fit();
    print(&paper);
    ColorLinks(ReadableLink(palette()));
    Fit();
}

bool HelpBrowser::FindNext(const QString& text, bool backward) {
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (text.isEmpty() || find(text, flags)) {
        return true;
    }
    moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    return find(text, flags);
}

} // namespace quelmont
