#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>
#include <QtGlobal>

// Collects every log message while alive, from any thread.
class LogCapture
{
public:
    LogCapture()
    {
        instance() = this;
        m_previous = qInstallMessageHandler(&LogCapture::handle);
    }
    ~LogCapture()
    {
        qInstallMessageHandler(m_previous);
        instance() = nullptr;
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QStringList messages() const
    {
        QMutexLocker lock(&m_mutex);
        return m_messages;
    }
    QStringList matching(const QString &needle) const { return messages().filter(needle); }

private:
    static LogCapture *&instance()
    {
        static LogCapture *current = nullptr;
        return current;
    }
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (LogCapture *self = instance()) {
            QMutexLocker lock(&self->m_mutex);
            self->m_messages.append(text);
            if (self->m_previous)
                self->m_previous(type, context, text);
        }
    }

    mutable QMutex m_mutex;
    QStringList m_messages;
    QtMessageHandler m_previous = nullptr;
};
