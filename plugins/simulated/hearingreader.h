#ifndef AIRLUME_SIMULATED_HEARINGREADER_H
#define AIRLUME_SIMULATED_HEARINGREADER_H

#include "simulated/jsonfields.h"
#include "simulated/scenario.h"

/// Reads how a network is heard, the members of a "hear" event.
ScenarioHearing ReadHearing(const JsonFields &fields, ScenarioError *error);

/// Reads the member "raw": texts that go into the scan map as they stand, and keys left out.
void ReadRawTexts(const JsonFields &fields, QMap<QString, QString> *texts, QStringList *missing,
    ScenarioError *error);

#endif
