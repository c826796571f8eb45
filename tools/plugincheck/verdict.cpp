#include "verdict.h"

#include "advice.h"
#include "contract.h"

namespace PluginCheck
{

namespace
{

const QString EmptyList = QStringLiteral("empty-list");
const QString OwnNetworkOnly = QStringLiteral("own-network-only");

QString shownInAirlume()
{
    return QStringLiteral(
        " Airlume shows \"Please make sure turn on the wireless radio.\" meanwhile.");
}

QStringList complaints(const QVector<Message> &messages)
{
    QStringList texts;
    for (const Message &message : messages) {
        if (message.level == QLatin1String("critical"))
            texts.append(message.text);
    }
    return texts;
}

Verdict heard(int count, bool isOdd)
{
    const QString what = QStringLiteral(" hears ") + QString::number(count) +
                         (count == 1 ? QStringLiteral(" network") : QStringLiteral(" networks"));
    return {Outcome::Heard, QString(),
        isOdd ? QStringLiteral("The back end") + what +
                    QStringLiteral(". Airlume copes with what is odd about it; see above.")
              : QStringLiteral("The back end is sound and") + what + QLatin1Char('.'),
        {}};
}

Verdict withoutInterface(const Answers &answers, const QStringList &complaints)
{
    // The simulated back end begins so what is wrong with its script.
    const QStringList mistakes = complaints.filter(QStringLiteral("Scenario file "));
    if (!mistakes.isEmpty()) {
        return {Outcome::NothingHeard, QStringLiteral("scenario-mistake"),
            QStringLiteral("The simulated back end cannot play its scenario. ") + mistakes.first() +
                shownInAirlume(),
            Advice::withScenarioMistake()};
    }
    const QString reason = QStringLiteral("no-interface");
    if (answers.listed && !complaints.isEmpty()) {
        return {Outcome::NothingHeard, reason,
            QStringLiteral("The back end finds no Wi-Fi interface that could hear networks; its "
                           "own messages say why.") +
                shownInAirlume(),
            Advice::withUnusableInterface()};
    }
    return {Outcome::NothingHeard, reason,
        (answers.listed ? QStringLiteral("The back end finds no Wi-Fi interface on this computer.")
                        : QStringLiteral("The back end could not list the Wi-Fi interfaces.")) +
            shownInAirlume(),
        Advice::withoutInterface()};
}

Verdict withInterface(const Answers &answers, bool complained)
{
    const bool failed = answers.queried != true;
    const QString shown = failed ? shownInAirlume() : QString();
    if (!failed && !answers.networks.isEmpty()) {
        return {Outcome::NothingHeard, OwnNetworkOnly,
            QStringLiteral("The back end hears only the network that the computer is joined to: "
                           "nothing has scanned lately, or nothing else is near."),
            complained ? Advice::withRefusedScan() : Advice::withOwnNetworkOnly()};
    }
    if (!answers.usable.contains(true)) {
        return {Outcome::NothingHeard, QStringLiteral("none-usable"),
            QStringLiteral("There is a Wi-Fi interface, but none that can be used: its radio is "
                           "off, blocked or the interface is down.") +
                shown,
            Advice::withRadioOff()};
    }
    if (failed) {
        return {Outcome::NothingHeard, QStringLiteral("query-failed"),
            QStringLiteral("The interface is there, but asking it for networks failed: mostly "
                           "because the radio was turned off or the adapter pulled out just now.") +
                shown,
            Advice::withFailedQuery()};
    }
    return {Outcome::NothingHeard, EmptyList,
        QStringLiteral("The interface works, but it has not heard any network yet."),
        complained ? Advice::withRefusedScan() : Advice::withEmptyAir()};
}

bool isOwnNetworkOnly(const QList<ScanMap> &networks)
{
    return networks.size() == 1 && isJoined(networks.first());
}

} // namespace

Verdict judge(
    const Answers &answers, const Deviations &deviations, const QVector<Message> &messages)
{
    if (deviations.isBroken()) {
        return {Outcome::Broken, QString(),
            QStringLiteral("The back end breaks the contract: Airlume cannot rely on it."),
            Advice::withBrokenBackend()};
    }
    if (answers.queried == true && !answers.networks.isEmpty() &&
        !isOwnNetworkOnly(answers.networks))
        return heard(answers.networks.size(), !deviations.isEmpty());

    const QStringList said = complaints(messages);
    Verdict verdict = answers.interfaces.isEmpty() ? withoutInterface(answers, said)
                                                   : withInterface(answers, !said.isEmpty());
    if (!said.isEmpty())
        verdict.advice.prepend(QStringLiteral("Follow the back end's own messages above first: it "
                                              "knows best what it met."));
    return verdict;
}

bool mayImprove(const Verdict &verdict)
{
    return verdict.reason == EmptyList || verdict.reason == OwnNetworkOnly;
}

Outcome combined(Outcome sofar, Outcome round)
{
    if (sofar == Outcome::Broken || round == Outcome::Broken)
        return Outcome::Broken;
    return sofar == Outcome::Heard ? sofar : round;
}

} // namespace PluginCheck
