#pragma once

#include "platform/help_pages.h"

#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

class QHelpEngine;

namespace quelmont {

/// The pages of a help file with their contents, index and search. What the search finds is kept in the
/// user's cache folder, in a temporary one where that cannot be written.
class HelpCollection {
public:
    /// Opens a file that qhelpgenerator made.
    explicit HelpCollection(const QString& file);
    ~HelpCollection();
    HelpCollection(const HelpCollection&) = delete;
    HelpCollection& operator=(const HelpCollection&) = delete;

    /// False when the file is not there or is no help file.
    bool IsOpen() const { return engine != nullptr; }
    /// Only of an open one.
    QHelpEngine& Engine() const { return *engine; }

    static QUrl UrlOf(const HelpPlace& place);

private:
    bool OpenIn(const QString& folder, const QString& file);

    std::unique_ptr<QTemporaryDir> temporary;
    std::unique_ptr<QHelpEngine> engine;
};

} // namespace quelmont
