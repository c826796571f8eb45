#ifndef AIRLUME_TESTS_APP_WIDESTYLE_H
#define AIRLUME_TESTS_APP_WIDESTYLE_H

#include "app/airlumestyle.h"

/// The program's style with spacings and margins of its own, so that those which the window sets
/// can be told from those which it does not.
class WideStyle : public AirlumeStyle
{
public:
    static constexpr int Spacing = 9;

    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr) const override;
};

#endif
