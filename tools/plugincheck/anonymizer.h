#ifndef AIRLUME_PLUGINCHECK_ANONYMIZER_H
#define AIRLUME_PLUGINCHECK_ANONYMIZER_H

#include "answers.h"

#include <QHash>

namespace PluginCheck
{

/// Takes out of answers what tells whose they are, always in the same way: each name and address
/// gets one of its own. The vendor's half of an address stays, as do names of interfaces without an
/// address in them, and networks that hide their name.
class Anonymizer
{
public:
    Answers anonymous(Answers answers);

private:
    ScanMap anonymous(const ScanMap &network);
    QString address(const QString &original);
    QString interface(const QString &original);

    QHash<QString, QString> m_names;
    QHash<QString, QString> m_addresses;
};

} // namespace PluginCheck

#endif
