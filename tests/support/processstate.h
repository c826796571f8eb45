#ifndef AIRLUME_TESTS_SUPPORT_PROCESSSTATE_H
#define AIRLUME_TESTS_SUPPORT_PROCESSSTATE_H

#include <QtGlobal>

#include <optional>

/// What a process holds at one moment, from /proc (proc(5)) and its processor clock
/// (clock_getcpuclockid(3)).
struct ProcessState {
    /// Memory in MB (2²⁰ octets): its own (RssAnon), all that is resident, with what it shares with
    /// others (VmRSS), and the most that ever was (VmHWM).
    double ownMb = 0.0;
    double residentMb = 0.0;
    double peakMb = 0.0;
    int handles = 0;
    int threads = 0;
    /// Processor time that it and the kernel for it have used so far.
    double cpuMs = 0.0;
};

/// Nothing when there is no such process. One that has ended holds nothing, even before it is
/// waited for.
std::optional<ProcessState> processState(qint64 processId);

#endif
