#ifndef AIRLUME_SIMULATED_SCENARIO_H
#define AIRLUME_SIMULATED_SCENARIO_H

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <limits>
#include <optional>

/// A place on a walk: the mean signal is `dbm` at `seconds`, and changes evenly to the next place.
struct WalkPoint {
    double seconds = 0.0;
    double dbm = 0.0;
};

/// One Wi-Fi interface of the simulated machine.
struct ScenarioInterface {
    QString name;
    QString address;
    bool usable = true;
    /// The machine does not have it until it is attached.
    bool attached = false;
};

/// One simulated access point.
struct ScenarioNetwork {
    QString ssid;
    QString bssid;
    int channel = 1;
    QString security;
    /// Mean signal in dBm, -100 to 0. A walk takes its place.
    double signal = -60.0;
    /// Largest distance from the mean in dB.
    double wander = 2.0;
    QVector<WalkPoint> walk;
    /// Link rate in Mbps at a strong signal; 0: none is reported.
    int linkRate = 0;
    /// On the air while from <= time < until, in seconds.
    double from = 0.0;
    double until = std::numeric_limits<double>::infinity();
    /// Texts that replace values of the scan map as they stand.
    QMap<QString, QString> raw;
    /// Keys left out of the scan map.
    QStringList missing;

    bool isOnAir(double seconds) const { return seconds >= from && seconds < until; }
};

/// From some moment on, a network is heard exactly so. What is not set stays as it was.
struct ScenarioHearing {
    std::optional<QString> ssid;
    std::optional<QString> security;
    std::optional<int> channel;
    std::optional<double> signal;
    /// In place of the network's "raw": texts for the scan map, and keys to leave out.
    bool hasRaw = false;
    QMap<QString, QString> raw;
    QStringList missing;
};

/// Something that happens to the machine at a set time.
struct ScenarioEvent {
    enum class Action {
        RadioOff,
        RadioOn,
        Unplug,
        Plug,
        Attach,
        Join,
        Leave,
        Hear,
        Lose,
        Order,
        Fail,
        Recover
    };
    enum class Query { All, Interfaces, Usable, Networks };

    double at = 0.0;
    Action action = Action::RadioOff;
    /// Index of the interface concerned; -1: all of them.
    int interface = -1;
    /// Index of the network to join, or that is heard or lost.
    int network = -1;
    /// How it is heard.
    ScenarioHearing hearing;
    /// Indexes of the networks, or of the interfaces, that come first from now on.
    QVector<int> networkOrder;
    QVector<int> interfaceOrder;
    /// The query that starts or stops failing.
    Query query = Query::All;
};

/// Everything a simulated neighbourhood consists of. A plain value.
struct Scenario {
    quint64 seed = 1;
    /// Simulated seconds per real second.
    double timeScale = 1.0;
    /// Seconds after which the script (events, from, until) starts over; 0: never.
    double repeat = 0.0;
    QVector<ScenarioInterface> interfaces;
    QVector<ScenarioNetwork> networks;
    /// Index of the network joined at the start; -1: none.
    int joined = -1;
    /// In the order of their times.
    QVector<ScenarioEvent> events;
};

#endif
