#include "support/fakebackend.h"

bool FakeBackEnd::isWiFiNicUsable(const QString &nic, int flag)
{
    askedUsable.append(nic);
    flags.append(flag);
    return usable.contains(nic);
}

bool FakeBackEnd::getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks)
{
    ++queries;
    lastNicArgument = nic;
    lastListSize = networks.size();
    nic = written;
    networks.append(air);
    return queryResult;
}

bool FakeBackEnd::getWiFiNicList(QStringList &names)
{
    names.append(nics);
    return listResult;
}
