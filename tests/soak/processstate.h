#ifndef AIRLUME_TESTS_SOAK_PROCESSSTATE_H
#define AIRLUME_TESTS_SOAK_PROCESSSTATE_H

#include <QtGlobal>

/// What a process holds at one moment, from /proc (proc(5)).
struct ProcessState {
    /// Memory of its own (RssAnon) and all that is resident (VmRSS), in MB.
    double ownMb = 0.0;
    double residentMb = 0.0;
    int handles = 0;
    int threads = 0;
    /// Processor time used so far, in seconds.
    double cpuSeconds = 0.0;
};

/// Zeros when the process is gone.
ProcessState processState(qint64 processId);

#endif
