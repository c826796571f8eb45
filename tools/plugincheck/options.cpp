#include "options.h"

#include "backendloader.h"

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
                          "  0  the back end is sound and hears something\n"
                          "  1  the back end is sound but hears nothing; the report says why\n"
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
        QStringLiteral("Time between two rounds (4)."), QStringLiteral("seconds"));
    const QCommandLineOption timeout(QStringLiteral("timeout"),
        QStringLiteral("Give up a call that does not answer for so long (10)."),
        QStringLiteral("seconds"));
    parser.addOptions({help, version, json, watch, rounds, interval, timeout});
    parser.addPositionalArgument(QStringLiteral("backend"),
        QStringLiteral("The library, or the folder that holds ") + backendFileName() +
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
    if (parser.isSet(interval)) {
        const std::optional<int> pause = milliseconds(parser.value(interval), 0);
        if (!pause) {
            return refusal(options,
                QStringLiteral("--interval needs a number of seconds, 0 or more."), parser);
        }
        options.interval = *pause;
    }
    if (parser.isSet(timeout)) {
        const std::optional<int> patience = milliseconds(parser.value(timeout), 0.1);
        if (!patience) {
            return refusal(options,
                QStringLiteral("--timeout needs a number of seconds, 0.1 or more."), parser);
        }
        options.timeout = *patience;
    }
    return options;
}

} // namespace PluginCheck
