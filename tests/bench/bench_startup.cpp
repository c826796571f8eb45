// How long the program takes until its window stands painted, beside the barest window with a Qwt
// graph. Networks are heard from the start on.

#include "bench/sidebyside.h"
#include "bench/watchedprogram.h"

#include <QCoreApplication>

namespace
{
void benchFirstPaint(int networks, int runs)
{
    std::vector<double> wall[2];
    std::vector<double> cpu[2];
    // The first round warms the disk's cache and does not count.
    for (int run = 0; run <= runs; ++run) {
        int which = 0;
        for (const char *program : {"airlume", "barewindow"}) {
            WatchedProgram process(program, networks);
            const WatchedProgram::FirstPaint paint = process.start();
            if (run > 0) {
                wall[which].push_back(paint.wallMs);
                cpu[which].push_back(paint.cpuMs);
            }
            ++which;
        }
    }
    using SideBySide::median;
    SideBySide::report("first painted window", networks, {median(wall[0]), median(wall[1])}, "ms");
    SideBySide::report(
        "first painted window, processor time", networks, {median(cpu[0]), median(cpu[1])}, "ms");
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
