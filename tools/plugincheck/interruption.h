#ifndef AIRLUME_PLUGINCHECK_INTERRUPTION_H
#define AIRLUME_PLUGINCHECK_INTERRUPTION_H

#include <QtGlobal>

#include <csignal>

namespace PluginCheck
{

/// SIGINT and SIGTERM end this process at once, and a process group with it.
namespace Interruption
{

/// From now on the signals kill `group` and end this process with `status`, which may change later.
void guard(qint64 group, const volatile std::sig_atomic_t &status);

/// Holds the signals off for as long as it lives.
class Held
{
public:
    Held();
    ~Held();
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;

private:
    sigset_t m_before;
};

} // namespace Interruption

} // namespace PluginCheck

#endif
