#pragma once

#include <QObject>

#include <memory>

// Whether a compositing manager runs now. Without one, the transparent parts
// of a window show black instead of what lies below.
class CompositorWatch : public QObject
{
    Q_OBJECT

public:
    explicit CompositorWatch(QObject *parent = nullptr)
        : QObject(parent)
    {
    }
    ~CompositorWatch() override = default;

    virtual bool isActive() const = 0;

    static std::unique_ptr<CompositorWatch> create();

signals:
    void activeChanged();
    // A compositing manager took over, the first or a new one.
    void started();

private:
    Q_DISABLE_COPY_MOVE(CompositorWatch)
};
