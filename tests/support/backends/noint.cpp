// No interface, and every call fails.
#include "testbackend.h"

namespace Kind
{

void prepare() {}

bool list(QStringList &nics)
{
    Q_UNUSED(nics)
    return false;
}

bool isUsable(const QString &)
{
    return false;
}

bool query(QString &, QList<ScanMap> &)
{
    return false;
}

} // namespace Kind
