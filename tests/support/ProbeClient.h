#pragma once

#include <QObject>
#include <QProcess>
#include <QRect>
#include <QStringList>

#include <cstdint>

// Runs x_click_probe, the stand-in for the presenter's application, and keeps
// what it reports: its window, the clicks that reached it and its focus changes.
class ProbeClient : public QObject
{
    Q_OBJECT

public:
    explicit ProbeClient(QObject *parent = nullptr);
    ~ProbeClient() override;

    // Starts the client with its window at `geometry`, override-redirect if
    // asked; false if it did not report its window in time.
    bool start(const QRect &geometry, bool overrideRedirect = false);

    uint32_t window() const { return m_window; }
    int pressCount() const { return m_presses.size(); }
    QPoint lastPress() const { return m_presses.isEmpty() ? QPoint() : m_presses.last(); }
    // Focus changes away from the window that are not caused by grabs.
    int focusLosses() const { return m_focusLosses; }
    qint64 processId() const { return m_process.processId(); }

private:
    void readLines();

    QProcess m_process;
    QByteArray m_buffer;
    uint32_t m_window = 0;
    QList<QPoint> m_presses;
    int m_focusLosses = 0;
};
