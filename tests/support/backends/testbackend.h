#ifndef AIRLUME_TESTS_SUPPORT_BACKENDS_TESTBACKEND_H
#define AIRLUME_TESTS_SUPPORT_BACKENDS_TESTBACKEND_H

#include "scan/wifiapiinterface.h"

#include <QObject>

/// The plug-in object of every test back end. Its behaviour is the three functions of Kind, which
/// each kind defines in a file of its own.
class TestBackend : public QObject, public WiFiApiInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WiFiApiInterface_iid)
    Q_INTERFACES(WiFiApiInterface)

public:
    TestBackend();

    bool initWiFiApi() override { return true; }
    bool releaseWiFiApi() override { return true; }
    bool isWiFiNicUsable(const QString &nic, int flag) override;
    bool setWiFiRadio(const QString &, bool) override { return false; }
    bool startWiFiScan(const QString &) override { return false; }
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override;
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return false; }
    bool getWiFiNicAddress(const QString &, QString &) override { return false; }
    bool getWiFiNicList(QStringList &nics) override;
};

namespace Kind
{

/// Called once, when the plug-in object is made.
void prepare();
bool list(QStringList &nics);
bool isUsable(const QString &nic);
bool query(QString &nic, QList<ScanMap> &networks);

} // namespace Kind

namespace Air
{

/// Network number `index` of a well-formed air: "Network 0001", …; number 0 is joined.
ScanMap network(int index);
/// The first `count` of them.
QList<ScanMap> networks(int count);

/// The environment variable's text, or `fallback` when it is not set.
QString setting(const char *variable, const QString &fallback);

} // namespace Air

#endif
