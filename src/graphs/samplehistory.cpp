#include "graphs/samplehistory.h"

#include <algorithm>

void addSample(SampleHistory &samples, int &count, double dBm)
{
    // Written before the move on purpose: the newest value then fills the first two places.
    samples[0] = dBm;
    std::copy_backward(samples.begin(), samples.begin() + count, samples.begin() + count + 1);
    if (count < HISTORY - 1)
        ++count;
}
