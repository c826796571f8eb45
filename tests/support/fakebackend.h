#ifndef AIRLUME_TESTS_SUPPORT_FAKEBACKEND_H
#define AIRLUME_TESTS_SUPPORT_FAKEBACKEND_H

#include "scan/wifiapiinterface.h"

/// A back end that says what a test tells it to. Set its members before a thread uses it.
class FakeBackEnd : public WiFiApiInterface
{
public:
    bool initWiFiApi() override { return true; }
    bool releaseWiFiApi() override { return true; }
    bool isWiFiNicUsable(const QString &nic, int flag) override;
    bool setWiFiRadio(const QString &, bool) override { return false; }
    bool startWiFiScan(const QString &) override { return false; }
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override;
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return false; }
    bool getWiFiNicAddress(const QString &, QString &) override { return false; }
    bool getWiFiNicList(QStringList &nics) override;

    QStringList nics{QStringLiteral("wlan0")};
    QStringList usable{QStringLiteral("wlan0")};
    bool listResult = true;
    QList<ScanMap> air;
    bool queryResult = true;
    /// Written into the string argument of every query.
    QString written;

    QStringList askedUsable;
    QList<int> flags;
    int queries = 0;
    /// What the arguments held when the last query began.
    QString lastNicArgument;
    int lastListSize = -1;
};

#endif
