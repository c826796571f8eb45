// Takes AIRLUME_TEST_SLOW_MS (120) for every call.
#include "testbackend.h"

#include <QThread>

namespace
{
void dawdle()
{
    QThread::msleep(Air::setting("AIRLUME_TEST_SLOW_MS", QStringLiteral("120")).toULong());
}

class Slow : public Kind
{
    bool list(QStringList &nics) override
    {
        dawdle();
        return Kind::list(nics);
    }

    bool isUsable(const QString &nic) override
    {
        dawdle();
        return Kind::isUsable(nic);
    }

    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        dawdle();
        return Kind::query(nic, networks);
    }
};
} // namespace

AIRLUME_TEST_KIND(Slow)
