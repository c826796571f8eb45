#include "deviations.h"

#include <algorithm>

namespace PluginCheck
{

void Deviations::add(
    Weight weight, const QString &code, const QString &rule, const QString &example)
{
    Deviation &deviation = entry({code, rule, weight, 0, {}});
    ++deviation.count;
    if (deviation.examples.size() < MaximumExamples)
        deviation.examples.append(example);
}

void Deviations::add(const Deviations &other)
{
    for (const Deviation &added : other.m_list) {
        Deviation &deviation = entry(added);
        deviation.count += added.count;
        deviation.examples += added.examples;
        deviation.examples = deviation.examples.mid(0, MaximumExamples);
    }
}

bool Deviations::isBroken() const
{
    return std::any_of(m_list.cbegin(), m_list.cend(),
        [](const Deviation &deviation) { return deviation.weight == Weight::Broken; });
}

const Deviation *Deviations::find(const QString &code) const
{
    const auto found = std::find_if(m_list.cbegin(), m_list.cend(),
        [&code](const Deviation &deviation) { return deviation.code == code; });
    return found == m_list.cend() ? nullptr : &*found;
}

Deviation &Deviations::entry(const Deviation &like)
{
    const auto found = std::find_if(m_list.begin(), m_list.end(),
        [&like](const Deviation &deviation) { return deviation.code == like.code; });
    if (found != m_list.end())
        return *found;
    m_list.append({like.code, like.rule, like.weight, 0, {}});
    return m_list.last();
}

} // namespace PluginCheck
