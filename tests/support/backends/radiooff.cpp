// An interface whose radio is off.
#include "testbackend.h"

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
    return false;
}

bool query(QString &, QList<ScanMap> &)
{
    return false;
}

} // namespace Kind
