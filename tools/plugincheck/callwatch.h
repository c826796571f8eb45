#ifndef AIRLUME_PLUGINCHECK_CALLWATCH_H
#define AIRLUME_PLUGINCHECK_CALLWATCH_H

#include <QString>

namespace PluginCheck
{

/// What of the back end is being run at the moment. At most one thread runs something of it, any
/// other may ask. Also readable in a signal handler.
namespace CallWatch
{

enum Operation { None, Loading, GetWiFiNicList, IsWiFiNicUsable, GetVisiableNetworkMapList };
constexpr int OperationCount = GetVisiableNetworkMapList + 1;

/// Marks an operation as running for as long as it lives.
class Running
{
public:
    explicit Running(Operation operation);
    ~Running();
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;
};

Operation current() noexcept;

/// For how long the current operation has been running, in ms; 0 when none is.
qint64 elapsed();

/// "getWiFiNicList()" and the like; "loading" for Loading.
QString nameOf(Operation operation);

} // namespace CallWatch

} // namespace PluginCheck

#endif
