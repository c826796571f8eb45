#include "common/fittingfont.h"

#include <QFont>
#include <QFontInfo>
#include <QFontMetrics>

namespace
{
const int SmallestPixelSize = 8;
} // namespace

QFont FittingFont(QFont font, int height)
{
    int pixelSize = QFontInfo(font).pixelSize();
    while (pixelSize > SmallestPixelSize && QFontMetrics(font).height() > height)
        font.setPixelSize(--pixelSize);
    return font;
}
