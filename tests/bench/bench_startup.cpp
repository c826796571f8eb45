// What the whole program costs: until its window stands painted, in memory, and while it runs,
// beside the barest window with a Qwt graph.

#include "bench/watchedprogram.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace
{
const unsigned long LookEveryMs = 100;
const int LooksAtMost = 300;
/// After the first rows: time for the first fresh records, the first ticks and the first prune.
const unsigned long SettleSeconds = 20;

struct Programs {
    QString airlume;
    QString bare;
};

/// One way in which the program stands on somebody's desktop.
struct Desk {
    const char *what;
    int networks;
    int shown;
    int tab;
    bool minimised;
};

const Desk Desks[] = {
    {"no networks", 0, 0, 0, false},
    {"15 networks, none shown", 15, 0, 0, false},
    {"15 networks, 15 shown", 15, 15, 0, false},
    {"60 networks, 60 shown", 60, 60, 0, false},
    {"300 networks, none shown", 300, 0, 0, false},
    {"300 networks, 15 shown", 300, 15, 0, false},
    {"300 networks, 300 shown", 300, 300, 0, false},
    {"1000 networks, 15 shown", 1000, 15, 0, false},
    {"5000 networks, 15 shown", 5000, 15, 0, false},
    {"15 networks, 15 shown, tab 2", 15, 15, 1, false},
    {"15 networks, 15 shown, tab 3", 15, 15, 2, false},
    {"15 networks, 15 shown, tab 4", 15, 15, 3, false},
    {"15 networks, 15 shown, minimised", 15, 15, 0, true},
};

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void report(const char *what, double ours, double bare, const char *unit)
{
    std::printf("%-52s %10.1f %s  %10.1f %s  %6.2f\n", what, ours, unit, bare, unit, ours / bare);
    std::fflush(stdout);
}

void benchFirstPaint(const Programs &programs, int runs)
{
    std::vector<double> wall[2];
    std::vector<double> cpu[2];
    // The first round warms the disk's cache and does not count.
    for (int run = -1; run < runs; ++run) {
        int which = 0;
        for (const QString &program : {programs.airlume, programs.bare}) {
            WatchedProgram process(program, 15);
            const WatchedProgram::FirstPaint paint = process.start();
            if (run >= 0) {
                wall[which].push_back(paint.wallMs);
                cpu[which].push_back(paint.cpuMs);
            }
            ++which;
        }
    }
    report("start to first painted window", median(wall[0]), median(wall[1]), "ms");
    report("start to first painted window, processor time", median(cpu[0]), median(cpu[1]), "ms");
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

/// All desks at the same time: processor time and memory are counted for each program alone.
void benchDesks(const Programs &programs, int seconds)
{
    WatchedProgram bare(programs.bare, 0);
    bare.start();
    std::vector<std::unique_ptr<WatchedProgram>> running;
    for (const Desk &desk : Desks) {
        running.push_back(std::make_unique<WatchedProgram>(programs.airlume, desk.networks));
        running.back()->start();
        arrange(*running.back(), desk);
    }
    QThread::sleep(SettleSeconds);

    std::vector<double> before;
    for (const auto &program : running) {
        program->ask("pause");
        before.push_back(program->cpuMs());
    }
    QThread::sleep(static_cast<unsigned long>(seconds));
    std::vector<double> used;
    for (std::size_t i = 0; i < running.size(); ++i)
        used.push_back(running[i]->cpuMs() - before[i]);

    const WatchedProgram::Memory least = bare.memory();
    std::printf("\n%-38s %9s %9s %9s %9s %9s %9s\n", "", "resident", "over bare", "own",
        "over bare", "core", "pause");
    for (std::size_t i = 0; i < running.size(); ++i) {
        const WatchedProgram::Memory memory = running[i]->memory();
        std::printf("%-38s %6.1f MB %6.1f MB %6.1f MB %6.1f MB %7.2f %% %6.1f ms\n", Desks[i].what,
            memory.resident, memory.resident - least.resident, memory.anonymous,
            memory.anonymous - least.anonymous, used[i] / (10. * seconds),
            static_cast<double>(running[i]->ask("pause")) / 1e6);
    }
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption runs(QStringLiteral("runs"), QStringLiteral("Starts to measure."),
        QStringLiteral("number"), QStringLiteral("21"));
    const QCommandLineOption seconds(QStringLiteral("seconds"),
        QStringLiteral("How long to watch the running program."), QStringLiteral("number"),
        QStringLiteral("60"));
    const QCommandLineOption program(QStringLiteral("program"),
        QStringLiteral("The program to measure."), QStringLiteral("file"),
        QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume"));
    parser.addOptions({runs, seconds, program});
    parser.addHelpOption();
    parser.process(application);

    const Programs programs{
        parser.value(program), QStringLiteral(AIRLUME_BUILD_DIR "/bin/barewindow")};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::printf("%-52s %13s  %13s  %6s\n", "", "ours", "bare", "ratio");
    if (parser.value(runs).toInt() > 0)
        benchFirstPaint(programs, parser.value(runs).toInt());
    if (parser.value(seconds).toInt() > 0)
        benchDesks(programs, parser.value(seconds).toInt());
    return 0;
}
