#ifndef AIRLUME_TESTS_LINUX_BACKENDBENCH_H
#define AIRLUME_TESTS_LINUX_BACKENDBENCH_H

#include "linux/backend.h"

#include <cerrno>

namespace LinuxWifi
{

/// A kernel whose answers are set by hand.
class FakeKernel : public WifiKernel
{
public:
    int interfaces(QVector<WifiInterface> &interfaces) override
    {
        interfaces = m_interfacesError ? QVector<WifiInterface>() : m_interfaces;
        return m_interfacesError;
    }
    LinkState linkState(const QString &name) override { return m_states.value(name); }
    int accessPoints(int index, QVector<AccessPoint> &accessPoints) override
    {
        m_read.append(index);
        accessPoints = m_accessPointsError ? QVector<AccessPoint>() : m_accessPoints;
        return m_accessPointsError;
    }
    int stationLink(int, const QString &address, StationLink &link) override
    {
        m_asked.append(address);
        if (m_linkError)
            return m_linkError;
        for (const StationLink &candidate : qAsConst(m_links)) {
            if (candidate.address == address) {
                link = candidate;
                return 0;
            }
        }
        return ENOENT;
    }
    int stationLinks(int, QVector<StationLink> &links) override
    {
        links = m_linksError ? QVector<StationLink>() : m_links;
        return m_linksError;
    }
    int triggerScan(int index) override
    {
        m_triggered.append(index);
        return m_triggerError;
    }
    void close() override {}

    void add(int index, const char *name, LinkState state = {true, false, false},
        const char *joinedName = "")
    {
        m_interfaces.append({index, QString::fromLatin1(name), QStringLiteral("02:00:00:00:00:00"),
            QString::fromLatin1(joinedName)});
        m_states.insert(QString::fromLatin1(name), state);
    }

    QVector<WifiInterface> m_interfaces;
    QMap<QString, LinkState> m_states;
    QVector<AccessPoint> m_accessPoints;
    QVector<StationLink> m_links;
    int m_interfacesError = 0;
    int m_accessPointsError = 0;
    int m_linkError = 0;  ///< Of the link to one address.
    int m_linksError = 0; ///< Of the list of links.
    int m_triggerError = 0;
    QVector<int> m_read;
    QVector<int> m_triggered;
    QStringList m_asked; ///< Addresses of stations.
};

class FakeRequester : public ScanRequester
{
public:
    void request(const QString &interface) override { m_requested.append(interface); }
    std::optional<ScanAnswer> takeAnswer() override
    {
        std::optional<ScanAnswer> answer;
        answer.swap(m_answer);
        return answer;
    }

    QStringList m_requested;
    std::optional<ScanAnswer> m_answer;
};

class FakeEvents : public ScanEvents
{
public:
    void watch(int index) override { m_watched = index; }
    std::optional<qint64> running(int index) override
    {
        return m_running.contains(index) ? std::make_optional(m_running.value(index))
                                         : std::nullopt;
    }
    QVector<FinishedScan> take() override
    {
        QVector<FinishedScan> finished;
        finished.swap(m_finished);
        return finished;
    }

    int m_watched = -1;
    QHash<int, qint64> m_running;
    QVector<FinishedScan> m_finished;
};

inline StationLink stationLink(
    const char *address, std::optional<int> signal, std::optional<int> rate)
{
    StationLink link;
    link.address = QString::fromLatin1(address);
    link.signal = signal;
    link.rate = rate;
    return link;
}

inline AccessPoint heard(bool joined = false)
{
    AccessPoint accessPoint;
    accessPoint.bssid = QStringLiteral("b1");
    accessPoint.ssid = QStringLiteral("Home");
    accessPoint.signal = -50;
    accessPoint.joined = joined;
    return accessPoint;
}

/// A back end and all it is given.
struct Bench {
    FakeKernel kernel;
    FakeRequester requester;
    FakeEvents events;
    qint64 now = 1000000;
    QStringList problems;
    Backend backend{kernel, requester, events, [this] { return now; },
        [this](const QString &text) { problems.append(text); }};

    /// One round as Airlume makes it every four seconds.
    bool round(QList<ScanMap> *networks = nullptr)
    {
        now += 4000;
        QStringList names;
        backend.interfaceNames(names);
        for (const QString &name : qAsConst(names))
            backend.usable(name);
        QList<ScanMap> heard;
        const bool result = backend.networks(QString(), networks ? *networks : heard);
        return result;
    }
};

} // namespace LinuxWifi

#endif
