#include "capture/CaptureManager.h"

#include "capture/AtomicImageFile.h"
#include "capture/CaptureComposer.h"
#include "capture/CaptureFileRules.h"
#include "capture/CaptureLog.h"
#include "settings/SettingsManager.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>
#include <QScreen>

Q_LOGGING_CATEGORY(lcCapture, "glimmora.capture")

namespace {

QPixmap grabWholeScreen(QScreen *screen)
{
    return screen->grabWindow(0, 0, 0, -1, -1);
}

bool writerSupportsWebp()
{
    return QImageWriter::supportedImageFormats().contains("webp");
}

constexpr int defaultJpegQuality = 92;

} // namespace

CaptureManager::CaptureManager(SettingsManager *settings, QObject *parent)
    : CaptureManager(settings, grabWholeScreen, writerSupportsWebp(), parent)
{
}

CaptureManager::CaptureManager(SettingsManager *settings, ScreenGrab grab, bool webpSupported,
                               QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_grab(std::move(grab))
    , m_webpSupported(webpSupported)
{
    qCDebug(lcCapture) << "CaptureManager: WebP writer"
                       << (m_webpSupported ? "available" : "not available");
}

bool CaptureManager::captureScreen(QScreen *screen, const QImage &annotations, QString *savedPath,
                                   QString *error)
{
    QString message;
    const QImage image = grab(screen, &message);
    if (image.isNull())
        return fail(message, error);
    return save(image, annotations, savedPath, error);
}

bool CaptureManager::captureScreenRegion(QScreen *screen, QRect region, const QImage &annotations,
                                         QString *savedPath, QString *error)
{
    QString message;
    const QImage image = grab(screen, &message);
    if (image.isNull())
        return fail(message, error);
    const QImage part = CaptureComposer::cropToRegion(image, region);
    if (part.isNull()) {
        qCInfo(lcCapture) << "CaptureManager: region" << region << "misses the grab of size"
                          << image.size();
        return fail(tr("Selected region is empty."), error);
    }
    return save(part, CaptureComposer::cutAnnotations(annotations, image, region), savedPath,
                error);
}

QImage CaptureManager::grab(QScreen *screen, QString *error)
{
    if (!screen) {
        *error = tr("No active display found.");
        return {};
    }
    const QPixmap pixmap = m_grab(screen);
    if (pixmap.isNull()) {
        qCWarning(lcCapture).noquote()
            << "CaptureManager: grab of" << screen->name() << "returned nothing";
        *error = tr("Screen capture failed.");
        return {};
    }
    return pixmap.toImage();
}

bool CaptureManager::save(const QImage &image, const QImage &annotations, QString *savedPath,
                          QString *error)
{
    const QImage composed = CaptureComposer::overlayAnnotations(image, annotations);

    const QString folder =
        CaptureFileRules::resolveFolder(m_settings ? m_settings->captureSaveFolder() : QString());
    if (!QDir().mkpath(folder)) {
        qCWarning(lcCapture).noquote() << "CaptureManager: cannot make folder" << folder;
        return fail(tr("Could not create capture folder."), error);
    }

    const QString format = CaptureFileRules::resolveFormat(
        m_settings ? m_settings->captureImageFormat() : QString(), m_webpSupported);
    const QString path =
        CaptureFileRules::nextFreePath(folder, format, QDateTime::currentDateTime());
    // Only JPEG takes the quality setting; PNG and WebP keep the writer's default.
    int quality = -1;
    if (format == QLatin1String("jpg"))
        quality = m_settings ? m_settings->captureImageQuality() : defaultJpegQuality;

    QString writeError;
    if (!AtomicImageFile::write(composed, path, format.toLatin1(), quality, &writeError))
        return fail(writeError, error);

    QClipboard *clipboard = QGuiApplication::clipboard();
    if (m_settings && m_settings->captureCopyToClipboard() && clipboard)
        clipboard->setPixmap(QPixmap::fromImage(composed));

    qCInfo(lcCapture).noquote() << "CaptureManager: saved" << path << composed.width() << "x"
                                << composed.height() << format;
    if (savedPath)
        *savedPath = path;
    emit captureCompleted(true, path, tr("Capture saved."));
    return true;
}

bool CaptureManager::fail(const QString &message, QString *error)
{
    qCWarning(lcCapture).noquote() << "CaptureManager: capture failed:" << message;
    if (error)
        *error = message;
    emit captureCompleted(false, QString(), message);
    return false;
}
