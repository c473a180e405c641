#include "app/TrayHeaderWidget.h"

#include "app/TrayColors.h"

#include <QCoreApplication>
#include <QPainter>

TrayHeaderWidget::TrayHeaderWidget(QWidget *parent)
    : QWidget(parent)
{
    setFixedHeight(56);
    setMinimumWidth(300);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TrayHeaderWidget::setState(bool overlayActive, int displayCount)
{
    if (m_overlayActive == overlayActive && m_displayCount == displayCount)
        return;
    m_overlayActive = overlayActive;
    m_displayCount = displayCount;
    update();
}

QString TrayHeaderWidget::subtitle() const
{
    if (!m_overlayActive)
        return QStringLiteral("Overlay paused");
    return QStringLiteral("Overlay on · %1 display%2")
        .arg(m_displayCount)
        .arg(m_displayCount == 1 ? QString() : QStringLiteral("s"));
}

void TrayHeaderWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(TrayColors::background));

    const QRectF tile(14, (height() - 28) / 2.0, 28, 28);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(TrayColors::accent));
    painter.drawRoundedRect(tile, 7, 7);

    QFont letterFont = font();
    letterFont.setPointSizeF(12);
    letterFont.setBold(true);
    painter.setFont(letterFont);
    painter.setPen(Qt::white);
    painter.drawText(tile, Qt::AlignCenter, QCoreApplication::applicationName().left(1));

    QFont titleFont = font();
    titleFont.setPointSizeF(10.5);
    titleFont.setBold(true);
    painter.setFont(titleFont);
    painter.setPen(QColor(TrayColors::text));
    painter.drawText(QRect(52, 0, width() - 82, height() / 2 + 4), Qt::AlignBottom | Qt::AlignLeft,
                     QStringLiteral("Glimmora"));

    QFont subtitleFont = font();
    subtitleFont.setPointSizeF(9.0);
    painter.setFont(subtitleFont);
    painter.setPen(QColor(TrayColors::dim));
    painter.drawText(QRect(52, height() / 2, width() - 82, height() / 2),
                     Qt::AlignTop | Qt::AlignLeft, subtitle());

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(m_overlayActive ? TrayColors::green : TrayColors::muted));
    painter.drawEllipse(QRectF(width() - 22, (height() - 8) / 2.0, 8, 8));
}
