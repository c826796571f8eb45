// The query fails and succeeds by turns: AIRLUME_TEST_RESULTS holds one digit a query, 0 for
// failure and 1 for success, and starts over at its end (01).
#include "testbackend.h"

namespace
{
class Alternating : public Kind
{
    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        const QString results = Air::setting("AIRLUME_TEST_RESULTS", QStringLiteral("01"));
        return results.at(m_queries++ % results.size()) == QLatin1Char('1') &&
               Kind::query(nic, networks);
    }

    int m_queries = 0;
};
} // namespace

AIRLUME_TEST_KIND(Alternating)
