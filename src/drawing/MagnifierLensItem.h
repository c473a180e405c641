#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <memory>

class ScreenAreaGrabber;

// The picture inside the magnifier: a small square of the screen around the
// pointer, grabbed about 30 times a second and painted enlarged without
// filtering, so that pixels show as hard squares.
class MagnifierLensItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged FINAL)
    Q_PROPERTY(double zoomFactor READ zoomFactor WRITE setZoomFactor NOTIFY zoomFactorChanged FINAL)

public:
    static constexpr double MinimumZoom = 1.25;
    static constexpr double MaximumZoom = 4.0;
    static constexpr int MinimumGrabSide = 16;

    explicit MagnifierLensItem(QQuickItem *parent = nullptr);
    ~MagnifierLensItem() override;
    Q_DISABLE_COPY_MOVE(MagnifierLensItem)

    bool isActive() const { return m_active; }
    void setActive(bool active);
    double zoomFactor() const { return m_zoomFactor; }
    void setZoomFactor(double zoomFactor);

    void paint(QPainter *painter) override;

    // The square to grab, in global coordinates, for a lens of `itemSize`
    // centred on `pointer`, before it is cut to the screen.
    static QRect sourceSquare(const QPoint &pointer, const QSizeF &itemSize, double zoomFactor);

    // For tests: replaces the platform grabber.
    void setGrabber(std::unique_ptr<ScreenAreaGrabber> grabber);

public slots:
    void captureFrame();

signals:
    void activeChanged();
    void zoomFactorChanged();

private:
    bool m_active = false;
    double m_zoomFactor = 2.0;
    QTimer m_timer;
    QImage m_frame;
    std::unique_ptr<ScreenAreaGrabber> m_grabber;
};
