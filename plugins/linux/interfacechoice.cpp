#include "linux/interfacechoice.h"

namespace LinuxWifi
{

namespace
{
int merit(const InterfaceCandidate &candidate)
{
    if (!candidate.interface.joinedName.isEmpty())
        return 3;
    if (candidate.scanned)
        return 2;
    return candidate.unmanaged ? 0 : 1;
}
} // namespace

std::optional<WifiInterface> InterfaceChoice::choose(const QVector<InterfaceCandidate> &candidates)
{
    const InterfaceCandidate *best = nullptr;
    for (const InterfaceCandidate &candidate : candidates) {
        if (!candidate.usable)
            continue;
        const bool better =
            !best || merit(candidate) > merit(*best) ||
            (merit(candidate) == merit(*best) && candidate.interface.index == m_chosen);
        if (better)
            best = &candidate;
    }
    m_chosen = best ? best->interface.index : 0;
    return best ? std::make_optional(best->interface) : std::nullopt;
}

QStringList InterfaceChoice::listed(
    const QVector<InterfaceCandidate> &candidates, const std::optional<WifiInterface> &chosen)
{
    QStringList names;
    for (const InterfaceCandidate &candidate : candidates) {
        if (!chosen || candidate.interface.index != chosen->index)
            names.append(candidate.interface.name);
    }
    if (chosen)
        names.insert(names.isEmpty() ? 0 : 1, chosen->name);
    return names;
}

} // namespace LinuxWifi
