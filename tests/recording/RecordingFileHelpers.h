#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

// Reading and making the files a recording leaves behind.
namespace RecordingFileHelpers {

inline QJsonObject readJson(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

// Every file below `root`, hidden ones too, relative and sorted.
inline QStringList filesUnder(const QString &root)
{
    QStringList files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(QDir(root).relativeFilePath(it.next()));
    files.sort();
    return files;
}

// The one file in `dir` matching `pattern`, or empty.
inline QString onlyFile(const QString &dir, const QString &pattern)
{
    const QStringList names = QDir(dir).entryList({ pattern }, QDir::Files | QDir::Hidden);
    return names.size() == 1 ? QDir(dir).filePath(names.first()) : QString();
}

inline void touch(const QString &path, const QByteArray &content = "x")
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace RecordingFileHelpers
