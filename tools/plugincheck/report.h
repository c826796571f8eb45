#ifndef AIRLUME_PLUGINCHECK_REPORT_H
#define AIRLUME_PLUGINCHECK_REPORT_H

#include "judgedprocess.h"
#include "verdict.h"

#include <QDateTime>

namespace PluginCheck
{

/// Everything there is to print about one round. A plain value.
struct Report {
    int round = 1; ///< Counted from 1.
    QDateTime time;
    Backend backend;
    std::optional<Answers> answers; ///< Nothing when the back end has a problem.
    Heard heard;
    Deviations deviations;
    Verdict verdict;
};

/// The report on a round that was answered. `extra`: what showed beyond that round.
Report answeredReport(const Backend &backend, const Answers &answers, const Heard &heard,
    const Deviations &extra = {});

/// The report on a back end that gives no answers.
Report problemReport(const Backend &backend, const Problem &problem, const Heard &heard);

/// Lines of text for a person at a terminal, each of them safe to print.
QString textReport(const Report &report);

/// The report as one line of JSON, in ASCII. The manual page describes it.
QByteArray jsonReport(const Report &report);

} // namespace PluginCheck

#endif
