#include "prober.h"

#include "contract.h"

namespace PluginCheck
{

namespace
{

constexpr int MostRepeats = 2;

} // namespace

Prober::Prober(WiFiApiInterface &api, std::function<void(Call)> announce)
    : m_api(api)
    , m_announce(std::move(announce))
{
}

template <typename Action> double Prober::timed(Call call, Action action)
{
    m_announce(call);
    QElapsedTimer timer;
    timer.start();
    action();
    const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    m_announce(Call::None);
    return took;
}

/// Time of `action`; when that is too long, the shortest of it and a few runs of `repeat`.
template <typename Action, typename Repeat>
double Prober::fairlyTimed(Call call, Action action, Repeat repeat)
{
    double shortest = timed(call, action);
    for (int i = 0; i < MostRepeats && shortest > LongestAnswer && shortest < HopelesslySlow; ++i)
        shortest = qMin(shortest, timed(call, repeat));
    return shortest;
}

Answers Prober::ask()
{
    Answers answers;
    if (m_sinceFirstCall.isValid())
        answers.at = m_sinceFirstCall.elapsed();
    askForInterfaces(answers);
    askForNetworks(answers);
    if (m_isFirstRound)
        askAgain(answers);
    if (answers.interfaces == m_interfaces)
        answers.alike = m_alike;
    m_isFirstRound = false;
    return answers;
}

void Prober::askForInterfaces(Answers &answers)
{
    answers.listTime = fairlyTimed(
        Call::GetWiFiNicList, [&] { answers.listed = m_api.getWiFiNicList(answers.interfaces); },
        [&] {
            QStringList ignored;
            m_api.getWiFiNicList(ignored);
        });
    if (!m_sinceFirstCall.isValid())
        m_sinceFirstCall.start();
    for (const QString &name : qAsConst(answers.interfaces)) {
        bool usable = false;
        const double took = fairlyTimed(
            Call::IsWiFiNicUsable, [&] { usable = m_api.isWiFiNicUsable(name, 0); },
            [&] { m_api.isWiFiNicUsable(name, 0); });
        answers.usable.append(usable);
        answers.usableTime = qMax(answers.usableTime, took);
    }
}

void Prober::askForNetworks(Answers &answers)
{
    if (answers.interfaces.isEmpty())
        return;
    answers.queryTime = fairlyTimed(
        Call::GetVisiableNetworkMapList,
        [&] { answers.queried = m_api.getVisiableNetworkMapList(m_nic, answers.networks); },
        [&] {
            QList<ScanMap> ignored;
            m_api.getVisiableNetworkMapList(m_nic, ignored);
        });
}

void Prober::askAgain(Answers &answers)
{
    QList<ScanMap> networks;
    if (answers.queried == true) {
        if (query(m_nic, networks))
            answers.networksAgain = networks;
        if (answers.interfaces.size() > 1)
            askByName(answers);
    } else if (answers.queried == false) {
        // Asked with an empty name twice more, so that a radio that comes back just now, or an
        // adapter that fails now and then, is not taken for a back end that wants a name.
        QString name = answers.interfaces.at(chosenInterface(answers.listed, answers.usable));
        QString empty;
        answers.needsName =
            query(name, networks) && !query(empty, networks) && !query(empty, networks);
    }
    QStringList interfaces;
    timed(Call::GetWiFiNicList, [&] { m_api.getWiFiNicList(interfaces); });
    answers.interfacesAgain = interfaces;
}

void Prober::askByName(Answers &answers)
{
    const QSet<Identity> unnamed = identitiesOf(answers.networks);
    m_interfaces = answers.interfaces;
    for (QString name : qAsConst(answers.interfaces)) {
        QList<ScanMap> networks;
        m_alike.append(query(name, networks) && identitiesOf(networks) == unnamed);
    }
}

bool Prober::query(QString &nic, QList<ScanMap> &networks)
{
    bool done = false;
    networks.clear();
    timed(Call::GetVisiableNetworkMapList,
        [&] { done = m_api.getVisiableNetworkMapList(nic, networks); });
    return done;
}

} // namespace PluginCheck
