#ifndef AIRLUME_TESTS_SUPPORT_BACKENDS_TESTBACKEND_H
#define AIRLUME_TESTS_SUPPORT_BACKENDS_TESTBACKEND_H

#include "scan/wifiapiinterface.h"

#include <QObject>

#include <memory>

/// What a kind of test back end does; by default sound: one usable interface, "test0", that hears
/// three networks. A kind overrides what is special about it.
class Kind
{
public:
    Kind() = default;
    Kind(const Kind &) = delete;
    Kind &operator=(const Kind &) = delete;
    virtual ~Kind() = default;

    virtual bool list(QStringList &nics);
    virtual bool isUsable(const QString &nic);
    virtual bool query(QString &nic, QList<ScanMap> &networks);
};

/// Makes the kind when the plug-in object is made. Each kind's file defines it.
std::unique_ptr<Kind> makeKind();

/// Makes `Name` the kind of this plug-in.
#define AIRLUME_TEST_KIND(Name)                                                                    \
    std::unique_ptr<Kind> makeKind()                                                               \
    {                                                                                              \
        return std::make_unique<Name>();                                                           \
    }

/// The plug-in object of every test back end.
class TestBackend : public QObject, public WiFiApiInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WiFiApiInterface_iid)
    Q_INTERFACES(WiFiApiInterface)

public:
    TestBackend()
        : m_kind(makeKind())
    {
    }

    bool initWiFiApi() override { return true; }
    bool releaseWiFiApi() override { return true; }
    bool isWiFiNicUsable(const QString &nic, int) override { return m_kind->isUsable(nic); }
    bool setWiFiRadio(const QString &, bool) override { return false; }
    bool startWiFiScan(const QString &) override { return false; }
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override
    {
        return m_kind->query(nic, networks);
    }
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return false; }
    bool getWiFiNicAddress(const QString &, QString &) override { return false; }
    bool getWiFiNicList(QStringList &nics) override { return m_kind->list(nics); }

private:
    std::unique_ptr<Kind> m_kind;
};

namespace Air
{

/// Network number `index` of a well-formed air: "Network 0001", …; number 0 is joined.
ScanMap network(int index);
/// The same with another value under one key.
ScanMap networkWith(int index, const QString &key, const QString &value);
/// The first `count` of them.
QList<ScanMap> networks(int count);

/// The environment variable's text, or `fallback` when it is not set.
QString setting(const char *variable, const QString &fallback);

} // namespace Air

#endif
