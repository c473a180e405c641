#pragma once

#include <QDateTime>
#include <QString>

// Where a still capture goes and in which format: pure functions of the
// settings' texts, so that the rules can be checked without a screen.
namespace CaptureFileRules {

// The folder for captures. "~/" at the start means the home folder; an empty
// text means the pictures folder (or home) with the subfolder "Glimmora".
QString resolveFolder(const QString &configured);

// "png", "jpg" or "webp": both the file extension and the writer's format.
// Case and surrounding blanks do not matter; unknown names and WebP without a
// writer give "png".
QString resolveFormat(const QString &configured, bool webpSupported);

// "Glimmora-<stamp>.<ext>" in the folder, or "Glimmora-<stamp>-<n>.<ext>" with
// the smallest n from 2 up whose file does not exist yet.
QString nextFreePath(const QString &folder, const QString &extension, const QDateTime &when);

} // namespace CaptureFileRules
