#ifndef AIRLUME_SCAN_WIFIPROPERTY_H
#define AIRLUME_SCAN_WIFIPROPERTY_H

#include <QMetaType>
#include <QString>
#include <QVector>

/// One access point as the program sees it. A plain value; safe to copy across threads.
struct WifiProperty {
    int rssi = 0;           ///< Signal strength in dBm.
    int channel = 0;        ///< Channel number; 0 when the back end gave none.
    int spareA = 0;         ///< Not used.
    int spareB = 0;         ///< -1 from the scan thread; the network list keeps a row number here.
    bool connected = false; ///< The interface is joined to this network.
    QString bssid;
    QString security;
    QString ssid; ///< Unique within one scan: repeated names carry trailing blanks.
};

Q_DECLARE_TYPEINFO(WifiProperty, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(WifiProperty)

#endif
