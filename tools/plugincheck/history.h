#ifndef AIRLUME_PLUGINCHECK_HISTORY_H
#define AIRLUME_PLUGINCHECK_HISTORY_H

#include "answers.h"
#include "deviations.h"

namespace PluginCheck
{

/// What only shows from one answer to the next.
class History
{
public:
    /// The deviations between the earlier rounds and this one.
    Deviations add(const Answers &answers);

private:
    void followInterfaces(const Answers &answers, Deviations &deviations);

    QStringList m_interfaces; ///< Of the round before; so are the networks.
    QList<ScanMap> m_networks;
    bool m_answering = false; ///< The last query succeeded.
    bool m_vanished = false;  ///< Since then no interface was left for a time.
};

/// The same interfaces, or the same networks, in another order than before. Newcomers and those
/// that went do not count, nor do the networks when another one is joined by name.
Deviations checkOrder(const QStringList &before, const QStringList &after);
Deviations checkOrder(const QList<ScanMap> &before, const QList<ScanMap> &after);

} // namespace PluginCheck

#endif
