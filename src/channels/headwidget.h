#ifndef AIRLUME_CHANNELS_HEADWIDGET_H
#define AIRLUME_CHANNELS_HEADWIDGET_H

#include <QWidget>

/// A white sheet with a grey band across its top, on which a list's white header texts stand.
class HeadWidget : public QWidget
{
    Q_OBJECT

public:
    /// Height of the visible part of the band, in pixels.
    static const int BandHeight = 35;

    explicit HeadWidget(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

#endif
