// The query fails and succeeds by turns: AIRLUME_TEST_RESULTS holds one digit a query, 0 for
// failure and 1 for success, and starts over at its end (01).
#include "testbackend.h"

namespace
{
int queries = 0;
} // namespace

namespace Kind
{

void prepare() {}

bool list(QStringList &nics)
{
    nics.append(QStringLiteral("test0"));
    return true;
}

bool isUsable(const QString &)
{
    return true;
}

bool query(QString &, QList<ScanMap> &networks)
{
    const QString results = Air::setting("AIRLUME_TEST_RESULTS", QStringLiteral("01"));
    if (results.at(queries++ % results.size()) != QLatin1Char('1'))
        return false;
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
