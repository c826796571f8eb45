// What the whole program costs while it runs: memory, processor time, and the longest time for
// which its window does not answer, beside the barest window that draws as many curves.

#include "bench/sidebyside.h"
#include "bench/watchedprogram.h"

#include <QCoreApplication>
#include <QThread>

#include <memory>

namespace
{
const unsigned long LookEveryMs = 100;
const int LooksAtMost = 600;
/// After the first rows: time for the first fresh records, the first ticks and the first prune.
const unsigned long SettleSeconds = 20;
/// Rows that the list shows at most.
const int MostRows = 15;

/// One way in which the program stands on somebody's desktop.
struct Desk {
    const char *what;
    int networks;
    int shown;
    int tab = 0;
    bool minimised = false;
};

/// A program on its desk, and what it has done there.
struct Running {
    Desk desk;
    std::unique_ptr<WatchedProgram> program;
    double cpuBefore = 0.;
    double core = 0.;  ///< Per cent of one.
    double pause = 0.; ///< ms
};

std::vector<Desk> desks(const SideBySide::Extent &extent)
{
    std::vector<Desk> all;
    for (int networks : extent.networks())
        all.push_back({"15 shown", networks, qMin(networks, MostRows)});
    for (int networks : {60, 300})
        all.push_back({"all shown", networks, networks});
    all.push_back({"channel graph, all shown", 15, 15, 1});
    all.push_back({"interference, all shown", 15, 15, 2});
    for (int networks : {15, 300}) {
        all.push_back({"home testing, all shown", networks, networks, 3});
        all.push_back({"minimised, all shown", networks, networks, 0, true});
    }
    return all;
}

/// Waits until the list shows networks, and shows what the desk wants.
void arrange(WatchedProgram &program, const Desk &desk)
{
    for (int look = 0; desk.networks > 0 && program.ask("rows") == 0; ++look) {
        if (look == LooksAtMost)
            qFatal("no networks are listed");
        QThread::msleep(LookEveryMs);
    }
    if (desk.shown > 0)
        program.ask("show " + QByteArray::number(desk.shown));
    program.ask("tab " + QByteArray::number(desk.tab));
    if (desk.minimised)
        program.ask("minimise");
}

/// All at the same time: processor time and memory are counted for each program alone.
void watch(const std::vector<Running *> &all, unsigned long seconds)
{
    for (Running *one : all) {
        one->program->ask("pause");
        one->cpuBefore = one->program->held().cpuMs;
    }
    QThread::sleep(seconds);
    for (Running *one : all)
        one->core =
            (one->program->held().cpuMs - one->cpuBefore) / (10. * static_cast<double>(seconds));
    for (Running *one : all)
        one->pause = static_cast<double>(one->program->ask("pause")) / 1e6;
}

void report(const std::vector<Running> &ours, const std::vector<Running> &bare, double leanMb)
{
    const auto floorOf = [&bare](const Running &one) -> const Running & {
        return *std::find_if(bare.begin(), bare.end(),
            [&one](const Running &other) { return other.desk.shown == one.desk.shown; });
    };
    const auto line = [](const char *value, const Running &one, std::pair<double, double> values,
                          const char *unit) {
        SideBySide::report(
            (std::string(value) + ", " + one.desk.what).c_str(), one.desk.networks, values, unit);
    };
    for (const Running &one : ours) {
        // The least in memory is the window without curves.
        const double resident = one.program->held().residentMb;
        line("resident", one, {resident, bare.front().program->held().residentMb}, "MB");
        line("resident (no OpenGL)", one, {resident, leanMb}, "MB");
        line("of a core", one, {one.core, floorOf(one).core}, "%");
        line("longest pause", one, {one.pause, floorOf(one).pause}, "ms");
    }
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const SideBySide::Extent extent(argc, argv);

    WatchedProgram lean("barewindow", 0, {QStringLiteral("lean")});
    lean.start();
    std::vector<Running> bare;
    for (int curves : {0, 15, 60, 300}) {
        bare.push_back({{"", 0, curves}, std::make_unique<WatchedProgram>("barewindow", 0,
                                             QStringList(QString::number(curves)))});
        bare.back().program->start();
    }
    std::vector<Running> ours;
    for (const Desk &desk : desks(extent)) {
        ours.push_back({desk, std::make_unique<WatchedProgram>("airlume", desk.networks)});
        ours.back().program->start();
        arrange(*ours.back().program, desk);
    }
    QThread::sleep(SettleSeconds);
    std::vector<Running *> all;
    for (std::vector<Running> *group : {&bare, &ours}) {
        for (Running &one : *group)
            all.push_back(&one);
    }
    watch(all, extent.isQuick() ? 15 : 60);
    report(ours, bare, lean.held().residentMb);
    return 0;
}
