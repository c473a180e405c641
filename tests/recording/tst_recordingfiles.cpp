#include "LogCapture.h"
#include "RecordingFileHelpers.h"
#include "recording/RecordingFiles.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace RecordingFileHelpers;
using namespace Qt::StringLiterals;

// File names, the recovery manifest, promotion and the start-up scan.
class TestRecordingFiles : public QObject
{
    Q_OBJECT

    static RecordingFiles::Manifest manifestIn(const QString &folder)
    {
        RecordingFiles::Manifest m;
        m.recordingId = QStringLiteral("0f8fad5b-d9cb-469f-a165-70867728950e");
        m.finalPath = folder + QStringLiteral("/Glimmora-20260131-093005.mp4");
        m.workingPath = RecordingFiles::workingPathFor(m.finalPath);
        m.finalMetadataPath = RecordingFiles::metadataPathFor(m.finalPath);
        m.workingMetadataPath = RecordingFiles::metadataPathFor(m.workingPath);
        m.captureRect = QRect(1920, 0, 1920, 1080);
        m.qualityPreset = 2;
        return m;
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void derivedNames()
    {
        const QString final = QStringLiteral("/v/Glimmora-20260131-093005.mp4");
        const QString working = RecordingFiles::workingPathFor(final);
        QCOMPARE(working, QStringLiteral("/v/.Glimmora-20260131-093005.recording.mp4"));
        QCOMPARE(RecordingFiles::metadataPathFor(final),
                 QStringLiteral("/v/.glimmora/metadata/Glimmora-20260131-093005.mp4.cursor.jsonl"));
        QCOMPARE(RecordingFiles::metadataPathFor(working),
                 QStringLiteral(
                     "/v/.glimmora/metadata/.Glimmora-20260131-093005.recording.mp4.cursor.jsonl"));
        QCOMPARE(RecordingFiles::manifestPathFor(working),
                 QStringLiteral("/v/.glimmora/recovery/"
                                ".Glimmora-20260131-093005.recording.mp4.glimmora-recovery.json"));
        QCOMPARE(
            RecordingFiles::workingPathFor(QStringLiteral("/v/Glimmora-20260131-093005-2.mp4")),
            QStringLiteral("/v/.Glimmora-20260131-093005-2.recording.mp4"));
    }

    void finalPathAvoidsCollisions()
    {
        QTemporaryDir dir;
        const QString folder = dir.filePath(QStringLiteral("new/sub"));
        const QDateTime when(QDate(2026, 1, 31), QTime(9, 30, 5));
        const QString first = RecordingFiles::makeFinalPath(folder, when);
        QVERIFY2(QFileInfo(folder).isDir(), "the save folder is created");
        QCOMPARE(QFileInfo(first).fileName(), QStringLiteral("Glimmora-20260131-093005.mp4"));
        touch(first);
        const QString second = RecordingFiles::makeFinalPath(folder, when);
        QCOMPARE(QFileInfo(second).fileName(), QStringLiteral("Glimmora-20260131-093005-2.mp4"));
        touch(second);
        QCOMPARE(QFileInfo(RecordingFiles::makeFinalPath(folder, when)).fileName(),
                 QStringLiteral("Glimmora-20260131-093005-3.mp4"));
        // Only the final name counts: a working file of the same time does not.
        QTemporaryDir other;
        touch(RecordingFiles::workingPathFor(
            other.filePath(QStringLiteral("Glimmora-20260131-093005.mp4"))));
        QCOMPARE(QFileInfo(RecordingFiles::makeFinalPath(other.path(), when)).fileName(),
                 QStringLiteral("Glimmora-20260131-093005.mp4"));
    }

    void saveFolder_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("folder");
        const QString home = QDir::homePath();
        QTest::newRow("tilde slash is home")
            << QStringLiteral("  ~/Videos ") << home + QStringLiteral("/Videos");
        QTest::newRow("bare tilde is literal") << QStringLiteral("~") << QStringLiteral("~");
        QTest::newRow("absolute is kept")
            << QStringLiteral("/srv/rec") << QStringLiteral("/srv/rec");
        QTest::newRow("empty is the download folder")
            << QString() << QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    }

