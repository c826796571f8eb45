#include "callwatch.h"

#include <atomic>
#include <chrono>

namespace PluginCheck
{

namespace CallWatch
{

namespace
{

std::atomic<int> running{None};
std::atomic<qint64> startedAt{0};

qint64 now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

Running::Running(Operation operation)
{
    startedAt = now();
    running = operation;
}

Running::~Running()
{
    running = None;
}

Operation current() noexcept
{
    return static_cast<Operation>(running.load());
}

qint64 elapsed()
{
    // In this order: a call that ends or begins meanwhile then looks younger, never older.
    const Operation operation = current();
    const qint64 started = startedAt;
    return operation == None ? 0 : now() - started;
}

QString nameOf(Operation operation)
{
    switch (operation) {
    case GetWiFiNicList:
        return QStringLiteral("getWiFiNicList()");
    case IsWiFiNicUsable:
        return QStringLiteral("isWiFiNicUsable()");
    case GetVisiableNetworkMapList:
        return QStringLiteral("getVisiableNetworkMapList()");
    case None:
    case Loading:
        break;
    }
    return QStringLiteral("loading");
}

} // namespace CallWatch

} // namespace PluginCheck
