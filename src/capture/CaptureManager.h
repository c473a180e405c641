#pragma once

#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QRect>
#include <QString>

#include <functional>

class QScreen;
class SettingsManager;

// Grabs one screen, or a rectangle of it, lays an annotation image over it when
// one is given, and writes the result to a file, optionally copying it to the
// clipboard. Knows nothing of windows or tools: the caller picks the screen,
// hides its controls and waits before calling.
class CaptureManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CaptureManager)

public:
    // Grabs the whole of a screen in physical pixels; a null pixmap is a failure.
    using ScreenGrab = std::function<QPixmap(QScreen *)>;

    explicit CaptureManager(SettingsManager *settings, QObject *parent = nullptr);
    // For tests: a grab that does not need a display, and a fixed answer to
    // whether a WebP writer exists.
    CaptureManager(SettingsManager *settings, ScreenGrab grab, bool webpSupported,
                   QObject *parent = nullptr);

    // The whole screen. `annotations` may be null (none); `savedPath` and
    // `error` may be null pointers.
    bool captureScreen(QScreen *screen, const QImage &annotations, QString *savedPath = nullptr,
                       QString *error = nullptr);
    // `region` is in physical pixels of the grab; the annotation image is cut
    // with the same rectangle, so it must have the grab's scale.
    bool captureScreenRegion(QScreen *screen, QRect region, const QImage &annotations,
                             QString *savedPath = nullptr, QString *error = nullptr);

    bool webpSupported() const { return m_webpSupported; }

signals:
    // Once per attempt, at its end; `path` is empty on failure.
    void captureCompleted(bool success, const QString &path, const QString &message);

private:
    QImage grab(QScreen *screen, QString *error);
    bool save(const QImage &image, const QImage &annotations, QString *savedPath, QString *error);
    bool fail(const QString &message, QString *error);

    SettingsManager *m_settings;
    ScreenGrab m_grab;
    bool m_webpSupported;
};
