#pragma once

#include <QPoint>
#include <QString>

class QScreen;

// What names a display: the screen's EDID texts, its output name and where it
// stands on the desktop. Kept apart from QScreen so the naming rules can be
// checked without real screens.
struct ScreenIdentity
{
    QString serialNumber;
    QString manufacturer;
    QString model;
    QString name;
    QPoint position;

    static ScreenIdentity of(const QScreen *screen);
};

namespace DisplayIdentity {

// An id that survives restarts: the serial number when there is one, else the
// model with the desktop position, else the output name with the position.
QString displayId(const ScreenIdentity &screen);
QString displayId(const QScreen *screen);

// The name shown to the user.
QString displayName(const ScreenIdentity &screen);

} // namespace DisplayIdentity
