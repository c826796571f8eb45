#include "interruption.h"

#include <unistd.h>

namespace PluginCheck
{

namespace Interruption
{

namespace
{

volatile std::sig_atomic_t guarded = 0;
const volatile std::sig_atomic_t *status = nullptr;

void endBoth(int)
{
    ::kill(-static_cast<pid_t>(guarded), SIGKILL);
    ::_exit(*status);
}

} // namespace

void guard(qint64 group, const volatile std::sig_atomic_t &statusToEndWith)
{
    guarded = static_cast<std::sig_atomic_t>(group);
    status = &statusToEndWith;
    struct sigaction action = {};
    action.sa_handler = endBoth;
    for (const int signal : {SIGINT, SIGTERM})
        sigaction(signal, &action, nullptr);
}

Held::Held()
{
    sigset_t both;
    sigemptyset(&both);
    sigaddset(&both, SIGINT);
    sigaddset(&both, SIGTERM);
    sigprocmask(SIG_BLOCK, &both, &m_before);
}

Held::~Held()
{
    sigprocmask(SIG_SETMASK, &m_before, nullptr);
}

} // namespace Interruption

} // namespace PluginCheck
