#ifndef AIRLUME_LINUX_PROBLEMTEXTS_H
#define AIRLUME_LINUX_PROBLEMTEXTS_H

#include "linux/scanrequester.h"
#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// What to tell the user: each text says what happened and what can be done about it. `error` is an
/// errno. Pure.
namespace ProblemTexts
{

/// The machine has no interface in station mode.
QString noInterface();
/// The only interface is used as something else than a station.
QString notAStation(const WifiInterface &interface);
/// The interface list could not be read.
QString interfacesUnreadable(int error);
/// An interface that was asked for by name does not exist.
QString unknownInterface(const QString &interface);
/// The interface cannot be used in this state.
QString unusable(const QString &interface, const LinkState &state);
/// The scan cache could not be read.
QString networksUnreadable(const QString &interface, int error);
/// The station statistics could not be read.
QString linkUnreadable(const QString &interface, int error);
/// The kernel did not start a scan.
QString scanRefused(const QString &interface, int error);
/// Nor did whoever manages the interface.
QString scanRefused(const QString &interface, const ScanAnswer &answer);

} // namespace ProblemTexts

} // namespace LinuxWifi

#endif
