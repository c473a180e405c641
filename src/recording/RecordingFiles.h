#pragma once

#include <QDateTime>
#include <QRect>
#include <QString>

// Names and files of a recording: the video and its cursor file are written
// under hidden working names beside a recovery manifest, and only a finished
// recording is renamed into place. Everything here runs on the GUI thread.
class RecordingFiles
{
public:
    struct Manifest
    {
        QString recordingId;
        QString finalPath;
        QString workingPath;
        QString finalMetadataPath;
        QString workingMetadataPath;
        QRect captureRect;
        int qualityPreset = 1;
    };

    // The save folder from the setting's text: "~/" expanded, empty means the
    // download folder (or home).
    static QString resolveSaveFolder(const QString &setting);

    // A collision-free final video path in `folder` for the local time `now`;
    // creates the folder when missing.
    static QString makeFinalPath(const QString &folder, const QDateTime &now);

    static QString workingPathFor(const QString &finalPath);
    static QString metadataPathFor(const QString &videoPath);
    static QString manifestPathFor(const QString &videoPath);

    static bool writeRecoveryManifest(const Manifest &manifest);
    static void markManifestNeedsRecovery(const QString &manifestPath, const QString &error);

    static bool promoteRecording(const QString &workingPath, const QString &finalPath,
                                 QString *error);
    static bool promoteMetadata(const QString &workingMetadataPath,
                                const QString &finalMetadataPath, QString *error);

    // Logs every manifest in `folder` whose working video still exists.
    static void scanRecoverableRecordings(const QString &folder);
};
