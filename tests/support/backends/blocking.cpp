// Hangs in the query for AIRLUME_TEST_BLOCK_SECONDS (30).
#include "testbackend.h"

#include <QThread>

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
    const double seconds =
        Air::setting("AIRLUME_TEST_BLOCK_SECONDS", QStringLiteral("30")).toDouble();
    QThread::usleep(static_cast<unsigned long>(seconds * 1e6));
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
