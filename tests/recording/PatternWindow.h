#pragma once

#include <QElapsedTimer>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QTimer>

// A frameless window covering one screen and painting a moving pattern, so
// that every captured frame differs from the last.
class PatternWindow : public QRasterWindow
{
public:
    explicit PatternWindow(QScreen *screen, int fps = 30)
    {
        setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
        setScreen(screen);
        setGeometry(screen->geometry());
        m_clock.start();
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1000 / fps);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { update(); });
        m_timer.start();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const qint64 t = m_clock.elapsed();
        const int w = width();
        const int h = height();
        painter.fillRect(QRect(0, 0, w, h), QColor(20, 40, 90));
        const int x = int((t * 600 / 1000) % qMax(w, 1));
        painter.fillRect(QRect(x, 0, 160, h), QColor(240, 200, 40));
        const int y = int((t * 300 / 1000) % qMax(h, 1));
        painter.fillRect(QRect(0, y, w, 80), QColor(200, 60, 60));
        painter.setPen(Qt::white);
        QFont font = painter.font();
        font.setPixelSize(96);
        painter.setFont(font);
        painter.drawText(QRect(0, 0, w, h), Qt::AlignCenter, QString::number(t));
    }

private:
    QElapsedTimer m_clock;
    QTimer m_timer;
};
