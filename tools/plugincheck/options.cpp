#include "options.h"

#include "scan/wifiapicontract.h"

#include <QCommandLineParser>

#include <optional>

namespace PluginCheck
{

namespace
{

QString description()
{
    return QStringLiteral("Loads a Wi-Fi back end of Airlume, checks everything it answers and "
                          "prints what it hears.");
}

QString statusHelp()
{
    return QStringLiteral("\nExit status:\n"
                          "  0  Airlume can rely on the back end, which hears something\n"
                          "  1  as well, but it hears nothing, or only the network that the "
                          "computer is joined to; the report says why\n"
                          "  2  the back end cannot be loaded or breaks the contract, or the "
                          "command line is wrong\n");
}

std::optional<int> milliseconds(const QString &seconds, double least)
{
    bool ok = false;
    const double value = seconds.toDouble(&ok);
    if (!ok || !(value >= least && value <= 86400))
        return std::nullopt;
    return qRound(value * 1000);
}

Options refusal(Options options, const QString &error, const QCommandLineParser &parser)
{
    options.action = Options::Refuse;
    options.text = error + QStringLiteral("\n\n") + parser.helpText() + statusHelp();
    return options;
}

} // namespace

Options parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    const QCommandLineOption help(
        {QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this help."));
    const QCommandLineOption version(
        {QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Print the version."));
    const QCommandLineOption json(
        QStringLiteral("json"), QStringLiteral("Print one JSON object a line instead of text."));
    const QCommandLineOption watch(QStringLiteral("watch"),
        QStringLiteral("Look again every 4 s, as Airlume does, until interrupted."));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
        QStringLiteral("Like --watch, but end after <number> rounds."), QStringLiteral("number"));
    const QCommandLineOption interval(QStringLiteral("interval"),
        QStringLiteral("Time between two rounds (4; with --record 1)."), QStringLiteral("seconds"));
    const QCommandLineOption timeout(QStringLiteral("timeout"),
        QStringLiteral("Give up a call that does not answer for so long (10)."),
        QStringLiteral("seconds"));
    const QCommandLineOption wait(QStringLiteral("wait"),
        QStringLiteral("Wait up to so long for the first scan, without --watch (20)."),
        QStringLiteral("seconds"));
    const QCommandLineOption record(QStringLiteral("record"),
        QStringLiteral("Write what is heard to <file>, which the simulated back end replays."),
        QStringLiteral("file"));
    const QCommandLineOption recordFor(QStringLiteral("for"),
        QStringLiteral("End the record after so long."), QStringLiteral("seconds"));
    const QCommandLineOption anonymous(
        QStringLiteral("anonymous"), QStringLiteral("Replace names and addresses in the record."));
    parser.addOptions({help, version, json, watch, rounds, interval, timeout, wait, record,
        recordFor, anonymous});
    parser.addPositionalArgument(QStringLiteral("backend"),
        QStringLiteral("The library, or the folder that holds ") + WiFiApiLibrary +
            QStringLiteral(". Without it: the back end that Airlume itself would load."),
        QStringLiteral("[backend]"));

    Options options;
    if (!parser.parse(arguments))
        return refusal(options, parser.errorText(), parser);
    if (parser.isSet(help)) {
        options.action = Options::ShowHelp;
        options.text = parser.helpText() + statusHelp();
        return options;
    }
    if (parser.isSet(version)) {
        options.action = Options::ShowVersion;
        options.text = QStringLiteral("airlume-plugincheck " AIRLUME_VERSION "\n");
        return options;
    }

    const QStringList paths = parser.positionalArguments();
    if (paths.size() > 1)
        return refusal(options, QStringLiteral("Only one back end can be checked."), parser);
    if (paths.contains(QString()))
        return refusal(options, QStringLiteral("The path of the back end is empty."), parser);
    options.backend = paths.value(0);
    options.json = parser.isSet(json);

    if (parser.isSet(watch))
        options.rounds = 0;
    if (parser.isSet(rounds)) {
        options.rounds = parser.value(rounds).toInt();
        if (options.rounds < 1)
            return refusal(
                options, QStringLiteral("--rounds needs a whole number, 1 or more."), parser);
    }
    options.record = parser.value(record);
    options.anonymous = parser.isSet(anonymous);
    const bool isRecording = parser.isSet(record);
    if (isRecording) {
        options.rounds = 0;
        options.interval = 1000;
        if (options.record.isEmpty())
            return refusal(options, QStringLiteral("--record needs a file's name."), parser);
        if (parser.isSet(json) || parser.isSet(watch) || parser.isSet(rounds)) {
            return refusal(options,
                QStringLiteral("--record prints no rounds: leave out --json, --watch and "
                               "--rounds."),
                parser);
        }
    } else if (parser.isSet(recordFor) || parser.isSet(anonymous)) {
        return refusal(
            options, QStringLiteral("--for and --anonymous belong to --record."), parser);
    }

    const struct {
        const QCommandLineOption &option;
        double least;
        int &value;
    } times[] = {
        {interval, isRecording ? 0.1 : 0, options.interval},
        {timeout, 0.1, options.timeout},
        {wait, 0, options.wait},
        {recordFor, 0.1, options.recordFor},
    };
    for (const auto &time : times) {
        if (!parser.isSet(time.option))
            continue;
        const std::optional<int> value = milliseconds(parser.value(time.option), time.least);
        if (!value) {
            return refusal(options,
                QStringLiteral("--%1 needs a number of seconds, %2 or more.")
                    .arg(time.option.names().constFirst())
                    .arg(time.least),
                parser);
        }
        time.value = *value;
    }
    return options;
}

} // namespace PluginCheck