    void saveFolder()
    {
        QFETCH(QString, setting);
        QTEST(RecordingFiles::resolveSaveFolder(setting), "folder");
    }

    void manifestHoldsEverythingForRecovery()
    {
        QTemporaryDir dir;
        const RecordingFiles::Manifest m = manifestIn(dir.path());
        QVERIFY(RecordingFiles::writeRecoveryManifest(m));
        const QJsonObject json = readJson(RecordingFiles::manifestPathFor(m.workingPath));
        const QJsonObject rect { { "x", 1920 }, { "y", 0 }, { "width", 1920 }, { "height", 1080 } };
        const QJsonObject expected { { "version", 1 },
                                     { "status", "recording" },
                                     { "recordingId", m.recordingId },
                                     { "finalPath", m.finalPath },
                                     { "workingPath", m.workingPath },
                                     { "finalMetadataPath", m.finalMetadataPath },
                                     { "workingMetadataPath", m.workingMetadataPath },
                                     { "fps", 30 },
                                     { "qualityPreset", 2 },
                                     { "captureRect", rect } };
        QJsonObject written = json;
        QVERIFY(QDateTime::fromString(written.take("createdAtUtc").toString(), Qt::ISODateWithMs)
                    .isValid());
        QCOMPARE(written, expected);
    }

    void marking_data()
    {
        QTest::addColumn<QByteArray>("before"); // empty: no file
        QTest::addColumn<QStringList>("keys");
        const QStringList added { "error", "status", "updatedAtUtc" };
        QTest::newRow("a deleted manifest comes back with three keys") << QByteArray() << added;
        QTest::newRow("a corrupt manifest is replaced") << QByteArray("{not json") << added;
        QTest::newRow("a JSON array is replaced") << QByteArray("[1,2]") << added;
        QTest::newRow("a good manifest keeps its keys")
            << QByteArray(R"({"version":1,"workingPath":"/w","status":"recording"})")
            << added + QStringList { "version", "workingPath" };
    }

