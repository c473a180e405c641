#include "app/ThemeFonts.h"

#include <QFont>
#include <QFontDatabase>
#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcThemeFonts, "glimmora.app.fonts")

namespace ThemeFonts {

QStringList resourcePaths()
{
    return {
        QStringLiteral(":/fonts/Geist-Regular.ttf"),
        QStringLiteral(":/fonts/Geist-Medium.ttf"),
        QStringLiteral(":/fonts/Geist-SemiBold.ttf"),
        QStringLiteral(":/fonts/Geist-Bold.ttf"),
        QStringLiteral(":/fonts/JetBrainsMono-Regular.ttf"),
    };
}

int addBundledFonts()
{
    int added = 0;
    for (const QString &path : resourcePaths()) {
        if (QFontDatabase::addApplicationFont(path) < 0)
            qCWarning(lcThemeFonts) << "ThemeFonts: could not load" << path;
        else
            ++added;
    }
    return added;
}

QStringList familyLists()
{
    return {
        QStringLiteral("SF Pro Text, SF Pro Display, Geist, -apple-system"),
        QStringLiteral(
            "Geist, Segoe UI Variable, Inter, Noto Sans, WenQuanYi Micro Hei, sans-serif"),
        QStringLiteral("SF Mono, Menlo, JetBrains Mono, monospace"),
        QStringLiteral(
            "JetBrains Mono, Cascadia Mono, Source Code Pro, WenQuanYi Micro Hei Mono, monospace"),
    };
}

void installFamilyLists()
{
    const QStringList lists = familyLists();
    for (const QString &list : lists) {
        QStringList families = list.split(QLatin1Char(','));
        for (QString &family : families)
            family = family.trimmed();
        QFont::insertSubstitutions(list, families);
    }
}

} // namespace ThemeFonts
