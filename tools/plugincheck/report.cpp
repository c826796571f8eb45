#include "report.h"

#include "contract.h"

namespace PluginCheck
{

Report answeredReport(
    const Backend &backend, const Answers &answers, const Heard &heard, const Deviations &extra)
{
    Report report;
    report.time = QDateTime::currentDateTimeUtc();
    report.backend = backend;
    report.answers = answers;
    report.heard = heard;
    report.deviations = backend.deviations;
    report.deviations.add(extra);
    report.deviations.add(checkAnswers(answers));
    report.verdict = judge(answers, report.deviations, heard.messages);
    return report;
}

Report problemReport(const Backend &backend, const Problem &problem, const Heard &heard)
{
    Report report;
    report.time = QDateTime::currentDateTimeUtc();
    report.backend = backend;
    report.backend.problem = problem;
    report.heard = heard;
    report.deviations = backend.deviations;
    report.verdict = {Outcome::Broken, QString(), problem.text, problem.advice};
    return report;
}

} // namespace PluginCheck