    void marking()
    {
        QFETCH(QByteArray, before);
        QFETCH(QStringList, keys);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("m.glimmora-recovery.json"));
        if (!before.isEmpty())
            touch(path, before);
        RecordingFiles::markManifestNeedsRecovery(path, QStringLiteral("disk full"));
        const QJsonObject json = readJson(path);
        QStringList got = json.keys();
        got.sort();
        QCOMPARE(got, keys);
        QCOMPARE(json.value("status").toString(), QStringLiteral("needs-recovery"));
        QCOMPARE(json.value("error").toString(), QStringLiteral("disk full"));
    }

    void markingLogsWhenTheFileCannotBeWritten()
    {
        QTemporaryDir dir;
        touch(dir.filePath(QStringLiteral("blocker")));
        LogCapture log;
        RecordingFiles::markManifestNeedsRecovery(dir.filePath(QStringLiteral("blocker/m.json")),
                                                  QString());
        QCOMPARE(log.matching(u"RecordingManager: could not update recovery manifest"_s).size(), 1);
        RecordingFiles::markManifestNeedsRecovery(QString(), QStringLiteral("ignored"));
        QCOMPARE(log.messages().size(), 1);
    }

    void promotion_data()
    {
        QTest::addColumn<bool>("metadata");
        QTest::addColumn<QString>("working");
        QTest::addColumn<QString>("final");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("error");
        // %1: the working path, %2: the final one.
        const auto row = [](const char *name, bool metadata, const char *working, const char *final,
                            const char *error) {
            QTest::newRow(name) << metadata << working << final << !*error << error;
        };
        row("video: empty path", false, "", "F", "Missing recording output path.");
        row("video: working file missing", false, "missing", "F",
            "Working recording file does not exist: %1");
        row("video: rename blocked", false, "W", "blocker/F", "Could not rename %1 to %2.");
        row("video: replaces an existing final file", false, "W", "existing", "");
        row("metadata: empty paths are not a failure", true, "", "F", "");
        row("metadata: working file missing", true, "missing", "F",
            "Working metadata file does not exist: %1");
        row("metadata: creates the final folder", true, "W", "sub/dir/F", "");
        row("metadata: rename blocked", true, "W", "blocker/F", "Could not rename %1 to %2.");
    }

    void promotion()
    {
        QFETCH(bool, metadata);
        QFETCH(QString, working);
        QFETCH(QString, final);
        QFETCH(bool, ok);
        QFETCH(QString, error);
        QTemporaryDir dir;
        touch(dir.filePath(QStringLiteral("W")), "video");
        touch(dir.filePath(QStringLiteral("existing")), "old");
        touch(dir.filePath(QStringLiteral("blocker")));
        const QString workingPath = working.isEmpty() ? QString() : dir.filePath(working);
        const QString finalPath = dir.filePath(final);
        QString got;
        const bool result = metadata
            ? RecordingFiles::promoteMetadata(workingPath, finalPath, &got)
            : RecordingFiles::promoteRecording(workingPath, finalPath, &got);
        QCOMPARE(result, ok);
        if (!ok) {
            QCOMPARE(got, error.replace(u"%1"_s, workingPath).replace(u"%2"_s, finalPath));
        } else if (!workingPath.isEmpty()) {
            QVERIFY(!QFileInfo::exists(workingPath));
            QFile file(finalPath);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), QByteArray("video"));
        }
    }

    void scanReportsWhatCanBeRecovered()
    {
        QTemporaryDir dir;
        const RecordingFiles::Manifest live = manifestIn(dir.path());
        QVERIFY(RecordingFiles::writeRecoveryManifest(live));
        touch(live.workingPath);
        RecordingFiles::markManifestNeedsRecovery(RecordingFiles::manifestPathFor(live.workingPath),
                                                  "x");

        RecordingFiles::Manifest gone = manifestIn(dir.path());
        gone.finalPath = dir.filePath(QStringLiteral("Glimmora-20250101-000000.mp4"));
        gone.workingPath = RecordingFiles::workingPathFor(gone.finalPath);
        QVERIFY(RecordingFiles::writeRecoveryManifest(gone));
        touch(dir.filePath(QStringLiteral(
                  ".glimmora/recovery/.broken.recording.mp4.glimmora-recovery.json")),
              "{corrupt");
        touch(dir.filePath(QStringLiteral(".glimmora/recovery/notes.txt")), "{}");

        LogCapture log;
        RecordingFiles::scanRecoverableRecordings(dir.path());
        const QStringList found =
            log.matching(QStringLiteral("RecordingManager: recoverable recording found"));
        QCOMPARE(found.size(), 1);
        const QString line = found.first();
        for (const QString &part :
             { live.workingPath, live.finalPath, live.recordingId, live.workingMetadataPath,
               RecordingFiles::manifestPathFor(live.workingPath) }) {
            QVERIFY2(line.contains(part), qPrintable(line));
        }
        QCOMPARE(log.messages().size(), 1);
        QVERIFY2(QFileInfo::exists(RecordingFiles::manifestPathFor(gone.workingPath)),
                 "the scan never deletes a manifest");
    }

    void scanOfAFolderWithoutRecoveryFilesIsQuiet()
    {
        QTemporaryDir dir;
        LogCapture log;
        RecordingFiles::scanRecoverableRecordings(dir.filePath(QStringLiteral("nowhere")));
        QVERIFY(log.messages().isEmpty());
        QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("nowhere"))));
    }
};

QTEST_GUILESS_MAIN(TestRecordingFiles)
#include "tst_recordingfiles.moc"
