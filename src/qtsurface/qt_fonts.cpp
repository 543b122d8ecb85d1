#include "qtsurface/qt_fonts.h"

#include "core/rounding.h"
#include "core/text_encoding.h"
#include "platform/draw_surface.h"
#include "qtsurface/gui_application.h"
#include "qtsurface/text_face.h"
#include "qtsurface/text_painter.h"

#include <QFontDatabase>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// Qt tells families of one name apart by their foundry, "Courier [Adobe]".
QString WithoutFoundry(const QString& family) {
    const qsizetype bracket = family.indexOf(QLatin1String(" ["));
    return bracket < 0 ? family : family.left(bracket);
}

/// Names that Qt has for whatever the machine prefers; they mean nothing in a file that goes elsewhere.
bool IsPreference(const QString& family) {
    return family == QLatin1String("Monospace") || family == QLatin1String("Sans Serif") ||
           family == QLatin1String("Serif");
}

bool HasLatin(const QString& family) {
    return QFontDatabase::writingSystems(family).contains(QFontDatabase::Latin);
}

} // namespace

std::vector<std::string> QtFonts::Families() {
    NeedGuiApplication();
    QStringList latin;
    QStringList others;
    const QStringList families = QFontDatabase::families();
    for (const QString& family : families) {
        if (QFontDatabase::isScalable(family) && !QFontDatabase::isPrivateFamily(family) &&
            !IsPreference(family)) {
            (HasLatin(family) ? latin : others).append(WithoutFoundry(family));
        }
    }
    latin.removeDuplicates();
    others.removeDuplicates();
    latin.sort(Qt::CaseInsensitive);
    others.sort(Qt::CaseInsensitive);
    std::vector<std::string> names;
    for (const QString& family : latin + others) {
        names.push_back(family.toStdString());
    }
    return names;
}

std::optional<FontMetrics> QtFonts::Metrics(const SurfaceFont& font) {
    if (!CanBeFont(font)) {
        return std::nullopt;
    }
    const TextFace& face = TextFace::Of(font);
    const double em = face.EmPixels(font);
    FontMetrics metrics;
    metrics.ascent = RoundToInt32(face.InEm().ascent * em);
    metrics.descent = RoundToInt32(face.InEm().descent * em);
    metrics.height = metrics.ascent + metrics.descent;
    metrics.averageWidth = RoundToInt32(face.InEm().averageWidth * em);
    return metrics;
}

std::optional<TextExtent> QtFonts::Extent(const SurfaceFont& font, std::string_view text) {
    const std::optional<FontMetrics> metrics = Metrics(font);
    if (!metrics || Characters(text).size() > MostTextCharacters) {
        return std::nullopt;
    }
    TextFace& face = TextFace::Of(font);
    return TextExtent{RoundToInt32(std::ceil(face.Shape(text).width * face.EmPixels(font))), metrics->height};
}

} // namespace quelmont
