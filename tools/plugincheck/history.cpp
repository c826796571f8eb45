#include "history.h"

#include "contract.h"

namespace PluginCheck
{

namespace
{

/// True when those that both lists hold stand in the same order. Each counts once.
template <typename Item> bool isSameOrder(const QVector<Item> &before, const QVector<Item> &after)
{
    const auto common = [](const QVector<Item> &from, const QVector<Item> &other) {
        const QSet<Item> wanted(other.cbegin(), other.cend());
        QSet<Item> seen;
        QVector<Item> kept;
        for (const Item &item : from) {
            if (wanted.contains(item) && !seen.contains(item))
                kept.append(item);
            seen.insert(item);
        }
        return kept;
    };
    return common(before, after) == common(after, before);
}

QVector<Identity> placesOf(const QList<ScanMap> &networks)
{
    QVector<Identity> places;
    for (const ScanMap &network : networks)
        places.append(identityOf(network));
    return places;
}

QString joinedName(const QList<ScanMap> &networks)
{
    for (const ScanMap &network : networks) {
        if (isJoined(network))
            return network.value(ScanKey::Ssid);
    }
    return QString();
}

} // namespace

Deviations checkOrder(const QStringList &before, const QStringList &after)
{
    Deviations deviations;
    if (!isSameOrder(before.toVector(), after.toVector())) {
        deviations.add(Weight::Odd, QStringLiteral("interfaces-reordered"),
            QStringLiteral("The interfaces should keep their order: with another order Airlume may "
                           "take another interface."),
            quoted(before.join(QStringLiteral(", "))) + QStringLiteral(" became ") +
                quoted(after.join(QStringLiteral(", "))));
    }
    return deviations;
}

Deviations checkOrder(const QList<ScanMap> &before, const QList<ScanMap> &after)
{
    Deviations deviations;
    if (joinedName(before) == joinedName(after) &&
        !isSameOrder(placesOf(before), placesOf(after))) {
        deviations.add(Weight::Odd, QStringLiteral("networks-reordered"),
            QStringLiteral("The networks should keep their order: rows and curves of equal names "
                           "change places in Airlume when it changes."),
            QStringLiteral("two answers of ") + QString::number(before.size()) +
                QStringLiteral(" and ") + QString::number(after.size()) +
                QStringLiteral(" networks"));
    }
    return deviations;
}

Deviations History::add(const Answers &answers)
{
    Deviations deviations;
    followInterfaces(answers, deviations);
    deviations.add(checkOrder(m_interfaces, answers.interfaces));
    m_interfaces = answers.interfaces;
    if (answers.queried == true) {
        deviations.add(checkOrder(m_networks, answers.networks));
        m_networks = answers.networks;
    }
    return deviations;
}

void History::followInterfaces(const Answers &answers, Deviations &deviations)
{
    if (!answers.queried) {
        m_vanished = m_vanished || m_answering;
        return;
    }
    m_answering = *answers.queried;
    if (m_answering && m_vanished) {
        deviations.add(Weight::Broken, QStringLiteral("no-failure-after-return"),
            QStringLiteral("When its only interface went and came back, a back end must let one "
                           "query fail: Airlume goes on without data until a query does."),
            QStringLiteral("the interfaces are back, and the first query succeeded"));
    }
    m_vanished = false;
}

} // namespace PluginCheck
