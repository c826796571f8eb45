#include "simulated/simulatedair.h"

#include "simulated/signalmodel.h"

#include <QSet>

#include <cmath>
#include <numeric>

namespace
{
ScanMap fixedPart(const ScenarioNetwork &network)
{
    return {{ScanKey::Ssid, network.ssid}, {ScanKey::Bssid, network.bssid},
        {ScanKey::Channel, QString::number(network.channel)},
        {ScanKey::Connected, QStringLiteral("0")}, {ScanKey::Security, network.security},
        {ScanKey::Signal, QString()}};
}

QVector<int> inOrder(int count)
{
    QVector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

/// Puts `first` before the others, which keep their order.
void putFirst(const QVector<int> &first, QVector<int> &order)
{
    if (first.isEmpty())
        return;
    const QSet<int> moved(first.cbegin(), first.cend());
    QVector<int> changed = first;
    for (const int index : qAsConst(order)) {
        if (!moved.contains(index))
            changed.append(index);
    }
    order = changed;
}
} // namespace

SimulatedAir::SimulatedAir(const Scenario &scenario)
    : m_scenario(scenario)
{
    m_keys.reserve(scenario.networks.size());
    for (const ScenarioNetwork &network : scenario.networks)
        m_keys.append(SignalModel::TextKey(network.bssid));
    reset();
    advanceTo(0.0);
}

void SimulatedAir::reset()
{
    m_nextEvent = 0;
    m_networks = m_scenario.networks;
    m_fixed.clear();
    m_fixed.reserve(m_networks.size());
    for (const ScenarioNetwork &network : qAsConst(m_networks))
        m_fixed.append(fixedPart(network));
    m_states.clear();
    for (const ScenarioInterface &interface : qAsConst(m_scenario.interfaces))
        m_states.append({!interface.attached, true});
    m_networkOrder = inOrder(m_networks.size());
    m_interfaceOrder = inOrder(m_states.size());
    m_joined = m_scenario.joined;
    m_failingInterfaces = m_failingUsable = m_failingNetworks = false;
}

void SimulatedAir::advanceTo(double seconds)
{
    m_seconds = qMax(m_seconds, seconds);
    const double round = m_scenario.repeat > 0.0 ? std::floor(m_seconds / m_scenario.repeat) : 0.0;
    if (round > m_round) {
        m_round = round;
        reset();
    }
    m_scriptSeconds = qMax(0.0, m_seconds - round * m_scenario.repeat);
    while (m_nextEvent < m_scenario.events.size() &&
           m_scenario.events.at(m_nextEvent).at <= m_scriptSeconds) {
        apply(m_scenario.events.at(m_nextEvent));
        ++m_nextEvent;
    }
}

void SimulatedAir::apply(const ScenarioEvent &event)
{
    using Action = ScenarioEvent::Action;
    using Query = ScenarioEvent::Query;
    if (event.action == Action::Join) {
        m_joined = event.network;
    } else if (event.action == Action::Leave) {
        m_joined = -1;
    } else if (event.action == Action::Hear) {
        hear(event.network, event.hearing);
    } else if (event.action == Action::Lose) {
        ScenarioNetwork &network = m_networks[event.network];
        network.from = network.until = std::numeric_limits<double>::infinity();
    } else if (event.action == Action::Order) {
        putFirst(event.networkOrder, m_networkOrder);
        putFirst(event.interfaceOrder, m_interfaceOrder);
    } else if (event.action == Action::Fail || event.action == Action::Recover) {
        const bool failing = event.action == Action::Fail;
        if (event.query == Query::All || event.query == Query::Interfaces)
            m_failingInterfaces = failing;
        if (event.query == Query::All || event.query == Query::Usable)
            m_failingUsable = failing;
        if (event.query == Query::All || event.query == Query::Networks)
            m_failingNetworks = failing;
    } else {
        for (int i = 0; i < m_states.size(); ++i) {
            if (event.interface >= 0 && event.interface != i)
                continue;
            if (event.action == Action::RadioOff || event.action == Action::RadioOn)
                m_states[i].radioOn = event.action == Action::RadioOn;
            else
                m_states[i].plugged = event.action != Action::Unplug;
        }
    }
}

bool SimulatedAir::interfaces(QStringList &names) const
{
    for (const int i : m_interfaceOrder) {
        if (m_states.at(i).plugged)
            names.append(m_scenario.interfaces.at(i).name);
    }
    return !m_failingInterfaces;
}

int SimulatedAir::indexOf(const QString &name) const
{
    for (int i = 0; i < m_states.size(); ++i) {
        if (m_states.at(i).plugged && m_scenario.interfaces.at(i).name == name)
            return i;
    }
    return -1;
}

bool SimulatedAir::canScan(int index) const
{
    const InterfaceState &state = m_states.at(index);
    return state.plugged && state.radioOn && m_scenario.interfaces.at(index).usable;
}

bool SimulatedAir::isUsable(const QString &name) const
{
    const int index = indexOf(name);
    return index >= 0 && canScan(index) && !m_failingUsable;
}

bool SimulatedAir::address(const QString &name, QString &address) const
{
    const int index = indexOf(name);
    if (index < 0)
        return false;
    address = m_scenario.interfaces.at(index).address;
    return true;
}

bool SimulatedAir::setRadio(const QString &name, bool on)
{
    const int index = indexOf(name);
    if (index < 0)
        return false;
    m_states[index].radioOn = on;
    return true;
}

bool SimulatedAir::hears(const QString &name) const
{
    if (m_failingNetworks)
        return false;
    if (!name.isEmpty()) {
        const int index = indexOf(name);
        return index >= 0 && canScan(index);
    }
    for (int i = 0; i < m_states.size(); ++i) {
        if (canScan(i))
            return true;
    }
    return false;
}

bool SimulatedAir::networks(const QString &name, QList<ScanMap> &maps) const
{
    if (!hears(name))
        return false;
    maps.reserve(maps.size() + m_fixed.size());
    for (const int i : m_networkOrder) {
        if (m_networks.at(i).isOnAir(m_scriptSeconds))
            maps.append(mapOf(i));
    }
    return true;
}

bool SimulatedAir::joinedNetwork(const QString &name, ScanMap &map) const
{
    if (!hears(name) || m_joined < 0 || !m_networks.at(m_joined).isOnAir(m_scriptSeconds))
        return false;
    map = mapOf(m_joined);
    return true;
}

void SimulatedAir::hear(int index, const ScenarioHearing &hearing)
{
    ScenarioNetwork &network = m_networks[index];
    network.from = 0.0;
    network.until = std::numeric_limits<double>::infinity();
    if (hearing.signal) {
        network.walk.clear();
        network.wander = 0.0;
        network.signal = *hearing.signal;
    }
    network.ssid = hearing.ssid.value_or(network.ssid);
    network.channel = hearing.channel.value_or(network.channel);
    network.security = hearing.security.value_or(network.security);
    if (hearing.hasRaw) {
        network.raw = hearing.raw;
        network.missing = hearing.missing;
    }
    m_fixed[index] = fixedPart(network);
}

ScanMap SimulatedAir::mapOf(int index) const
{
    const ScenarioNetwork &network = m_networks.at(index);
    ScanMap map = m_fixed.at(index);
    const int signal = SignalModel::Signal(network, m_scenario.seed, m_keys.at(index), m_seconds);
    map[ScanKey::Signal] = QString::number(signal);
    if (index == m_joined) {
        map[ScanKey::Connected] = ScanJoined;
        if (network.linkRate > 0) {
            map.insert(ScanKey::LinkRate,
                QString::number(SignalModel::LinkRate(network.linkRate, signal)));
        }
    }
    for (auto it = network.raw.begin(); it != network.raw.end(); ++it)
        map.insert(it.key(), it.value());
    for (const QString &key : network.missing)
        map.remove(key);
    return map;
}
