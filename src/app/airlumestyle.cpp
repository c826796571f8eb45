#include "app/airlumestyle.h"

#include <QStyleOption>

namespace
{
/// Side of a check box, as in the style sheet.
const int CheckBoxSide = 15;
} // namespace

AirlumeStyle::AirlumeStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
    , m_plain(QStringLiteral(":/images/checkbox_normal.png"))
    , m_hovered(QStringLiteral(":/images/checkbox_hover.png"))
    , m_ticked(QStringLiteral(":/images/checkbox_select.png"))
{
}

void AirlumeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    if (element != PE_IndicatorCheckBox) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QIcon &icon = (option->state & State_On)          ? m_ticked
                        : (option->state & State_MouseOver) ? m_hovered
                                                            : m_plain;
    icon.paint(painter, option->rect);
}

int AirlumeStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_IndicatorWidth || metric == PM_IndicatorHeight)
        return CheckBoxSide;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int AirlumeStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
    QStyleHintReturn *returned) const
{
    // The desktop's icons would look foreign beside texts on purple.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}
