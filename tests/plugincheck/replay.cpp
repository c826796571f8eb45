#include "replay.h"

#include "plugincheck/recordfile.h"
#include "plugincheck/transcript.h"
#include "simulated/scenarioparser.h"
#include "simulated/simulatedair.h"

#include <QFile>
#include <QTemporaryDir>

using namespace PluginCheck;

namespace
{

/// What a back end in that air answers, as the checker asks.
Answers askedOf(const SimulatedAir &air)
{
    Answers answers;
    answers.listed = air.interfaces(answers.interfaces);
    for (const QString &name : qAsConst(answers.interfaces))
        answers.usable.append(air.isUsable(name));
    if (!answers.interfaces.isEmpty())
        answers.queried = air.networks(QString(), answers.networks);
    return answers;
}

} // namespace

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray recordOf(const QVector<Answers> &rounds)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("record.json"));
    RecordFile file;
    Transcript transcript;
    if (!file.open(path).isEmpty())
        return {};
    for (int second = 0; second < rounds.size(); ++second) {
        if (!file.add(transcript.add(rounds.at(second), second)).isEmpty())
            return {};
    }
    return readAll(path);
}

QVector<Answers> replayed(const QByteArray &record, int seconds)
{
    const ScenarioResult result = ParseScenario(record);
    if (result.error.isSet())
        qFatal("%s: %s", qPrintable(result.error.field), qPrintable(result.error.text));
    SimulatedAir air(result.scenario);
    QVector<Answers> rounds;
    for (int second = 0; second < seconds; ++second) {
        air.advanceTo(second);
        rounds.append(askedOf(air));
    }
    return rounds;
}
