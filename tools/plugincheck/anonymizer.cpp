#include "anonymizer.h"

#include <QRegularExpression>

namespace PluginCheck
{

namespace
{

/// The counted stand-in for `original`, made the first time.
template <typename Make>
QString standIn(QHash<QString, QString> &known, const QString &original, Make make)
{
    const auto found = known.constFind(original);
    if (found != known.cend())
        return *found;
    const QString made = make(known.size() + 1);
    known.insert(original, made);
    return made;
}

} // namespace

Answers Anonymizer::anonymous(Answers answers)
{
    for (QString &name : answers.interfaces)
        name = interface(name);
    for (ScanMap &network : answers.networks)
        network = anonymous(network);
    return answers;
}

ScanMap Anonymizer::anonymous(const ScanMap &network)
{
    ScanMap replaced;
    // Nobody knows what other keys hold.
    for (const QString &key : {ScanKey::Channel, ScanKey::Connected, ScanKey::Security,
             ScanKey::Signal, ScanKey::LinkRate}) {
        if (network.contains(key))
            replaced.insert(key, network.value(key));
    }
    if (network.contains(ScanKey::Bssid))
        replaced.insert(ScanKey::Bssid, address(network.value(ScanKey::Bssid)));
    if (network.contains(ScanKey::Ssid)) {
        const QString name = network.value(ScanKey::Ssid);
        replaced.insert(
            ScanKey::Ssid, name.isEmpty() ? name : standIn(m_names, name, [](int number) {
                return QStringLiteral("Network ") + QString::number(number);
            }));
    }
    return replaced;
}

QString Anonymizer::address(const QString &original)
{
    if (original.isEmpty())
        return original;
    static const QRegularExpression form(
        QStringLiteral("\\A([0-9A-Fa-f]{2})([:-])([0-9A-Fa-f]{2})\\2([0-9A-Fa-f]{2})(\\2[0-9A-Fa-f]"
                       "{2}){3}\\z"));
    return standIn(m_addresses, original.toLower(), [&original](int number) {
        const QString digits = QString::number(number, 16).rightJustified(6, QLatin1Char('0'));
        if (!form.match(original).hasMatch())
            return QStringLiteral("address ") + QString::number(number);
        const QChar divider = original.at(2);
        return original.left(9).toLower() + digits.mid(0, 2) + divider + digits.mid(2, 2) +
               divider + digits.mid(4, 2);
    });
}

/// Some systems name an adapter after its address.
QString Anonymizer::interface(const QString &original)
{
    static const QRegularExpression tail(QStringLiteral("[0-9A-Fa-f]{12}\\z"));
    if (!original.contains(tail))
        return original;
    return standIn(m_addresses, original, [&original](int number) {
        return original.left(original.size() - 6) +
               QString::number(number, 16).rightJustified(6, QLatin1Char('0'));
    });
}

} // namespace PluginCheck
