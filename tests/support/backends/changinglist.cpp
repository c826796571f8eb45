// The interfaces change from call to call: AIRLUME_TEST_INTERFACES holds one list a call, divided
// by |, each with names divided by commas, and starts over at its end. ~ is a name without letters.
// All are usable, and the query succeeds while the last list was not empty.
#include "testbackend.h"

namespace
{
class ChangingList : public Kind
{
    bool list(QStringList &nics) override
    {
        const QStringList lists =
            Air::setting("AIRLUME_TEST_INTERFACES", QStringLiteral("test0|test1,test0||test2"))
                .split(QLatin1Char('|'));
        m_current = lists.at(m_calls++ % lists.size()).split(QLatin1Char(','), Qt::SkipEmptyParts);
        m_current.replaceInStrings(QStringLiteral("~"), QString());
        nics += m_current;
        return true;
    }

    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        return !m_current.isEmpty() && Kind::query(nic, networks);
    }

    int m_calls = 0;
    QStringList m_current;
};
} // namespace

AIRLUME_TEST_KIND(ChangingList)
