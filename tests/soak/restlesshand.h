#ifndef AIRLUME_TESTS_SOAK_RESTLESSHAND_H
#define AIRLUME_TESTS_SOAK_RESTLESSHAND_H

#include <QMap>
#include <QRandomGenerator>
#include <QString>

class AirlumeProcess;
class HostSuite;

/// A user who never sits still, and a host that changes its mind: one action of a random kind after
/// the other, each done as a hand would do it.
class RestlessHand
{
public:
    /// Both have to outlive it; the host has to be connected.
    RestlessHand(AirlumeProcess &airlume, HostSuite &host, quint32 seed);

    /// Does one thing and waits until it is done. False when the program did not do it.
    bool act();

    /// How often each kind of action was done.
    const QMap<QString, int> &actions() const { return m_actions; }

private:
    bool changeTab();
    bool tickRow();
    bool sortList();
    bool resizeWindow();
    bool changeLanguage();
    bool testRoom();
    bool addRoom();
    bool deleteRoom();
    bool waitForDialog(bool open);
    int roomCount();
    int below(int count) { return static_cast<int>(m_random.bounded(quint32(count))); }

    AirlumeProcess &m_airlume;
    HostSuite &m_host;
    QRandomGenerator m_random;
    QMap<QString, int> m_actions;
    bool m_maximised = false;
    int m_madeRooms = 0;
};

#endif
