#pragma once

#include "platform/TerminationWatcher.h"

class QSocketNotifier;

// SIGTERM, SIGINT and SIGHUP reach the event loop through a self-pipe: the
// handler only writes the signal's number into it. The first one is reported;
// from then on the signals have their default action again, so that a second
// one ends the process at once if the orderly quit hangs. One per process.
class PosixTerminationWatcher : public TerminationWatcher
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PosixTerminationWatcher)

public:
    explicit PosixTerminationWatcher(QObject *parent = nullptr);
    ~PosixTerminationWatcher() override;

private:
    void readSignals();

    QSocketNotifier *m_notifier = nullptr;
    bool m_reported = false;
};
