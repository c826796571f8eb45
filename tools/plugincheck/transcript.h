#ifndef AIRLUME_PLUGINCHECK_TRANSCRIPT_H
#define AIRLUME_PLUGINCHECK_TRANSCRIPT_H

#include "answers.h"

#include <QHash>
#include <QJsonObject>
#include <QSet>

namespace PluginCheck
{

/// Writes down what a back end answers as the events of a scenario, which the simulated back end
/// replays: the same lists, in the same order, at the same seconds. What no scenario can say is
/// left out: interfaces without a name or of the same name.
class Transcript
{
public:
    /// The events that lead from the answers before to these, given `seconds` after the first.
    QVector<QJsonObject> add(const Answers &answers, double seconds);

private:
    struct Network {
        QString bssid;      ///< As the file names it.
        QJsonObject fields; ///< As last told.
        bool isOnAir = false;
    };

    void addInterfaces(const Answers &answers);
    void addFailures(const Answers &answers);
    void addNetworks(const QList<ScanMap> &maps);
    int indexOf(const QString &bssid, int occurrence);
    void addOrder(const QVector<int> &heard);
    void tell(const char *what, QJsonObject event = {});
    void tellState(bool &state, bool wanted, const char *query);

    double m_seconds = 0;
    QVector<QJsonObject> m_events; ///< Of this moment.

    QStringList m_interfaces; ///< In the order that the replay gives them.
    QSet<QString> m_plugged;
    QSet<QString> m_off;
    bool m_failingInterfaces = false;
    bool m_failingUsable = false;
    bool m_failingNetworks = false;

    QVector<Network> m_networks; ///< In the order in which they were first heard.
    QHash<QPair<QString, int>, int> m_indexes;
    QSet<QString> m_addresses; ///< Those that the file names, in lower case.
    QVector<int> m_order;      ///< In which the replay gives those that are heard.
    int m_joined = -1;
};

} // namespace PluginCheck

#endif
