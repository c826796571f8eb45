// The interfaces change from call to call: AIRLUME_TEST_INTERFACES holds one list a call, divided
// by |, each with names divided by commas, and starts over at its end. ~ is a name without letters.
// All are usable, and the query succeeds while the last list was not empty.
#include "testbackend.h"

namespace
{
int calls = 0;
QStringList current;
} // namespace

namespace Kind
{

void prepare() {}

bool list(QStringList &nics)
{
    const QStringList lists =
        Air::setting("AIRLUME_TEST_INTERFACES", QStringLiteral("test0|test1,test0||test2"))
            .split(QLatin1Char('|'));
    current = lists.at(calls++ % lists.size()).split(QLatin1Char(','), Qt::SkipEmptyParts);
    current.replaceInStrings(QStringLiteral("~"), QString());
    nics += current;
    return true;
}

bool isUsable(const QString &)
{
    return true;
}

bool query(QString &, QList<ScanMap> &networks)
{
    if (current.isEmpty())
        return false;
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
