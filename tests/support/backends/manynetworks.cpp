// A sound back end with AIRLUME_TEST_NETWORKS networks.
#include "testbackend.h"

namespace
{
QList<ScanMap> air;
} // namespace

namespace Kind
{

void prepare()
{
    air = Air::networks(AIRLUME_TEST_NETWORKS);
}

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
    networks += air;
    return true;
}

} // namespace Kind
