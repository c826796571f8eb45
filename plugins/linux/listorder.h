#ifndef AIRLUME_LINUX_LISTORDER_H
#define AIRLUME_LINUX_LISTORDER_H

#include "linux/wifikernel.h"

#include <QHash>

namespace LinuxWifi
{

/// The order in which access points are reported. Airlume tells those of one name apart by it, and
/// its list reads no further than the first name that it has no room for. So whoever is listed
/// keeps its place, and what is new comes last.
class ListOrder
{
public:
    /// So many access points have a row in Airlume's list.
    static constexpr int Rows = 15;

    /// Sorts `accessPoints`; `joined` is the BSSID of the joined one, or empty.
    ///
    /// The first time by strength, those of one name together, the joined one's name first. Later
    /// those that are known keep their order, and new ones follow: beside those of their name while
    /// there are rows left, then at the end. Those with the joined one's name that have a row come
    /// to the front, and with them the joined one, behind those that were heard before it.
    void sort(QVector<AccessPoint> &accessPoints, const QString &joined);

private:
    static void moveBesideItsName(QVector<AccessPoint> &accessPoints, int from);

    QHash<QString, int> m_place; ///< By BSSID, as of the last call.
};

} // namespace LinuxWifi

#endif
