#ifndef AIRLUME_PLUGINCHECK_DEVIATIONS_H
#define AIRLUME_PLUGINCHECK_DEVIATIONS_H

#include <QStringList>
#include <QVector>

namespace PluginCheck
{

/// What a deviation means for Airlume.
enum class Weight : quint8 {
    Odd,    ///< Airlume copes, and shows something else than other back ends would.
    Broken, ///< Airlume cannot rely on the back end, or takes a value for something else.
};

/// One way in which a back end strays from the contract, however often it did so.
struct Deviation {
    QString code; ///< Stable name for programs, for example "bad-channel".
    QString rule; ///< What is asked for and what Airlume makes of it, in a sentence or two.
    Weight weight = Weight::Broken;
    int count = 0;
    QStringList examples; ///< The first few places where it happened.
};

/// Collects deviations of the same kind in one entry, so that a hundred thousand bad networks make
/// a readable report. The texts may hold text from the air as it came.
class Deviations
{
public:
    /// No more examples than this are kept of one kind.
    static constexpr int MaximumExamples = 5;

    void add(Weight weight, const QString &code, const QString &rule, const QString &example);
    /// Adds all of `other` behind the own ones.
    void add(const Deviations &other);

    bool isEmpty() const { return m_list.isEmpty(); }
    /// One of them at least means that Airlume cannot rely on the back end.
    bool isBroken() const;
    const QVector<Deviation> &list() const { return m_list; }
    /// The entry of that kind, or null. Valid until the next add().
    const Deviation *find(const QString &code) const;

private:
    Deviation &entry(const Deviation &like);

    QVector<Deviation> m_list;
};

} // namespace PluginCheck

#endif
