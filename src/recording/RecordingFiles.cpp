#include "recording/RecordingFiles.h"

#include "recording/RecordingLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

const QString Suffix = QStringLiteral("mp4");
const QString MetadataFolder = QStringLiteral(".glimmora/metadata");
const QString RecoveryFolder = QStringLiteral(".glimmora/recovery");
const QString ManifestSuffix = QStringLiteral(".glimmora-recovery.json");

QString besideVideo(const QString &videoPath, const QString &subFolder, const QString &name)
{
    const QFileInfo info(videoPath);
    return QDir(info.path()).filePath(subFolder + QLatin1Char('/') + name);
}

QString utcNow()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
}

} // namespace

QString RecordingFiles::resolveSaveFolder(const QString &setting)
{
    QString folder = setting.trimmed();
    if (folder.startsWith(QLatin1String("~/")))
        folder = QDir::homePath() + folder.mid(1);
    if (folder.isEmpty()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
        if (folder.isEmpty())
            folder = QDir::homePath();
    }
    return QDir::fromNativeSeparators(folder);
}

QString RecordingFiles::makeFinalPath(const QString &folder, const QDateTime &now)
{
    QDir dir(folder);
    if (!dir.exists())
        dir.mkpath(QStringLiteral("."));
    const QString stamp = now.toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString candidate = dir.filePath(QStringLiteral("Glimmora-%1.%2").arg(stamp, Suffix));
    for (int n = 2; QFileInfo::exists(candidate); ++n)
        candidate = dir.filePath(QStringLiteral("Glimmora-%1-%2.%3").arg(stamp).arg(n).arg(Suffix));
    return candidate;
}

QString RecordingFiles::workingPathFor(const QString &finalPath)
{
    const QFileInfo info(finalPath);
    return QDir(info.path())
        .filePath(QStringLiteral(".%1.recording.%2").arg(info.completeBaseName(), info.suffix()));
}

QString RecordingFiles::metadataPathFor(const QString &videoPath)
{
    return besideVideo(videoPath, MetadataFolder,
                       QFileInfo(videoPath).fileName() + QStringLiteral(".cursor.jsonl"));
}

QString RecordingFiles::manifestPathFor(const QString &videoPath)
{
    return besideVideo(videoPath, RecoveryFolder, QFileInfo(videoPath).fileName() + ManifestSuffix);
}

bool RecordingFiles::writeRecoveryManifest(const Manifest &manifest)
{
    const QString path = manifestPathFor(manifest.workingPath);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QJsonObject rect { { QStringLiteral("x"), manifest.captureRect.x() },
                             { QStringLiteral("y"), manifest.captureRect.y() },
                             { QStringLiteral("width"), manifest.captureRect.width() },
                             { QStringLiteral("height"), manifest.captureRect.height() } };
    const QJsonObject object {
        { QStringLiteral("version"), 1 },
        { QStringLiteral("recordingId"), manifest.recordingId },
        { QStringLiteral("status"), QStringLiteral("recording") },
        { QStringLiteral("createdAtUtc"), utcNow() },
        { QStringLiteral("finalPath"), QFileInfo(manifest.finalPath).absoluteFilePath() },
        { QStringLiteral("workingPath"), QFileInfo(manifest.workingPath).absoluteFilePath() },
        { QStringLiteral("finalMetadataPath"), manifest.finalMetadataPath },
        { QStringLiteral("workingMetadataPath"), manifest.workingMetadataPath },
        { QStringLiteral("fps"), 30 },
        { QStringLiteral("qualityPreset"), manifest.qualityPreset },
        { QStringLiteral("captureRect"), rect },
    };
    file.write(QJsonDocument(object).toJson(QJsonDocument::Indented));
    file.flush();
    return file.error() == QFileDevice::NoError;
}

void RecordingFiles::markManifestNeedsRecovery(const QString &manifestPath, const QString &error)
{
    if (manifestPath.isEmpty())
        return;
    QJsonObject object;
    QFile file(manifestPath);
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonDocument doc = QJsonDocument::fromJson(file.readAll());
        if (doc.isObject())
            object = doc.object();
        file.close();
    }
    object.insert(QStringLiteral("status"), QStringLiteral("needs-recovery"));
    object.insert(QStringLiteral("updatedAtUtc"), utcNow());
    object.insert(QStringLiteral("error"), error);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qCWarning(lcRecording) << "RecordingManager: could not update recovery manifest"
                               << manifestPath;
        return;
    }
    file.write(QJsonDocument(object).toJson(QJsonDocument::Indented));
}

bool RecordingFiles::promoteRecording(const QString &workingPath, const QString &finalPath,
                                      QString *error)
{
    if (workingPath.isEmpty() || finalPath.isEmpty()) {
        *error = QStringLiteral("Missing recording output path.");
        return false;
    }
    if (!QFileInfo::exists(workingPath)) {
        *error = QStringLiteral("Working recording file does not exist: %1").arg(workingPath);
        return false;
    }
    QFile::remove(finalPath);
    if (QFile::rename(workingPath, finalPath))
        return true;
    *error = QStringLiteral("Could not rename %1 to %2.").arg(workingPath, finalPath);
    return false;
}

bool RecordingFiles::promoteMetadata(const QString &workingMetadataPath,
                                     const QString &finalMetadataPath, QString *error)
{
    if (workingMetadataPath.isEmpty() || finalMetadataPath.isEmpty())
        return true;
    if (!QFileInfo::exists(workingMetadataPath)) {
        *error =
            QStringLiteral("Working metadata file does not exist: %1").arg(workingMetadataPath);
        return false;
    }
    QDir().mkpath(QFileInfo(finalMetadataPath).absolutePath());
    QFile::remove(finalMetadataPath);
    if (QFile::rename(workingMetadataPath, finalMetadataPath))
        return true;
    *error =
        QStringLiteral("Could not rename %1 to %2.").arg(workingMetadataPath, finalMetadataPath);
    return false;
}

void RecordingFiles::scanRecoverableRecordings(const QString &folder)
{
    const QDir recovery(QDir(folder).filePath(RecoveryFolder));
    const QStringList names = recovery.entryList({ QLatin1Char('*') + ManifestSuffix },
                                                 QDir::Files | QDir::Hidden, QDir::Unsorted);
    for (const QString &name : names) {
        const QString manifestPath = recovery.filePath(name);
        QFile file(manifestPath);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        const QString workingPath = object.value(QStringLiteral("workingPath")).toString();
        if (workingPath.isEmpty() || !QFileInfo::exists(workingPath))
            continue;
        qCWarning(lcRecording) << "RecordingManager: recoverable recording found"
                               << "workingPath" << workingPath << "finalPath"
                               << object.value(QStringLiteral("finalPath")).toString()
                               << "recordingId"
                               << object.value(QStringLiteral("recordingId")).toString()
                               << "workingMetadataPath"
                               << object.value(QStringLiteral("workingMetadataPath")).toString()
                               << "manifest" << manifestPath;
    }
}
