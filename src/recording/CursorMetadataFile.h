#pragma once

#include <QFile>
#include <QPoint>
#include <QString>

#include <optional>

class QJsonObject;

// The cursor side file of a recording, JSON Lines: a header, then one record
// per frame tick. Flushed once per `flushEvery` records, so a crash loses at
// most about a second of cursor data.
class CursorMetadataFile
{
public:
    bool open(const QString &path, const QString &recordingId, int flushEvery);
    bool isOpen() const { return m_file.isOpen(); }

    // `position` empty when the pointer could not be read: the coordinates are
    // left out and the line is written all the same. `origin` is the capture
    // rectangle's top-left corner.
    void writeRecord(qint64 tMs, const std::optional<QPoint> &position, const QPoint &origin,
                     int buttons);
    void close();

private:
    void writeLine(const QJsonObject &object);

    QFile m_file;
    QString m_recordingId;
    int m_flushEvery = 30;
    int m_recordsSinceFlush = 0;
};
