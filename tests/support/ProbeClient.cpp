#include "ProbeClient.h"

#include <QTest>

ProbeClient::ProbeClient(QObject *parent)
    : QObject(parent)
{
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &ProbeClient::readLines);
}

ProbeClient::~ProbeClient()
{
    m_process.kill();
    m_process.waitForFinished(2000);
}

bool ProbeClient::start(const QRect &geometry, bool overrideRedirect)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments { QString::number(geometry.x()), QString::number(geometry.y()),
                            QString::number(geometry.width()), QString::number(geometry.height()) };
    if (overrideRedirect)
        arguments << QStringLiteral("override");
    m_process.start(QStringLiteral(GLIMMORA_X_CLICK_PROBE), arguments);
    if (!m_process.waitForStarted(5000))
        return false;
    return QTest::qWaitFor([this] { return m_window != 0; }, 15000);
}

void ProbeClient::readLines()
{
    m_buffer += m_process.readAllStandardOutput();
    qsizetype end;
    while ((end = m_buffer.indexOf('\n')) >= 0) {
        const QList<QByteArray> words = m_buffer.left(end).split(' ');
        m_buffer.remove(0, end + 1);
        if (words.value(0) == "ready") {
            m_window = words.value(1).toUInt();
        } else if (words.value(0) == "press") {
            m_presses.append(QPoint(words.value(2).toInt(), words.value(3).toInt()));
        } else if (words.value(0) == "focus-out") {
            // Mode 0 is NotifyNormal; grab and ungrab notifications are not losses.
            // Detail 5 (NotifyPointer) only tells where the pointer is.
            if (words.value(1).toInt() == 0 && words.value(2).toInt() != 5)
                ++m_focusLosses;
        }
    }
}
