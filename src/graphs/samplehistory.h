#ifndef AIRLUME_GRAPHS_SAMPLEHISTORY_H
#define AIRLUME_GRAPHS_SAMPLEHISTORY_H

#include <array>

/// Samples kept per network, and x positions of the time graph.
constexpr int HISTORY = 240;

/// Signals in dBm, the newest first.
using SampleHistory = std::array<double, HISTORY>;

/// Stores `dBm` as the newest sample of a history of which the first `count` entries are valid
/// (0 to HISTORY - 1), and counts it.
void addSample(SampleHistory &samples, int &count, double dBm);

#endif
