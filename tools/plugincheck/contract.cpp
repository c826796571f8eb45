#include "contract.h"

#include "history.h"

namespace PluginCheck
{

namespace
{

int repeatedNetworks(const QList<ScanMap> &networks)
{
    return networks.size() - identitiesOf(networks).size();
}

void checkTime(const char *operation, double took, Deviations &deviations)
{
    if (took <= LongestAnswer)
        return;
    const QString example = QLatin1String(operation) + QStringLiteral("() took ") +
                            QString::number(took, 'f', 0) + QStringLiteral(" ms");
    if (took < HopelesslySlow) {
        deviations.add(Weight::Odd, QStringLiteral("slow-answer"),
            QStringLiteral("Every call should answer within 50 ms; Airlume's values come later, "
                           "and closing it may take as much longer."),
            example);
    } else {
        deviations.add(Weight::Broken, QStringLiteral("waiting-answer"),
            QStringLiteral("Every call must answer at once; a scan is never waited for. Airlume "
                           "has no new values meanwhile, and cannot close."),
            example);
    }
}

void checkRepeats(const Answers &answers, Deviations &deviations)
{
    if (answers.interfacesAgain)
        deviations.add(checkOrder(answers.interfaces, *answers.interfacesAgain));
    if (!answers.networksAgain)
        return;
    deviations.add(checkOrder(answers.networks, *answers.networksAgain));
    if (repeatedNetworks(*answers.networksAgain) > repeatedNetworks(answers.networks)) {
        deviations.add(Weight::Broken, QStringLiteral("growing-list"),
            QStringLiteral("Each query must give the networks of that moment only; those of "
                           "earlier queries must not be given again."),
            QStringLiteral("the first query gave ") + QString::number(answers.networks.size()) +
                QStringLiteral(" networks, the next one ") +
                QString::number(answers.networksAgain->size()) +
                QStringLiteral(", repeating earlier ones"));
    }
}

} // namespace

int chosenInterface(bool listed, const QVector<bool> &usable)
{
    return UsedInterface(listed, usable.size(), [&usable](int i) { return usable.at(i); });
}

int readInterface(const Answers &answers)
{
    const int chosen = chosenInterface(answers.listed, answers.usable);
    if (answers.alike.isEmpty() || answers.alike.value(chosen))
        return chosen;
    const int other = answers.alike.indexOf(true);
    return other >= 0 ? other : chosen;
}

Deviations checkInterfaces(const QStringList &interfaces)
{
    Deviations deviations;
    QSet<QString> seen;
    for (int i = 0; i < interfaces.size(); ++i) {
        const QString &name = interfaces.at(i);
        const QString which =
            QStringLiteral("interface ") + QString::number(i + 1) + QLatin1Char(' ') + quoted(name);
        if (name.isEmpty()) {
            deviations.add(Weight::Broken, QStringLiteral("empty-interface-name"),
                QStringLiteral("Every interface must have a name; Airlume takes an empty one as "
                               "\"no interface\"."),
                which);
        } else if (seen.contains(name)) {
            deviations.add(Weight::Odd, QStringLiteral("repeated-interface"),
                QStringLiteral("Every interface should be listed once; Airlume asks twice whether "
                               "it is usable."),
                which);
        }
        seen.insert(name);
    }
    return deviations;
}

Deviations checkAnswers(const Answers &answers)
{
    Deviations deviations = checkInterfaces(answers.interfaces);
    if (answers.queried == true)
        deviations.add(checkNetworks(answers.networks));
    checkRepeats(answers, deviations);
    if (answers.needsName) {
        deviations.add(Weight::Broken, QStringLiteral("needs-interface-name"),
            QStringLiteral("getVisiableNetworkMapList() must work with an empty interface name: "
                           "Airlume never gives one."),
            QStringLiteral("the query failed with an empty name and worked with the chosen "
                           "interface's name"));
    }
    const int chosen = chosenInterface(answers.listed, answers.usable);
    const int read = readInterface(answers);
    if (read != chosen) {
        deviations.add(Weight::Odd, QStringLiteral("reads-another-interface"),
            QStringLiteral("Asked with an empty name, a back end should read the interface that "
                           "Airlume takes. Airlume shows what it reads."),
            QStringLiteral("Airlume takes ") + quoted(answers.interfaces.at(chosen)) +
                QStringLiteral(", the networks are those of ") +
                quoted(answers.interfaces.at(read)));
    }
    checkTime("getWiFiNicList", answers.listTime, deviations);
    checkTime("isWiFiNicUsable", answers.usableTime, deviations);
    checkTime("getVisiableNetworkMapList", answers.queryTime, deviations);
    return deviations;
}

QString quoted(const QString &text, int longest)
{
    const QLatin1Char quote('"');
    if (text.size() <= longest)
        return quote + text + quote;
    int end = longest;
    if (text.at(end - 1).isHighSurrogate())
        --end;
    return quote + text.left(end) + QStringLiteral("...\" [") + QString::number(text.size()) +
           QStringLiteral(" characters]");
}

} // namespace PluginCheck
