#include "linux/listorder.h"

#include <QHash>

#include <algorithm>

namespace LinuxWifi
{

namespace
{
const int Unheard = -1000; // dBm, below any

int strength(const AccessPoint &accessPoint)
{
    return accessPoint.signal.value_or(Unheard);
}

/// Strongest first; where that does not tell, by address, so that chance decides nothing.
bool stronger(const AccessPoint &left, const AccessPoint &right)
{
    if (strength(left) != strength(right))
        return strength(left) > strength(right);
    return left.bssid < right.bssid;
}

/// Brings those of one name together, behind the first of them.
void gatherNames(QVector<AccessPoint> &accessPoints)
{
    QHash<QString, int> rank;
    for (const AccessPoint &accessPoint : qAsConst(accessPoints)) {
        if (!rank.contains(accessPoint.ssid))
            rank.insert(accessPoint.ssid, rank.size());
    }
    std::stable_sort(accessPoints.begin(), accessPoints.end(),
        [&rank](const AccessPoint &left, const AccessPoint &right) {
            return rank.value(left.ssid) < rank.value(right.ssid);
        });
}

void moveToFront(QVector<AccessPoint> &accessPoints, const QString &joined, int rows)
{
    const auto own = std::find_if(accessPoints.begin(), accessPoints.end(),
        [&joined](const AccessPoint &accessPoint) { return accessPoint.bssid == joined; });
    if (own == accessPoints.end())
        return;
    const QString name = own->ssid;
    QVector<AccessPoint> front;
    QVector<AccessPoint> rest;
    for (int i = 0; i < accessPoints.size(); ++i) {
        const AccessPoint &accessPoint = accessPoints.at(i);
        const bool comes = accessPoint.bssid == joined || (i < rows && accessPoint.ssid == name);
        (comes ? front : rest).append(accessPoint);
    }
    accessPoints = front + rest;
}
} // namespace

void ListOrder::sort(QVector<AccessPoint> &accessPoints, const QString &joined)
{
    const bool first = m_place.isEmpty();
    std::sort(accessPoints.begin(), accessPoints.end(), stronger);
    if (first) {
        gatherNames(accessPoints);
        moveToFront(accessPoints, joined, accessPoints.size());
    } else {
        const auto isKnown = [this](const AccessPoint &accessPoint) {
            return m_place.contains(accessPoint.bssid);
        };
        const auto firstNew =
            std::stable_partition(accessPoints.begin(), accessPoints.end(), isKnown);
        std::sort(accessPoints.begin(), firstNew,
            [this](const AccessPoint &left, const AccessPoint &right) {
                return m_place.value(left.bssid) < m_place.value(right.bssid);
            });
        const int known = static_cast<int>(firstNew - accessPoints.begin());
        for (int i = known; i < accessPoints.size() && i < Rows; ++i)
            moveBesideItsName(accessPoints, i);
        moveToFront(accessPoints, joined, Rows);
    }

    m_place.clear();
    for (int i = 0; i < accessPoints.size(); ++i)
        m_place.insert(accessPoints.at(i).bssid, i);
}

/// Moves the access point at `from` behind the last of its name that stands before it.
void ListOrder::moveBesideItsName(QVector<AccessPoint> &accessPoints, int from)
{
    const auto own = accessPoints.rend() - from - 1;
    const auto named = std::find_if(own + 1, accessPoints.rend(),
        [own](const AccessPoint &accessPoint) { return accessPoint.ssid == own->ssid; });
    if (named != accessPoints.rend())
        std::rotate(own, own + 1, named);
}

} // namespace LinuxWifi
