#ifndef AIRLUME_PLUGINCHECK_PROBER_H
#define AIRLUME_PLUGINCHECK_PROBER_H

#include "wire.h"

#include <QElapsedTimer>

#include <functional>

namespace PluginCheck
{

/// Calls a back end the way Airlume's discovery does and notes what it answers. Always from the
/// same thread, one without an event loop: that is what a back end meets in Airlume.
class Prober
{
public:
    /// Tells `announce` of each call before it begins, and of Call::None when it has ended.
    Prober(WiFiApiInterface &api, std::function<void(Call)> announce);

    /// One round. The first one asks more than Airlume would: everything twice, the networks by
    /// each interface's name where there are several, or by its name after a failure. A call
    /// slower than LongestAnswer is repeated, and the fastest counts, so that a busy computer is
    /// not taken for a slow back end.
    Answers ask();

private:
    template <typename Action> double timed(Call call, Action action);
    template <typename Action, typename Repeat>
    double fairlyTimed(Call call, Action action, Repeat repeat);
    void askForInterfaces(Answers &answers);
    void askForNetworks(Answers &answers);
    void askAgain(Answers &answers);
    void askByName(Answers &answers);
    bool query(QString &nic, QList<ScanMap> &networks);

    WiFiApiInterface &m_api;
    const std::function<void(Call)> m_announce;
    QElapsedTimer m_sinceFirstCall;
    QString m_nic; ///< Handed to every query and never touched, as in Airlume.
    bool m_isFirstRound = true;
    QStringList m_interfaces; ///< Those of the first round, and which were alike.
    QVector<bool> m_alike;
};

} // namespace PluginCheck

#endif
