#include "report.h"

#include "contract.h"

namespace PluginCheck
{

Report answeredReport(
    const Backend &backend, const Answers &answers, const QVector<Message> &messages)
{
    Report report;
    report.time = QDateTime::currentDateTimeUtc();
    report.backend = backend;
    report.answers = answers;
    report.messages = messages;
    report.deviations = backend.deviations;
    report.deviations.add(checkAnswers(answers));
    report.verdict = judge(answers, report.deviations);
    return report;
}

Report problemReport(
    const Backend &backend, const Problem &problem, const QVector<Message> &messages)
{
    Report report;
    report.time = QDateTime::currentDateTimeUtc();
    report.backend = backend;
    report.backend.problem = problem;
    report.messages = messages;
    report.deviations = backend.deviations;
    report.verdict = {Outcome::Broken, QString(), problem.text, problem.advice};
    return report;
}

} // namespace PluginCheck
