#include "graphs/curvecolors.h"

#include <cstdlib>

const QStringList curveColorList = {
    QStringLiteral("SteelBlue"),
    QStringLiteral("darkCyan"),
    QStringLiteral("Fuchsia"),
    QStringLiteral("PaleGreen"),
    QStringLiteral("HotPink"),
    QStringLiteral("Peru"),
    QStringLiteral("Maroon"),
    QStringLiteral("Peachpuff"),
    QStringLiteral("Coral"),
    QStringLiteral("GoldEnrod"),
    QStringLiteral("OliveDrab"),
    QStringLiteral("LightSalmon"),
    QStringLiteral("Orchid"),
};

QColor curveColor(int n)
{
    QColor color;
    color.setNamedColor(curveColorList.at(n % curveColorList.size()));
    return color;
}

QColor randomCurveColor()
{
    // The first and the last two colours are left out on purpose.
    return curveColor(1 + std::rand() % 10);
}
