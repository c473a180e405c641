#pragma once

#include "recording/RecordingBackend.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QScreen>

// Shared by the recordings made on the real X server.
namespace X11Recording {

inline QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

// Every platform piece real.
inline RecordingBackend realBackend()
{
    return RecordingBackend {};
}

struct Probe
{
    QString codec;
    int width = 0;
    int height = 0;
    int frames = 0;
    double lastPacketSeconds = 0;
    QString error;
};

// ffprobe's view of the first video stream: codec, size, and the
// packets actually in the file (a killed recording has no index).
inline Probe probe(const QString &path)
{
    Probe result;
    QProcess ffprobe;
    ffprobe.start(QStringLiteral("ffprobe"),
                  { "-v", "error", "-select_streams", "v:0", "-show_entries",
                    "stream=codec_name,width,height:packet=pts_time", "-of", "json", path });
    if (!ffprobe.waitForFinished(60000) || ffprobe.exitCode() != 0) {
        result.error = QString::fromUtf8(ffprobe.readAllStandardError());
        return result;
    }
    const QJsonObject json = QJsonDocument::fromJson(ffprobe.readAllStandardOutput()).object();
    const QJsonObject stream = json.value("streams").toArray().first().toObject();
    result.codec = stream.value("codec_name").toString();
    result.width = stream.value("width").toInt();
    result.height = stream.value("height").toInt();
    const QJsonArray packets = json.value("packets").toArray();
    result.frames = int(packets.size());
    for (const QJsonValue &packet : packets)
        result.lastPacketSeconds = qMax(result.lastPacketSeconds,
                                        packet.toObject().value("pts_time").toString().toDouble());
    return result;
}

} // namespace X11Recording
