#include "app/widestyle.h"

namespace
{
const int Margin = 13;
}

int WideStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return Spacing;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return Margin;
    default:
        return AirlumeStyle::pixelMetric(metric, option, widget);
    }
}
