#include "capture/AtomicImageFile.h"

#include "capture/CaptureLog.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageWriter>
#include <QSaveFile>

namespace AtomicImageFile {

namespace {

bool fail(const QString &message, const QString &path, QString *error)
{
    qCWarning(lcCapture).noquote() << "CaptureManager: could not write" << path << "-" << message;
    if (error)
        *error = message;
    return false;
}

QString couldNotSave(const QString &reason)
{
    if (reason.isEmpty())
        return QCoreApplication::translate("CaptureManager", "Could not save capture.");
    return QCoreApplication::translate("CaptureManager", "Could not save capture: %1").arg(reason);
}

} // namespace

bool write(const QImage &image, const QString &path, const QByteArray &format, int quality,
           QString *error)
{
    // Encoding into memory first keeps encoder and disk failures apart, so that
    // a disk failure is reported with the system's reason.
    QByteArray encoded;
    {
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, format);
        if (quality >= 0)
            writer.setQuality(quality);
        if (!writer.write(image))
            return fail(writer.errorString().isEmpty() ? couldNotSave({}) : writer.errorString(),
                        path, error);
    }

    QSaveFile file(path);
    // A folder that refuses the temporary file must not lead to writing the
    // target in place.
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly))
        return fail(couldNotSave(file.errorString()), path, error);
    // A short write carries no reason; the next one fails with it (ENOSPC, EFBIG).
    for (qint64 done = 0; done < encoded.size();) {
        const qint64 written = file.write(encoded.constData() + done, encoded.size() - done);
        if (written <= 0) {
            const QString reason = file.errorString();
            file.cancelWriting();
            return fail(couldNotSave(reason), path, error);
        }
        done += written;
    }
    if (!file.commit())
        return fail(couldNotSave(file.errorString()), path, error);
    return true;
}

} // namespace AtomicImageFile
