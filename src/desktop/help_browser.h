#pragma once

#include <QTextBrowser>
#include <QTimer>

class QHelpEngineCore;

namespace quelmont {

/// Shows pages of the help. Pictures that are wider than the browser are scaled down to its width.
class HelpBrowser final : public QTextBrowser {
public:
    HelpBrowser(QHelpEngineCore& engine, QWidget* parent);

    QVariant loadResource(int type, const QUrl& url) override;
    /// Finds a text behind the one that is selected, or from the page's beginning again. False when it is
    /// nowhere.
    bool FindNext(const QString& text, bool backward);
    /// Prints the page in the colours of paper, whatever those of the screen are.
    void PrintOn(QPagedPaintDevice& paper);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QVariant Picture(const QByteArray& bytes) const;
    void ColorLinks(const QColor& color);
    /// Loads the page anew, pictures for the present width, and stays where it was.
    void Fit();

    QHelpEngineCore& engine;
    QTimer resized;
    int fittedWidth = 0;
};

} // namespace quelmont
