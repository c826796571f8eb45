#ifndef AIRLUME_SIMULATED_SCENARIOFILE_H
#define AIRLUME_SIMULATED_SCENARIOFILE_H

#include "simulated/scenario.h"

#include <QString>

/// What became of reading a scenario file.
struct ScenarioFileResult {
    Scenario scenario;
    /// One line naming the file, the field and what is wrong; empty: nothing is.
    QString problem;
};

/// Reads the scenario file at `path`, which may also be a Qt resource. Never reads more than a
/// scenario may have, so a path such as that of an endless device does no harm.
ScenarioFileResult ReadScenarioFile(const QString &path);

#endif
