#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

// Writes an image so that the final name only ever holds a complete file: the
// encoder writes into a temporary file beside the target, which is renamed
// into place after the last byte reached the disk. On any failure the
// temporary file is removed and the target is left as it was.
namespace AtomicImageFile {

// `quality` < 0 leaves the writer's default. Returns false with a text for the
// user in `*error` (which may be null).
bool write(const QImage &image, const QString &path, const QByteArray &format, int quality,
           QString *error);

} // namespace AtomicImageFile
