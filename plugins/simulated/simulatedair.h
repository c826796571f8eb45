#ifndef AIRLUME_SIMULATED_SIMULATEDAIR_H
#define AIRLUME_SIMULATED_SIMULATEDAIR_H

#include "scan/wifiapiinterface.h"
#include "simulated/scenario.h"

#include <QVector>

/// A scenario in motion: what a machine hears at a given time. It has no clock; advanceTo() sets
/// the time, and the questions are answered for it. One thread at a time.
class SimulatedAir
{
public:
    explicit SimulatedAir(const Scenario &scenario);

    /// Sets the time in simulated seconds, 0 or later, and lets the events up to then happen. Time
    /// does not go back: an earlier one leaves everything as it is.
    void advanceTo(double seconds);

    /// The names of the interfaces that are plugged in. False while the query fails; the names are
    /// given all the same.
    bool interfaces(QStringList &names) const;
    /// True when the interface is plugged in, usable, and its radio is on.
    bool isUsable(const QString &name) const;
    bool address(const QString &name, QString &address) const;
    /// Switches a radio until the next event that does, or the script starts over. False when there
    /// is no such interface.
    bool setRadio(const QString &name, bool on);

    /// What the interface hears; the first usable one when `name` is empty. False when that cannot
    /// be used or the query fails.
    bool networks(const QString &name, QList<ScanMap> &maps) const;
    /// The network the interface is joined to. False when there is none on the air.
    bool joinedNetwork(const QString &name, ScanMap &map) const;

private:
    struct InterfaceState {
        bool plugged = true;
        bool radioOn = true;
    };

    void reset();
    void apply(const ScenarioEvent &event);
    int indexOf(const QString &name) const;
    bool canScan(int index) const;
    bool hears(const QString &name) const;
    void hear(int index, const ScenarioHearing &hearing);
    ScanMap mapOf(int index) const;

    Scenario m_scenario;
    /// The networks as they are now, what stays in their scan maps, and their wander keys.
    QVector<ScenarioNetwork> m_networks;
    QVector<ScanMap> m_fixed;
    QVector<quint64> m_keys;
    /// Indexes in the order in which they are given.
    QVector<int> m_networkOrder;
    QVector<int> m_interfaceOrder;

    double m_seconds = 0.0;
    /// Time within the script, and how often it has started over.
    double m_scriptSeconds = 0.0;
    double m_round = 0.0;
    int m_nextEvent = 0;
    QVector<InterfaceState> m_states;
    int m_joined = -1;
    bool m_failingInterfaces = false;
    bool m_failingUsable = false;
    bool m_failingNetworks = false;
};

#endif
