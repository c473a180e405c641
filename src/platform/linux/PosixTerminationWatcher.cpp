#include "platform/linux/PosixTerminationWatcher.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

Q_LOGGING_CATEGORY(lcTermination, "glimmora.platform")

namespace {
int wakePipe[2] = { -1, -1 };
constexpr int watchedSignals[] = { SIGTERM, SIGINT, SIGHUP };

extern "C" void onTerminationSignal(int number)
{
    const int savedErrno = errno;
    const char byte = char(number);
    // Nothing else is safe here; a full pipe already holds a wake-up.
    [[maybe_unused]] const ssize_t written = ::write(wakePipe[1], &byte, 1);
    errno = savedErrno;
}

void restoreDefaultActions()
{
    for (int number : watchedSignals)
        std::signal(number, SIG_DFL);
}

QString signalName(int number)
{
    switch (number) {
    case SIGTERM:
        return QStringLiteral("SIGTERM");
    case SIGINT:
        return QStringLiteral("SIGINT");
    case SIGHUP:
        return QStringLiteral("SIGHUP");
    default:
        return QStringLiteral("signal %1").arg(number);
    }
}
} // namespace

std::unique_ptr<TerminationWatcher> TerminationWatcher::create()
{
    return std::make_unique<PosixTerminationWatcher>();
}

PosixTerminationWatcher::PosixTerminationWatcher(QObject *parent)
    : TerminationWatcher(parent)
{
    if (::pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcTermination) << "PosixTerminationWatcher: no pipe, signals end the program"
                                 << "without an orderly quit:" << strerror(errno);
        return;
    }
    m_notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &PosixTerminationWatcher::readSignals);

    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int number : watchedSignals)
        sigaction(number, &action, nullptr);
}

PosixTerminationWatcher::~PosixTerminationWatcher()
{
    if (!m_notifier)
        return;
    restoreDefaultActions();
    delete m_notifier;
    ::close(wakePipe[0]);
    ::close(wakePipe[1]);
    wakePipe[0] = wakePipe[1] = -1;
}

void PosixTerminationWatcher::readSignals()
{
    char byte = 0;
    int first = 0;
    while (::read(wakePipe[0], &byte, 1) == 1) {
        if (first == 0)
            first = byte;
    }
    if (first == 0 || m_reported)
        return;
    m_reported = true;
    // A quit that hangs must not hold the session: the next signal ends it.
    restoreDefaultActions();
    const QString name = signalName(first);
    qCInfo(lcTermination).noquote()
        << "PosixTerminationWatcher:" << name << "received; quitting (a second one ends at once)";
    emit terminationRequested(name);
}
