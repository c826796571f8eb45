#ifndef AIRLUME_SIMULATED_SCENARIOPARSER_H
#define AIRLUME_SIMULATED_SCENARIOPARSER_H

#include "simulated/jsonfields.h"
#include "simulated/scenario.h"

#include <QByteArray>

/// A scenario or what is wrong with it.
struct ScenarioResult {
    Scenario scenario;
    ScenarioError error;
};

/// Limits of a scenario file.
namespace ScenarioLimits
{
constexpr int Bytes = 16 * 1024 * 1024;
constexpr int Networks = 10000;
constexpr int Interfaces = 100;
constexpr int Events = 250000;
constexpr int WalkPoints = 1000;
constexpr double Seconds = 1e9;
} // namespace ScenarioLimits

/// Reads a scenario from the text of its file (JSON, UTF-8). Pure; copes with any bytes. With an
/// error set, the scenario is unusable. The fields are described in docs/plugins.md and in
/// packaging/airlume-scenario.5.in.
ScenarioResult ParseScenario(const QByteArray &json);

#endif
