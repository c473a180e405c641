#pragma once

#include <QWidget>

// The top of the tray menu: logo tile, name, a live subtitle and a status dot
// that say whether the overlay is on and over how many displays.
class TrayHeaderWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayHeaderWidget)

public:
    explicit TrayHeaderWidget(QWidget *parent = nullptr);

    void setState(bool overlayActive, int displayCount);
    QString subtitle() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_overlayActive = true;
    int m_displayCount = 1;
};
