#include "simulated/scenarioparser.h"
#include "simulated/simulatedair.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Feeds any bytes to the scenario reader, and plays what it accepts.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const ScenarioResult result = ParseScenario(json);
    // Thousands of generated networks are sound, but slow to play.
    if (result.error.isSet() || result.scenario.networks.size() > 50)
        return 0;
    SimulatedAir air(result.scenario);
    for (const double seconds : {0.0, 1.0, 15.5, 61.0, 1e9}) {
        air.advanceTo(seconds);
        QStringList names;
        air.interfaces(names);
        QList<ScanMap> maps;
        if (!air.networks(QString(), maps) && !maps.isEmpty())
            std::abort();
        ScanMap joined;
        if (air.joinedNetwork(names.value(0), joined) && !maps.contains(joined))
            std::abort();
    }
    return 0;
}
