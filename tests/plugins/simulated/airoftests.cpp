#include "airoftests.h"

SimulatedAir airOf(const QByteArray &json)
{
    const ScenarioResult result = ParseScenario(json);
    if (result.error.isSet())
        qFatal("%s: %s", qPrintable(result.error.field), qPrintable(result.error.text));
    return SimulatedAir(result.scenario);
}

SimulatedAir airWithEvents(const QByteArray &events)
{
    return airOf(R"({"interfaces":[{"name":"a"},{"name":"b"}],"networks":[)" + home + ',' + other +
                 "],\"events\":[" + events + "]}");
}

QStringList interfacesOf(const SimulatedAir &air)
{
    QStringList names;
    air.interfaces(names);
    return names;
}

QList<ScanMap> networksOf(const SimulatedAir &air, const QString &interface)
{
    QList<ScanMap> maps;
    air.networks(interface, maps);
    return maps;
}

bool hears(const SimulatedAir &air, const QString &interface)
{
    QList<ScanMap> maps;
    return air.networks(interface, maps);
}

QStringList joinedOf(const SimulatedAir &air)
{
    QStringList found;
    const QList<ScanMap> maps = networksOf(air);
    for (const ScanMap &map : maps) {
        if (map.value(ScanKey::Connected) == ScanJoined)
            found.append(map.value(ScanKey::Bssid));
    }
    return found;
}
