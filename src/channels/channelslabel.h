#ifndef AIRLUME_CHANNELS_CHANNELSLABEL_H
#define AIRLUME_CHANNELS_CHANNELSLABEL_H

#include <QLabel>
#include <QStringList>

/// Breaks a list such as "1,11,36" into lines of at most `width` pixels, after commas only. An
/// entry that is wider stands alone. Pure.
QStringList BreakAfterCommas(const QString &text, const QFontMetrics &metrics, int width);

/// A label for a long list of channels, which an ordinary label would not wrap: there is no blank
/// between the channels. A list that is too long for the place is written smaller; what does not
/// fit even so is replaced by an ellipsis.
class ChannelsLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ChannelsLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

#endif
