#ifndef AIRLUME_PLUGINCHECK_PROBER_H
#define AIRLUME_PLUGINCHECK_PROBER_H

#include "answers.h"

namespace PluginCheck
{

/// Calls a back end the way Airlume's discovery does and notes what it answers. Always from the
/// same thread, one without an event loop: that is what a back end meets in Airlume.
class Prober
{
public:
    explicit Prober(WiFiApiInterface &api);

    /// One round. The first one asks more than Airlume would: a second query, or one with the
    /// interface's name after a failure. A call slower than LongestAnswer is repeated, and the
    /// fastest counts, so that a busy computer is not taken for a slow back end.
    Answers ask();

private:
    void askForInterfaces(Answers &answers);
    void askForNetworks(Answers &answers);
    void askForNetworksAgain(Answers &answers, const QString &chosen);
    bool query(QString &nic, QList<ScanMap> &networks);

    WiFiApiInterface &m_api;
    QString m_nic; ///< Handed to every query and never touched, as in Airlume.
    bool m_isFirstRound = true;
};

} // namespace PluginCheck

#endif
