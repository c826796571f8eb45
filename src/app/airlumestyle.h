#ifndef AIRLUME_APP_AIRLUMESTYLE_H
#define AIRLUME_APP_AIRLUMESTYLE_H

#include <QIcon>
#include <QProxyStyle>

/// The application's widget style: Qt's Fusion, the same on every desktop, with the check boxes of
/// the style sheet also where an item delegate paints them, and no icons on the buttons of dialogs.
/// GUI thread only.
class AirlumeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    AirlumeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr, QStyleHintReturn *returned = nullptr) const override;

private:
    QIcon m_plain;
    QIcon m_hovered;
    QIcon m_ticked;
};

#endif
