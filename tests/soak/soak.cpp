#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"
#include "soak/restlesshand.h"
#include "support/processstate.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QVector>

#include <cstdio>

namespace
{
const unsigned long RestMs = 400;
/// The graphs' history takes ten minutes to fill; what is reserved before is no leak.
const double WarmUpMinutes = 15.0;

/// A street where somebody always comes, goes, roams, and loses the radio: in one minute, over and
/// over, while the program's own clock runs on as ever.
const char Scenario[] = R"({"seed": 11, "time_scale": 2, "repeat": 120,
    "interfaces": [{"name": "wlan0"}, {"name": "wlan1"}],
    "networks": [
      {"ssid": "Home", "bssid": "02:00:00:00:00:01", "channel": 44, "security": "WPA3-SAE",
       "walk": [[0, -38], [40, -75], [80, -38]], "joined": true, "link_rate": 866},
      {"ssid": "Home", "bssid": "02:00:00:00:00:02", "channel": 6, "signal": -52},
      {"ssid": "", "bssid": "02:00:00:00:00:03", "channel": 1, "signal": -71}],
    "generate": [
      {"count": 30, "prefix": "Neighbour ", "security": "WPA2-PSK", "wander": 6},
      {"count": 20, "prefix": "Bus ", "security": "Open", "from": 20, "until": 50},
      {"count": 250, "prefix": "Fair ", "from": 60, "until": 80}],
    "events": [
      {"at": 40, "do": "join", "bssid": "02:00:00:00:00:02"}, {"at": 65, "do": "leave"},
      {"at": 70, "do": "join", "bssid": "02:00:00:00:00:01"},
      {"at": 75, "do": "unplug", "interface": "wlan0"}, {"at": 85, "do": "plug", "interface": "wlan0"},
      {"at": 95, "do": "radio_off"}, {"at": 103, "do": "radio_on"},
      {"at": 107, "do": "fail", "query": "networks"}, {"at": 115, "do": "recover"}]})";

struct Sample {
    double minutes;
    ProcessState state;
};

/// Of the line through the samples (least squares), in MB per hour.
double slopePerHour(const QVector<Sample> &samples)
{
    double meanX = 0.0;
    double meanY = 0.0;
    for (const Sample &sample : samples) {
        meanX += sample.minutes / samples.size();
        meanY += sample.state.ownMb / samples.size();
    }
    double products = 0.0;
    double squares = 0.0;
    for (const Sample &sample : samples) {
        products += (sample.minutes - meanX) * (sample.state.ownMb - meanY);
        squares += (sample.minutes - meanX) * (sample.minutes - meanX);
    }
    return squares > 0.0 ? 60.0 * products / squares : 0.0;
}

void print(const char *what, const Sample &sample)
{
    std::printf("%-9s %6.1f min  own %6.2f MB  resident %6.2f MB  handles %3d  threads %2d  "
                "processor %6.1f s\n",
        what, sample.minutes, sample.state.ownMb, sample.state.residentMb, sample.state.handles,
        sample.state.threads, sample.state.cpuMs / 1000.0);
    std::fflush(stdout);
}

void print(const QMap<QString, int> &actions)
{
    for (auto action = actions.cbegin(); action != actions.cend(); ++action)
        std::printf("%6d x %s\n", action.value(), qPrintable(action.key()));
}

/// 0 when the program did all it was asked to and ended in order.
int soak(double minutes, quint32 seed)
{
    HostSuite host;
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    airlume.setScenario(Scenario);
    if (!airlume.start() || !host.isAsked()) {
        std::fprintf(stderr, "the program does not start:\n%s\n", qPrintable(airlume.output()));
        return 1;
    }

    RestlessHand hand(airlume, host, seed);
    QVector<Sample> samples;
    QElapsedTimer timer;
    timer.start();
    const auto elapsed = [&timer] { return static_cast<double>(timer.elapsed()) / 60000.0; };
    const auto look = [&] { return Sample{elapsed(), airlume.held()}; };
    print("started", look());
    while (elapsed() < minutes) {
        if (!hand.act()) {
            print(hand.actions());
            std::fprintf(stderr, "the program did not follow\n%s\n",
                qPrintable(airlume.output().right(4000)));
            return 1;
        }
        if (elapsed() >= samples.size() + 1) {
            samples.append(look());
            print("", samples.last());
        }
        QThread::msleep(RestMs);
    }

    print(hand.actions());
    QVector<Sample> warm;
    for (const Sample &sample : qAsConst(samples)) {
        if (sample.minutes >= qMin(WarmUpMinutes, minutes / 4.0))
            warm.append(sample);
    }
    if (warm.size() > 1) {
        print("first", warm.first());
        print("last", warm.last());
        std::printf("memory of its own grows by %.3f MB an hour\n", slopePerHour(warm));
    }
    const QString output = airlume.output();
    std::printf("reports of null pointers: %d\n", output.count(QLatin1String("NUll point")));
    host.say("IpcResponseExit");
    const bool ended = airlume.waitForEnd() && airlume.endedNormally() && airlume.exitCode() == 0;
    std::printf("%s\n", ended ? "ended in order" : "did not end in order");
    return ended ? 0 : 1;
}
} // namespace

/// The real program for hours, with a neighbourhood, a user and a host that never rest: prints a
/// line a minute and what memory, handles and threads came to.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("minutes"), QStringLiteral("How long."),
        QStringLiteral("minutes"), QStringLiteral("120")});
    parser.addOption({QStringLiteral("seed"), QStringLiteral("Of the hand's choices."),
        QStringLiteral("seed"), QStringLiteral("1")});
    parser.process(application);
    return soak(parser.value(QStringLiteral("minutes")).toDouble(),
        parser.value(QStringLiteral("seed")).toUInt());
}
