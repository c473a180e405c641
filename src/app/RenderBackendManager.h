#pragma once

#include <QObject>
#include <QString>

// Tells the documents which render path draws them. There is one, the Qt
// Quick scene graph, so the answers are fixed and nothing probes the system.
class RenderBackendManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RenderBackendManager)

    Q_PROPERTY(QString activeBackendName READ activeBackendName CONSTANT FINAL)
    Q_PROPERTY(bool qtQuickGpuAvailable READ qtQuickGpuAvailable CONSTANT FINAL)
    Q_PROPERTY(bool nativeBackendAvailable READ nativeBackendAvailable CONSTANT FINAL)

public:
    explicit RenderBackendManager(QObject *parent = nullptr)
        : QObject(parent)
    {
    }

    QString activeBackendName() const { return QStringLiteral("QtQuickGpu"); }
    bool qtQuickGpuAvailable() const { return true; }
    bool nativeBackendAvailable() const { return false; }
};
