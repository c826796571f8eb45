// How long the program takes until its window stands painted, beside the barest window with a Qwt
// graph, with OpenGL set up as Qt does it, and without, as Airlume has it. Networks are heard from
// the start on.

#include "bench/sidebyside.h"
#include "bench/watchedprogram.h"

#include <QCoreApplication>

namespace
{
/// Medians of starts.
struct Starts {
    void add(const WatchedProgram::FirstPaint &paint)
    {
        wallMs.push_back(paint.wallMs);
        cpuMs.push_back(paint.cpuMs);
    }

    std::vector<double> wallMs;
    std::vector<double> cpuMs;
};

void report(const std::string &than, int networks, const Starts &ours, const Starts &bare)
{
    using SideBySide::median;
    SideBySide::report(("first painted window" + than).c_str(), networks,
        {median(ours.wallMs), median(bare.wallMs)}, "ms");
    SideBySide::report(("first painted window" + than + ", processor").c_str(), networks,
        {median(ours.cpuMs), median(bare.cpuMs)}, "ms");
}

void benchFirstPaint(int networks, int runs)
{
    const struct {
        const char *program;
        QStringList arguments;
    } programs[] = {{"airlume", {}}, {"barewindow", {}}, {"barewindow", {QStringLiteral("lean")}}};
    Starts starts[3];
    // The first round warms the disk's cache and does not count.
    for (int run = 0; run <= runs; ++run) {
        for (std::size_t i = 0; i < 3; ++i) {
            WatchedProgram process(programs[i].program, networks, programs[i].arguments);
            const WatchedProgram::FirstPaint paint = process.start();
            if (run > 0)
                starts[i].add(paint);
        }
    }
    report("", networks, starts[0], starts[1]);
    report(" (no OpenGL)", networks, starts[0], starts[2]);
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const SideBySide::Extent extent(argc, argv);
    for (int networks : extent.networks())
        benchFirstPaint(networks, extent.isQuick() ? 3 : 11);
    return 0;
}
