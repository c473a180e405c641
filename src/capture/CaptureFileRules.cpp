#include "capture/CaptureFileRules.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace CaptureFileRules {

QString resolveFolder(const QString &configured)
{
    QString folder = configured.trimmed();
    if (folder.startsWith(QLatin1String("~/")))
        folder.replace(0, 1, QDir::homePath());
    if (folder.isEmpty()) {
        QString base = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        if (base.isEmpty())
            base = QDir::homePath();
        folder = QDir(base).filePath(QStringLiteral("Glimmora"));
    }
    return QDir::fromNativeSeparators(folder);
}

QString resolveFormat(const QString &configured, bool webpSupported)
{
    const QString name = configured.trimmed().toLower();
    if (name == QLatin1String("jpeg") || name == QLatin1String("jpg"))
        return QStringLiteral("jpg");
    if (name == QLatin1String("webp") && webpSupported)
        return QStringLiteral("webp");
    return QStringLiteral("png");
}

QString nextFreePath(const QString &folder, const QString &extension, const QDateTime &when)
{
    const QDir dir(folder);
    const QString stamp = when.toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString path = dir.filePath(QStringLiteral("Glimmora-%1.%2").arg(stamp, extension));
    for (int counter = 2; QFileInfo::exists(path); ++counter)
        path = dir.filePath(
            QStringLiteral("Glimmora-%1-%2.%3").arg(stamp).arg(counter).arg(extension));
    return path;
}

} // namespace CaptureFileRules
