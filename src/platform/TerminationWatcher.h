#pragma once

#include <QObject>
#include <QString>

#include <memory>

// Tells the program that someone outside it asked it to end (a logout, a
// service manager stopping it, a plain kill, Ctrl+C in its terminal), so that
// it can quit the ordinary way instead of being cut off mid-recording.
class TerminationWatcher : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TerminationWatcher)

public:
    explicit TerminationWatcher(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    static std::unique_ptr<TerminationWatcher> create();

signals:
    // Once per process; `request` names it, as "SIGTERM".
    void terminationRequested(const QString &request);
};
