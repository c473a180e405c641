#include "app/TrayRow.h"

#include "app/TrayColors.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int rowHeight = 38;
constexpr int minimumRowWidth = 300;
constexpr int margin = 14;
constexpr int iconAdvance = 20;
constexpr int iconBox = 14;
constexpr int switchWidth = 38;
constexpr int shortcutWidth = 52;
} // namespace

TrayRow::TrayRow(const QString &label, const QString &shortcut, bool isToggle, Icon icon,
                 QWidget *parent)
    : QWidget(parent)
    , m_label(label)
    , m_shortcut(shortcut)
    , m_isToggle(isToggle)
    , m_icon(icon)
{
    setFixedHeight(rowHeight);
    setMinimumWidth(minimumRowWidth);
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::PointingHandCursor);
}

void TrayRow::setChecked(bool checked)
{
    if (m_checked == checked)
        return;
    m_checked = checked;
    update();
}

void TrayRow::setMuted(bool muted)
{
    if (m_muted == muted)
        return;
    m_muted = muted;
    update();
}

void TrayRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(TrayColors::background));

    if (m_hovered) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgba(TrayColors::hover));
        painter.drawRoundedRect(QRectF(rect()).adjusted(4, 2, -4, -2), 7, 7);
    }

    int textX = margin;
    if (m_icon != NoIcon) {
        paintIcon(painter, QPointF(margin + iconBox / 2.0, height() / 2.0));
        textX += iconAdvance;
    }

    const int toggleWidth = m_isToggle ? switchWidth : 0;
    const int hintWidth = m_shortcut.isEmpty() ? 0 : shortcutWidth;
    const int labelWidth = width() - textX - margin - toggleWidth - hintWidth;

    QFont labelFont = font();
    labelFont.setPointSizeF(10.5);
    painter.setFont(labelFont);
    painter.setPen(QColor(m_muted ? TrayColors::muted : TrayColors::text));
    painter.drawText(QRect(textX, 0, labelWidth, height()), Qt::AlignVCenter | Qt::AlignLeft,
                     m_label);

    if (hintWidth > 0) {
        QFont hintFont = font();
        hintFont.setPointSizeF(9.0);
        painter.setFont(hintFont);
        painter.setPen(QColor(TrayColors::muted));
        painter.drawText(
            QRect(width() - margin - toggleWidth - hintWidth, 0, hintWidth - 4, height()),
            Qt::AlignVCenter | Qt::AlignRight, m_shortcut);
    }

    if (m_isToggle) {
        const QRectF pill(width() - 48, height() / 2 - 9, 34, 18);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(m_checked ? TrayColors::accent : TrayColors::off));
        painter.drawRoundedRect(pill, 9, 9);
        painter.setBrush(Qt::white);
        painter.drawEllipse(QRectF(pill.x() + (m_checked ? 18 : 2), height() / 2 - 7, 14, 14));
    }
}

void TrayRow::paintIcon(QPainter &painter, QPointF centre) const
{
    const QColor colour(m_muted ? TrayColors::muted : TrayColors::dim);
    const qreal cx = centre.x();
    const qreal cy = centre.y();
    painter.save();
    switch (m_icon) {
    case PauseIcon:
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(cx - 4.5, cy - 5, 3, 10), 1.5, 1.5);
        painter.drawRoundedRect(QRectF(cx + 1.5, cy - 5, 3, 10), 1.5, 1.5);
        break;
    case SlidersIcon: {
        painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap));
        for (const qreal y : { cy - 4, cy, cy + 4 })
            painter.drawLine(QPointF(cx - 5, y), QPointF(cx + 5, y));
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        for (const QPointF dot :
             { QPointF(cx + 2, cy - 4), QPointF(cx - 2, cy), QPointF(cx + 3, cy + 4) })
            painter.drawEllipse(dot, 2.2, 2.2);
        break;
    }
    case DisplayIcon:
        painter.setPen(QPen(colour, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(cx - 6, cy - 4.5, 12, 8), 1.5, 1.5);
        painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(cx, cy + 3.5), QPointF(cx, cy + 5.5));
        painter.drawLine(QPointF(cx - 3, cy + 5.5), QPointF(cx + 3, cy + 5.5));
        break;
    case PowerIcon: {
        painter.setPen(QPen(colour, 1.8, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        QPainterPath arc;
        const QRectF circle(cx - 5, cy - 5, 10, 10);
        arc.arcMoveTo(circle, 120);
        arc.arcTo(circle, 120, 300);
        painter.drawPath(arc);
        painter.drawLine(QPointF(cx, cy - 1), QPointF(cx, cy - 3.5));
        break;
    }
    case NoIcon:
        break;
    }
    painter.restore();
}

void TrayRow::enterEvent(QEnterEvent *)
{
    m_hovered = true;
    update();
}

void TrayRow::leaveEvent(QEvent *)
{
    m_hovered = false;
    update();
}

void TrayRow::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    emit clicked();
}
