#pragma once

#include <QObject>
#include <QString>

// The desktop's own word on whether the session is locked, where a bus offers
// it: the screen saver services' ActiveChanged signal on the session bus
// (the freedesktop and the GNOME names) and logind's LockedHint of this
// session on the system bus. Without any of them it stays unlocked and says
// so once in the log; lockers are then recognised by their windows alone.
class DBusScreenLockWatch : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DBusScreenLockWatch)

public:
    explicit DBusScreenLockWatch(QObject *parent = nullptr);

    bool locked() const { return m_screenSaverActive || m_lockedHint; }

signals:
    void lockedChanged();

private slots:
    void onScreenSaverActiveChanged(bool active);
    void onSessionPropertiesChanged(const QString &interface, const QVariantMap &changed,
                                    const QStringList &invalidated);

private:
    QString watchScreenSavers();
    QString watchLogind();
    void readLockedHint();
    void setState(bool screenSaverActive, bool lockedHint);

    QString m_sessionPath;
    bool m_screenSaverActive = false;
    bool m_lockedHint = false;
};
