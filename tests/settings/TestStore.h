#pragma once

#include "platform/LoginEntry.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantMap>

#include <memory>

// A private configuration and home directory for one test function, so the
// real store and autostart folder are never touched. QSettings caches its
// search path, so the path is set explicitly besides XDG_CONFIG_HOME.
class TestStore
{
public:
    TestStore()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
        QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
        qputenv("HOME", m_dir.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", configPath().toLocal8Bit());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configPath());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, configPath());
    }

    QString configPath() const { return m_dir.path() + QStringLiteral("/config"); }
    QString filePath() const { return configPath() + QStringLiteral("/Orvelline/Glimmora.conf"); }

    // Writes values into the store the way an earlier run would have left them.
    void write(const QVariantMap &values) const
    {
        QSettings settings;
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            settings.setValue(it.key(), it.value());
        settings.sync();
    }

    QVariant value(const QString &key) const { return QSettings().value(key); }
    bool contains(const QString &key) const { return QSettings().contains(key); }

private:
    QTemporaryDir m_dir;
};

// Records what the store asked of the login entry.
class FakeLoginEntry : public LoginEntry
{
public:
    explicit FakeLoginEntry(QStringList *calls)
        : m_calls(calls)
    {
    }

    bool add(const QString &executablePath) override
    {
        m_calls->append(QStringLiteral("add ") + executablePath);
        return true;
    }

    bool remove() override
    {
        m_calls->append(QStringLiteral("remove"));
        return true;
    }

private:
    QStringList *m_calls;
};
