#ifndef AIRLUME_PLUGINCHECK_PROBETHREAD_H
#define AIRLUME_PLUGINCHECK_PROBETHREAD_H

#include "prober.h"

#include <QSemaphore>
#include <QThread>

namespace PluginCheck
{

/// The only thread that calls the back end, as in Airlume, and so that a call that never returns
/// does not hold up the report on it.
class ProbeThread : public QThread
{
    Q_OBJECT

public:
    explicit ProbeThread(WiFiApiInterface &api, QObject *parent = nullptr);
    /// Waits for a round that is still running.
    ~ProbeThread() override;

    /// Asks for one more round. Any thread.
    void askOnce() { m_wanted.release(); }

signals:
    void answered(const PluginCheck::Answers &answers);

protected:
    void run() override;

private:
    Prober m_prober;
    QSemaphore m_wanted;
};

} // namespace PluginCheck

#endif
