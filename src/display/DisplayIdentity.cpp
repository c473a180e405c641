#include "display/DisplayIdentity.h"

#include <QRegularExpression>
#include <QScreen>

ScreenIdentity ScreenIdentity::of(const QScreen *screen)
{
    return { screen->serialNumber(), screen->manufacturer(), screen->model(), screen->name(),
             screen->geometry().topLeft() };
}

namespace DisplayIdentity {

QString displayId(const ScreenIdentity &screen)
{
    const QString serial = screen.serialNumber.trimmed();
    if (!serial.isEmpty())
        return QStringLiteral("sn_") + serial;
    const QString model = screen.model.trimmed();
    if (!model.isEmpty()) {
        return QStringLiteral("mdl_%1_%2_%3x%4")
            .arg(screen.manufacturer.trimmed(), model)
            .arg(screen.position.x())
            .arg(screen.position.y());
    }
    return QStringLiteral("nm_%1_%2x%3")
        .arg(screen.name)
        .arg(screen.position.x())
        .arg(screen.position.y());
}

QString displayId(const QScreen *screen)
{
    return screen ? displayId(ScreenIdentity::of(screen)) : QString();
}

QString displayName(const ScreenIdentity &screen)
{
    const QString model = screen.model.trimmed();
    if (!model.isEmpty()) {
        const QString manufacturer = screen.manufacturer.trimmed();
        return manufacturer.isEmpty() ? model : manufacturer + QLatin1Char(' ') + model;
    }

    // Device paths such as \\.\DISPLAY2 read as "Display 2".
    static const QRegularExpression separators(QStringLiteral("[\\\\./]+"));
    QString cleaned = screen.name;
    cleaned.replace(separators, QStringLiteral(" "));
    cleaned = cleaned.simplified();
    const QLatin1String display("DISPLAY");
    if (cleaned.startsWith(display, Qt::CaseInsensitive)) {
        const QString rest = cleaned.mid(display.size()).trimmed();
        return QStringLiteral("Display ") + (rest.isEmpty() ? QStringLiteral("?") : rest);
    }
    return cleaned.isEmpty() ? screen.name : cleaned;
}

} // namespace DisplayIdentity
