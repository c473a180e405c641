#pragma once

#include "recording/RecordingBackend.h"

#include <QFile>
#include <QMutex>
#include <QMutexLocker>

#include <memory>
#include <vector>

// Fakes of the platform pieces of a recording. Their settings are shared
// through a Script, since the worker creates the pieces itself on its thread.
struct FakeScript
{
    QMutex mutex;
    QSize frameSize { 64, 48 };
    QString sessionError; // ensureSession fails with this
    QString deliverError; // deliverFrame fails with this
    bool deliverWithoutText = false;
    QString openError; // the writer's sink fails to open
    QString submitError; // writing a frame fails
    QString closeError; // finalising fails
    bool createFile = true; // the writer creates the output file
    std::optional<QPoint> cursor = QPoint(2000, 30);
    int buttons = 1;
    int deliveries = 0;
    int sessions = 0;
    int stops = 0;
    std::vector<qint64> sampleTimes;
    QString outputPath;
};

class FakeFrameSource : public FrameSource
{
public:
    explicit FakeFrameSource(std::shared_ptr<FakeScript> script)
        : m_script(std::move(script))
    {
    }

    bool ensureSession(const QRect &rect, CaptureSession *session, QString *error) override
    {
        QMutexLocker lock(&m_script->mutex);
        ++m_script->sessions;
        if (rect.isEmpty() || !m_script->sessionError.isEmpty()) {
            *error = rect.isEmpty() ? QStringLiteral("No active display found.")
                                    : m_script->sessionError;
            return false;
        }
        session->frameSize = m_script->frameSize;
        return true;
    }

    bool deliverFrame(const QRect &, const Consumer &consumer, QString *error) override
    {
        QSize size;
        {
            QMutexLocker lock(&m_script->mutex);
            ++m_script->deliveries;
            if (m_script->deliverWithoutText)
                return false;
            if (!m_script->deliverError.isEmpty()) {
                *error = m_script->deliverError;
                return false;
            }
            size = m_script->frameSize;
        }
        auto pixels =
            std::make_shared<std::vector<unsigned char>>(size_t(size.width()) * size.height() * 4);
        CapturedFrame frame;
        frame.size = size;
        frame.bits = pixels->data();
        frame.bytesPerLine = size.width() * 4;
        frame.owner = pixels;
        return consumer(frame);
    }

    void stop() override
    {
        QMutexLocker lock(&m_script->mutex);
        ++m_script->stops;
    }

private:
    std::shared_ptr<FakeScript> m_script;
};

class FakeVideoWriter : public VideoWriter
{
public:
    explicit FakeVideoWriter(std::shared_ptr<FakeScript> script)
        : m_script(std::move(script))
    {
    }
    ~FakeVideoWriter() override { finish(); }

protected:
    const char *logName() const override { return "FakeVideoWriter"; }

    bool openSink(const QString &path, const CaptureSession &, const H264Settings &,
                  QString *error) override
    {
        QMutexLocker lock(&m_script->mutex);
        m_script->outputPath = path;
        if (m_script->createFile) {
            QFile file(path);
            if (file.open(QIODevice::WriteOnly))
                file.write("fake video");
        }
        *error = m_script->openError;
        return m_script->openError.isEmpty();
    }

    bool submitFrame(const CapturedFrame &, qint64 sampleTime, qint64, QString *error) override
    {
        QMutexLocker lock(&m_script->mutex);
        *error = m_script->submitError;
        if (!error->isEmpty())
            return false;
        m_script->sampleTimes.push_back(sampleTime);
        return true;
    }

    bool closeSink(bool, QString *error) override
    {
        QMutexLocker lock(&m_script->mutex);
        *error = m_script->closeError;
        return error->isEmpty();
    }

private:
    std::shared_ptr<FakeScript> m_script;
};

class FakeCursorPosition : public CursorPosition
{
public:
    explicit FakeCursorPosition(std::shared_ptr<FakeScript> script)
        : m_script(std::move(script))
    {
    }
    std::optional<QPoint> position() const override
    {
        QMutexLocker lock(&m_script->mutex);
        return m_script->cursor;
    }

private:
    std::shared_ptr<FakeScript> m_script;
};

class FakePointerButtons : public PointerButtons
{
public:
    explicit FakePointerButtons(std::shared_ptr<FakeScript> script)
        : m_script(std::move(script))
    {
    }
    int buttonMask() const override
    {
        QMutexLocker lock(&m_script->mutex);
        return m_script->buttons;
    }

private:
    std::shared_ptr<FakeScript> m_script;
};

inline RecordingBackend fakeBackend(const std::shared_ptr<FakeScript> &script,
                                    QRect rect = QRect(1920, 0, 1920, 1080))
{
    // Every member given, so that no real platform factory is referenced.
    RecordingBackend backend {
        [script] { return std::make_unique<FakeFrameSource>(script); },
        [script] { return std::make_unique<FakeVideoWriter>(script); },
        [script] { return std::make_unique<FakeCursorPosition>(script); },
        [script] { return std::make_unique<FakePointerButtons>(script); },
        [rect](QScreen *) { return rect; },
    };
    return backend;
}
