#ifndef AIRLUME_PLUGINCHECK_VERDICT_H
#define AIRLUME_PLUGINCHECK_VERDICT_H

#include "answers.h"
#include "deviations.h"

namespace PluginCheck
{

/// What a round comes to. The number is the exit status of the program.
enum class Outcome {
    Heard = 0,        ///< In the contract, and at least one network was heard.
    NothingHeard = 1, ///< In the contract, but the list stays empty.
    Broken = 2,       ///< Not loadable or out of the contract.
};

/// The outcome, and for a user whose list is empty why and what to do.
struct Verdict {
    Outcome outcome = Outcome::Broken;
    QString reason; ///< Stable name for programs: "no-interface", …; empty unless NothingHeard.
    QString text;   ///< One or two sentences.
    QStringList advice; ///< What the user can do, most likely help first.
};

Verdict judge(const Answers &answers, const Deviations &deviations);

/// Status of a whole run, from those of its rounds: broken if one was, else heard if one was.
Outcome combined(Outcome sofar, Outcome round);

} // namespace PluginCheck

#endif
