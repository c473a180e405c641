#include "recording/CursorMetadataFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

bool CursorMetadataFile::open(const QString &path, const QString &recordingId, int flushEvery)
{
    close();
    m_recordingId = recordingId;
    m_flushEvery = qMax(flushEvery, 1);
    m_recordsSinceFlush = 0;
    QDir().mkpath(QFileInfo(path).absolutePath());
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    writeLine(QJsonObject {
        { QStringLiteral("type"), QStringLiteral("glimmora-recording-metadata") },
        { QStringLiteral("version"), 1 },
        { QStringLiteral("recordingId"), recordingId },
        { QStringLiteral("createdAtUtc"),
          QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs) },
        { QStringLiteral("coordinateSpace"), QStringLiteral("global-screen") },
    });
    m_file.flush();
    return true;
}

void CursorMetadataFile::writeRecord(qint64 tMs, const std::optional<QPoint> &position,
                                     const QPoint &origin, int buttons)
{
    if (!m_file.isOpen())
        return;
    QJsonObject record {
        { QStringLiteral("type"), QStringLiteral("cursor") },
        { QStringLiteral("recordingId"), m_recordingId },
        { QStringLiteral("tMs"), tMs },
        { QStringLiteral("buttons"), buttons },
    };
    if (position) {
        record.insert(QStringLiteral("x"), position->x());
        record.insert(QStringLiteral("y"), position->y());
        record.insert(QStringLiteral("relativeX"), position->x() - origin.x());
        record.insert(QStringLiteral("relativeY"), position->y() - origin.y());
    }
    writeLine(record);
    if (++m_recordsSinceFlush >= m_flushEvery) {
        m_file.flush();
        m_recordsSinceFlush = 0;
    }
}

void CursorMetadataFile::close()
{
    if (!m_file.isOpen())
        return;
    m_file.flush();
    m_file.close();
}

void CursorMetadataFile::writeLine(const QJsonObject &object)
{
    m_file.write(QJsonDocument(object).toJson(QJsonDocument::Compact));
    m_file.write("\n");
}
