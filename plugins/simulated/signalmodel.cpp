#include "simulated/signalmodel.h"

#include <cmath>

namespace
{
/// One round of the splitmix64 generator: spreads every bit over the whole number.
quint64 mix(quint64 x)
{
    x += 0x9e3779b97f4a7c15ULL;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ULL;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebULL;
    return x ^ (x >> 31);
}

/// Evenly spread in -1 to 1.
double unit(quint64 x)
{
    return static_cast<double>(mix(x) >> 11) / static_cast<double>(1ULL << 52) - 1.0;
}

/// Random values at whole multiples of `period`, joined by smooth steps.
double smoothNoise(quint64 stream, double period, double seconds)
{
    // A start of its own for each stream: otherwise all networks would turn at the same moment.
    const double place = seconds / period + 0.5 * (unit(stream) + 1.0);
    const double whole = std::floor(place);
    const double part = place - whole;
    const quint64 index = static_cast<quint64>(whole);
    const double before = unit(stream ^ mix(index));
    const double after = unit(stream ^ mix(index + 1));
    return before + (after - before) * part * part * (3.0 - 2.0 * part);
}

struct RateStep {
    int dbm;
    double share;
};
const RateStep rateSteps[] = {{-51, 1.0}, {-54, 0.9}, {-58, 0.75}, {-59, 0.675}, {-60, 0.6},
    {-64, 0.45}, {-68, 0.3}, {-71, 0.225}, {-73, 0.15}};
const double lowestShare = 0.075;
} // namespace

namespace SignalModel
{

quint64 TextKey(const QString &text)
{
    quint64 key = 0xcbf29ce484222325ULL;
    for (const QChar &c : text)
        key = (key ^ c.unicode()) * 0x100000001b3ULL;
    return key;
}

double Wander(quint64 seed, quint64 key, double seconds)
{
    // Somebody walking through the room, and people and doors nearby.
    const quint64 stream = mix(mix(seed) ^ key);
    return 0.7 * smoothNoise(stream, 45.0, seconds) +
           0.3 * smoothNoise(stream ^ 0x5555555555555555ULL, 11.0, seconds);
}

double WalkSignal(const QVector<WalkPoint> &walk, double seconds)
{
    const double at = std::fmod(seconds, walk.last().seconds);
    int next = 1;
    while (next < walk.size() - 1 && walk.at(next).seconds <= at)
        ++next;
    const WalkPoint &from = walk.at(next - 1);
    const WalkPoint &to = walk.at(next);
    return from.dbm + (to.dbm - from.dbm) * (at - from.seconds) / (to.seconds - from.seconds);
}

int Signal(const ScenarioNetwork &network, quint64 seed, quint64 key, double seconds)
{
    const double mean = network.walk.isEmpty() ? network.signal : WalkSignal(network.walk, seconds);
    return qBound(-100, qRound(mean + network.wander * Wander(seed, key, seconds)), 0);
}

int LinkRate(int top, int dbm)
{
    double share = lowestShare;
    for (const RateStep &step : rateSteps) {
        if (dbm >= step.dbm) {
            share = step.share;
            break;
        }
    }
    return qMax(1, qRound(top * share));
}

} // namespace SignalModel
