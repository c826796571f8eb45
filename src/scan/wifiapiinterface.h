#ifndef AIRLUME_SCAN_WIFIAPIINTERFACE_H
#define AIRLUME_SCAN_WIFIAPIINTERFACE_H

#include "scan/wifiapicontract.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QtPlugin>

/// One access point as a back end reports it, under the keys of ScanKey: Signal in whole dBm,
/// LinkRate in whole Mbps for the joined network, if known. All values are text; other keys are
/// ignored.
using ScanMap = QMap<QString, QString>;

/// The binary contract between Airlume and a Wi-Fi back end: a plug-in library named
/// libWiFiApiPlugin.dylib on every platform.
///
/// Back ends are built separately, so the order of the virtual functions is part of the contract:
/// never insert, remove or reorder one. Airlume calls isWiFiNicUsable(),
/// getVisiableNetworkMapList() and getWiFiNicList(), always from its discovery thread and never
/// concurrently; the others keep their places and are never called by Airlume.
///
/// Every function answers at once (a scan is never waited for), returns true on success and reports
/// its data through reference arguments. None of them throws.
class WiFiApiInterface
{
public:
    virtual ~WiFiApiInterface() = default;

    /// Makes the back end ready. Not called by Airlume: a back end prepares itself when first
    /// asked.
    virtual bool initWiFiApi() = 0;
    /// Frees what initWiFiApi() took. Not called by Airlume.
    virtual bool releaseWiFiApi() = 0;

    /// True when the interface `nic` can be used for scanning. Airlume passes 0 as `flag`.
    virtual bool isWiFiNicUsable(const QString &nic, int flag) = 0;

    /// Switches the radio of `nic` on or off. Not called by Airlume.
    virtual bool setWiFiRadio(const QString &nic, bool on) = 0;
    /// Starts a scan on `nic` without waiting for it. Not called by Airlume.
    virtual bool startWiFiScan(const QString &nic) = 0;

    /// Appends one scan map per visible access point to `networks`. `nic` may be empty: the back
    /// end then uses the interface it would choose itself. Airlume passes the same string object
    /// every time and neither sets nor reads it, so a back end may keep something in it.
    /// False when scanning is impossible (radio off, no interface).
    virtual bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) = 0;

    /// Scan map of the network that `nic` is joined to. Not called by Airlume.
    virtual bool getConnectedNetworkMap(QString &nic, ScanMap &network) = 0;
    /// Hardware address of `nic`. Not called by Airlume.
    virtual bool getWiFiNicAddress(const QString &nic, QString &address) = 0;

    /// Appends the names of the machine's Wi-Fi interfaces to `nics`, in the back end's order.
    /// Airlume reads the list even when the result is false.
    virtual bool getWiFiNicList(QStringList &nics) = 0;
};

#define WiFiApiInterface_iid "com.corvane.WiFiApiPlugin.WiFiApiInterface/1.0"
Q_DECLARE_INTERFACE(WiFiApiInterface, WiFiApiInterface_iid)

#endif
