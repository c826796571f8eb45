#include "graphs/signaldialwidget.h"

#include <QDebug>

SignalDialWidget::SignalDialWidget(QWidget *parent)
    : QFrame(parent)
{
}

void SignalDialWidget::onSignalReturned(int rssi)
{
    qDebug() << "rssi update";
    m_iSignal = rssi;
    update();
}

void SignalDialWidget::render(QPainter *, const QPoint &, const QRegion &, RenderFlags)
{
    qDebug() << "update";
}
