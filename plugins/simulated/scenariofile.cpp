#include "simulated/scenariofile.h"

#include "simulated/scenarioparser.h"

#include <QFile>
#include <QFileInfo>

ScenarioFileResult ReadScenarioFile(const QString &path)
{
    ScenarioFileResult result;
    const QString opening = QStringLiteral("Scenario file ") + path;
    QFile file(path);
    // Opening a folder succeeds on some systems and reads as nothing.
    if (QFileInfo(path).isDir()) {
        result.problem = opening + QStringLiteral(" cannot be read: it is a folder.");
        return result;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        result.problem =
            opening + QStringLiteral(" cannot be read: ") + file.errorString() + QLatin1Char('.');
        return result;
    }
    const ScenarioResult parsed = ParseScenario(file.read(ScenarioLimits::Bytes + 1));
    if (!parsed.error.isSet()) {
        result.scenario = parsed.scenario;
    } else if (parsed.error.field.isEmpty()) {
        result.problem = opening + QLatin1Char(' ') + parsed.error.text + QLatin1Char('.');
    } else {
        const QString line =
            parsed.error.line > 0 ? QStringLiteral(", line %1").arg(parsed.error.line) : QString();
        result.problem = opening + line + QStringLiteral(", field ") + parsed.error.field +
                         QStringLiteral(": ") + parsed.error.text + QLatin1Char('.');
    }
    return result;
}
