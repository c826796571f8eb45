#include "probethread.h"

namespace PluginCheck
{

ProbeThread::ProbeThread(WiFiApiInterface &api, QObject *parent)
    : QThread(parent)
    , m_prober(api)
{
    qRegisterMetaType<Answers>();
}

ProbeThread::~ProbeThread()
{
    requestInterruption();
    m_wanted.release();
    wait();
}

void ProbeThread::run()
{
    for (;;) {
        m_wanted.acquire();
        if (isInterruptionRequested())
            return;
        emit answered(m_prober.ask());
    }
}

} // namespace PluginCheck
