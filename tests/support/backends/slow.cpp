// Takes 120 ms for every call.
#include "testbackend.h"

#include <QThread>

namespace Kind
{

void prepare() {}

bool list(QStringList &nics)
{
    QThread::msleep(120);
    nics.append(QStringLiteral("test0"));
    return true;
}

bool isUsable(const QString &)
{
    QThread::msleep(120);
    return true;
}

bool query(QString &, QList<ScanMap> &networks)
{
    QThread::msleep(120);
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
