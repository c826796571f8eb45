// Answers only when it is told the interface's name.
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

bool query(QString &nic, QList<ScanMap> &networks)
{
    if (nic.isEmpty())
        return false;
    networks += Air::networks(3);
    return true;
}

} // namespace Kind
