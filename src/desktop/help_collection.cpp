#include "desktop/help_collection.h"

#include "desktop/qt_text.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHelpEngine>
#include <QStandardPaths>

namespace quelmont {

namespace {

const QString Namespace = QStringLiteral("org.quelmont.help");
const QString SourceKey = QStringLiteral("source");

/// Tells a help file from an earlier one of the same name.
QString StampOf(const QFileInfo& file) {
    return QStringLiteral("%1 %2 %3")
        .arg(file.absoluteFilePath())
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch());
}

/// Makes the collection one of this file alone. False when the file is no help file.
bool Register(QHelpEngine& engine, const QFileInfo& file) {
    const QString stamp = StampOf(file);
    const QStringList registered = engine.registeredDocumentations();
    if (registered == QStringList{Namespace} && engine.customValue(SourceKey).toString() == stamp) {
        return true;
    }
    for (const QString& name : registered) {
        engine.unregisterDocumentation(name);
    }
    return engine.registerDocumentation(file.absoluteFilePath()) && engine.setCustomValue(SourceKey, stamp);
}

} // namespace

HelpCollection::HelpCollection(const QString& file) {
    if (!QFileInfo(file).isFile()) {
        return;
    }
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (!cache.isEmpty() && OpenIn(cache, file)) {
        return;
    }
    temporary = std::make_unique<QTemporaryDir>();
    if (temporary->isValid()) {
        OpenIn(temporary->path(), file);
    }
}

HelpCollection::~HelpCollection() = default;

bool HelpCollection::OpenIn(const QString& folder, const QString& file) {
    if (!QDir().mkpath(folder) || !QFileInfo(folder).isWritable()) {
        return false;
    }
    auto opened = std::make_unique<QHelpEngine>(folder + QStringLiteral("/help.qhc"));
    opened->setReadOnly(false);
    if (!opened->setupData() || !Register(*opened, QFileInfo(file)) || !opened->setupData()) {
        return false;
    }
    engine = std::move(opened);
    return true;
}

QUrl HelpCollection::UrlOf(const HelpPlace& place) {
    QUrl url(QStringLiteral("qthelp://%1/help/%2.html").arg(Namespace, Text(place.page)));
    if (!place.section.empty()) {
        url.setFragment(Text(place.section));
    }
    return url;
}

} // namespace quelmont
