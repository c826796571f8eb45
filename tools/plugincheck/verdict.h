#ifndef AIRLUME_PLUGINCHECK_VERDICT_H
#define AIRLUME_PLUGINCHECK_VERDICT_H

#include "deviations.h"
#include "wire.h"

namespace PluginCheck
{

/// What a round comes to. The number is the exit status of the program.
enum class Outcome {
    Heard = 0,        ///< Airlume can rely on the back end, which hears the neighbourhood.
    NothingHeard = 1, ///< As well, but the list stays empty or holds the own network only.
    Broken = 2,       ///< Not loadable, or Airlume cannot rely on it.
};

/// The outcome, and for a user whose list is empty why and what to do.
struct Verdict {
    Outcome outcome = Outcome::Broken;
    QString reason; ///< Stable name for programs: "no-interface", …; empty unless NothingHeard.
    QString text;   ///< One or two sentences.
    QStringList advice; ///< What the user can do, most likely help first.
};

/// `messages` are those of the back end itself: why it hears nothing is often said there.
Verdict judge(
    const Answers &answers, const Deviations &deviations, const QVector<Message> &messages);

/// True when a scan that has just begun may still change the verdict for the better.
bool mayImprove(const Verdict &verdict);

/// Status of a whole run, from those of its rounds: broken if one was, else heard if one was.
Outcome combined(Outcome sofar, Outcome round);

} // namespace PluginCheck

#endif
