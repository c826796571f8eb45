#ifndef AIRLUME_GRAPHS_SIGNALDIALWIDGET_H
#define AIRLUME_GRAPHS_SIGNALDIALWIDGET_H

#include <QFrame>

/// A frame that keeps the last signal and repaints when it changes. GUI thread only.
class SignalDialWidget : public QFrame
{
    Q_OBJECT

public:
    explicit SignalDialWidget(QWidget *parent = nullptr);

    /// The last signal in dBm; 0 at first.
    int SignalValue() const { return m_iSignal; }
    /// Paints nothing.
    void render(QPainter *painter, const QPoint &targetOffset, const QRegion &sourceRegion,
        RenderFlags renderFlags);

public slots:
    void onSignalReturned(int rssi);

private:
    int m_iSignal = 0;
};

#endif
