#ifndef AIRLUME_LINUX_INTERFACECHOICE_H
#define AIRLUME_LINUX_INTERFACECHOICE_H

#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// An interface that could be listened with.
struct InterfaceCandidate {
    WifiInterface interface;
    bool usable = false;
    bool scanned = false;   ///< Somebody scans with it.
    bool unmanaged = false; ///< Nobody would scan with it.
};

/// Which of several interfaces is listened with: the one that is joined, or else one that somebody
/// scans, or else would. Stays with its choice while none is better. Pure.
class InterfaceChoice
{
public:
    /// Nothing when none is usable.
    std::optional<WifiInterface> choose(const QVector<InterfaceCandidate> &candidates);

    /// The names in the order in which Airlume takes the chosen one: it prefers the second and
    /// those after it to the first, and there it takes the first that is usable.
    static QStringList listed(
        const QVector<InterfaceCandidate> &candidates, const std::optional<WifiInterface> &chosen);

private:
    int m_chosen = 0; ///< Index of the interface; 0 for none.
};

} // namespace LinuxWifi

#endif
