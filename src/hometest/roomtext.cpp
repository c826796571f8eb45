#include "hometest/roomtext.h"

#include "hometest/hometestvalue.h"
#include "i18n/languagelabels.h"

namespace RoomText
{
namespace
{
const QLatin1Char LineFeed('\n');

// Only the percent decides whether there is a result.
QString resultLine(const QString &caption, int percent, int speed)
{
    if (percent == -1)
        return LanguageLabels::m_strHomeTestNull;
    return caption + QString::number(percent) + QLatin1Char('%') +
           LanguageLabels::m_strHomeTestSignalAnd + QString::number(speed) +
           LanguageLabels::m_strHomeTestUnit;
}
} // namespace

int PercentOf(int dBm)
{
    return dBm == 0 ? 0 : dBm + 100;
}

QString CellText(const QString &room, const HomeTest_Value &value)
{
    return room + LineFeed +
           resultLine(LanguageLabels::m_strHomeTestNow, value.nowPercent, value.nowSpeed) +
           LineFeed +
           resultLine(LanguageLabels::m_strHomeTestLast, value.lastPercent, value.lastSpeed);
}

QString RoomOf(const QString &cellText)
{
    return cellText.left(cellText.indexOf(LineFeed));
}

} // namespace RoomText
