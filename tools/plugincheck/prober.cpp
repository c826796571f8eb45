#include "prober.h"

#include "callwatch.h"
#include "contract.h"

#include <QElapsedTimer>

namespace PluginCheck
{

namespace
{

constexpr int MostRepeats = 2;
/// A call that takes this long, in ms, waits for something: no busy computer explains it.
constexpr double HopelesslySlow = 1000;

template <typename Call> double timed(CallWatch::Operation operation, Call call)
{
    const CallWatch::Running running(operation);
    QElapsedTimer timer;
    timer.start();
    call();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Time of `call`; when that is too long, the shortest of `call` and a few runs of `repeat`.
template <typename Call, typename Repeat>
double fairlyTimed(CallWatch::Operation operation, Call call, Repeat repeat)
{
    double shortest = timed(operation, call);
    for (int i = 0; i < MostRepeats && shortest > LongestAnswer && shortest < HopelesslySlow; ++i)
        shortest = qMin(shortest, timed(operation, repeat));
    return shortest;
}

} // namespace

Prober::Prober(WiFiApiInterface &api)
    : m_api(api)
{
}

Answers Prober::ask()
{
    Answers answers;
    askForInterfaces(answers);
    askForNetworks(answers);
    m_isFirstRound = false;
    return answers;
}

void Prober::askForInterfaces(Answers &answers)
{
    answers.listTime = fairlyTimed(
        CallWatch::GetWiFiNicList,
        [&] { answers.listed = m_api.getWiFiNicList(answers.interfaces); },
        [&] {
            QStringList ignored;
            m_api.getWiFiNicList(ignored);
        });
    for (const QString &name : qAsConst(answers.interfaces)) {
        bool usable = false;
        const double took = fairlyTimed(
            CallWatch::IsWiFiNicUsable, [&] { usable = m_api.isWiFiNicUsable(name, 0); },
            [&] { m_api.isWiFiNicUsable(name, 0); });
        answers.usable.append(usable);
        answers.usableTime = qMax(answers.usableTime, took);
    }
}

void Prober::askForNetworks(Answers &answers)
{
    const int chosen = chosenInterface(answers.listed, answers.usable);
    if (chosen < 0)
        return;
    answers.queryTime = fairlyTimed(
        CallWatch::GetVisiableNetworkMapList,
        [&] { answers.queried = m_api.getVisiableNetworkMapList(m_nic, answers.networks); },
        [&] {
            QList<ScanMap> ignored;
            m_api.getVisiableNetworkMapList(m_nic, ignored);
        });
    if (m_isFirstRound)
        askForNetworksAgain(answers, answers.interfaces.at(chosen));
}

void Prober::askForNetworksAgain(Answers &answers, const QString &chosen)
{
    QList<ScanMap> networks;
    if (answers.queried == true) {
        if (query(m_nic, networks))
            answers.networksAgain = networks;
        return;
    }
    // Asked with an empty name twice more, so that a radio that comes back just now, or an
    // adapter that fails now and then, is not taken for a back end that wants a name.
    QString name = chosen;
    QString empty;
    answers.needsName = query(name, networks) && !query(empty, networks) && !query(empty, networks);
}

bool Prober::query(QString &nic, QList<ScanMap> &networks)
{
    const CallWatch::Running running(CallWatch::GetVisiableNetworkMapList);
    networks.clear();
    return m_api.getVisiableNetworkMapList(nic, networks);
}

} // namespace PluginCheck
