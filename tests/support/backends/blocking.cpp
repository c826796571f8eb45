// Hangs in the query for AIRLUME_TEST_BLOCK_SECONDS (30), after AIRLUME_TEST_BLOCK_AFTER (0)
// queries that answer at once. Writes "Blocking now" to the standard error output when it begins,
// and "Blocking over" when it ends.
#include "testbackend.h"

#include <QThread>

#include <cstdio>

namespace
{
class Blocking : public Kind
{
    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        const QString seconds = Air::setting("AIRLUME_TEST_BLOCK_SECONDS", QStringLiteral("30"));
        const QString after = Air::setting("AIRLUME_TEST_BLOCK_AFTER", QStringLiteral("0"));
        if (m_queries++ >= after.toInt()) {
            std::fputs("Blocking now\n", stderr);
            QThread::usleep(static_cast<unsigned long>(seconds.toDouble() * 1e6));
            std::fputs("Blocking over\n", stderr);
        }
        return Kind::query(nic, networks);
    }

    int m_queries = 0;
};
} // namespace

AIRLUME_TEST_KIND(Blocking)
