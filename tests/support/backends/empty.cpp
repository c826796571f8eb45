// Everything succeeds and there is nothing: no interface, no network.
#include "testbackend.h"

namespace Kind
{

void prepare() {}

bool list(QStringList &nics)
{
    Q_UNUSED(nics)
    return true;
}

bool isUsable(const QString &)
{
    return false;
}

bool query(QString &, QList<ScanMap> &)
{
    return true;
}

} // namespace Kind
