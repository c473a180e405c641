#pragma once

#include <QString>
#include <QWidget>

// One painted row of the tray menu: a switch or an action with an optional
// icon and a right-aligned shortcut hint. A press with any button emits
// clicked() and leaves the menu open.
class TrayRow : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayRow)

public:
    enum Icon { NoIcon = 0, PauseIcon = 1, SlidersIcon = 2, DisplayIcon = 3, PowerIcon = 4 };

    TrayRow(const QString &label, const QString &shortcut, bool isToggle, Icon icon,
            QWidget *parent = nullptr);

    QString label() const { return m_label; }
    bool isChecked() const { return m_checked; }
    void setChecked(bool checked);
    void setMuted(bool muted);

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void paintIcon(QPainter &painter, QPointF centre) const;

    QString m_label;
    QString m_shortcut;
    bool m_isToggle;
    Icon m_icon;
    bool m_checked = false;
    bool m_muted = false;
    bool m_hovered = false;
};
