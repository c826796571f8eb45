// An interface that works and hears nothing.
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
    return true;
}

bool query(QString &, QList<ScanMap> &)
{
    return true;
}

} // namespace Kind
