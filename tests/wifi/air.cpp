#include "air.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QtDebug>

namespace
{
const int CommandTimeoutMs = 120000;
const int SignalTolerance = 2;

QString securityText(const QString &kind)
{
    static const QMap<QString, QString> texts{
        {QStringLiteral("open"), QStringLiteral("Open")},
        {QStringLiteral("owe"), QStringLiteral("OWE")},
        {QStringLiteral("wpa1"), QStringLiteral("WPA-PSK")},
        {QStringLiteral("wpa2"), QStringLiteral("WPA2-PSK")},
        {QStringLiteral("mixed"), QStringLiteral("WPA2/WPA3")},
        {QStringLiteral("sae"), QStringLiteral("WPA3-SAE")},
        {QStringLiteral("eap"), QStringLiteral("WPA2-802.1X")},
    };
    return texts.value(kind);
}

QString text(const QJsonObject &map, const char *key)
{
    return map.value(QLatin1String(key)).toString();
}
} // namespace

bool Air::available()
{
    return qEnvironmentVariableIsSet("HWSIM");
}

QString Air::published(const QString &path)
{
    const QDir folder(QStringLiteral("/run/airlume"));
    const QString copy = folder.filePath(QFileInfo(path).fileName());
    if (QFile::exists(copy))
        return copy;
    const QFile::Permissions forAll = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser |
                                      QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                      QFile::ExeOther;
    if (!folder.mkpath(QStringLiteral(".")) || !QFile::copy(path, copy) ||
        !QFile::setPermissions(copy, forAll))
        return {};
    return copy;
}

bool Air::run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (process.waitForFinished(CommandTimeoutMs) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return true;
    qWarning().noquote() << program << arguments.join(QLatin1Char(' '))
                         << "failed:" << QString::fromUtf8(process.readAll());
    return false;
}

bool Air::hwsim(const QString &command)
{
    return run(QStringLiteral("hwsim"), command.split(QLatin1Char(' ')));
}

QVector<Air::Station> Air::stations()
{
    QProcess process;
    process.start(QStringLiteral("hwsim"), {QStringLiteral("list")});
    process.waitForFinished(CommandTimeoutMs);
    QVector<Station> stations;
    const QStringList lines = QString::fromUtf8(process.readAllStandardOutput())
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('|'));
        if (fields.size() != 7 || fields.at(1) != QStringLiteral("on"))
            continue;
        stations.append({fields.at(0), fields.at(2), fields.at(6), securityText(fields.at(4)),
            fields.at(3).toInt(), fields.at(5).toInt()});
    }
    return stations;
}

QString Air::difference(const QVector<Station> &stations, const QVector<QJsonObject> &heard)
{
    QStringList differences;
    QMap<QString, QJsonObject> left;
    for (const QJsonObject &map : heard)
        left.insert(text(map, "bssid"), map);
    for (const Station &station : stations) {
        const QJsonObject map = left.take(station.bssid);
        if (map.isEmpty()) {
            differences.append(station.name + QStringLiteral(" is not heard"));
            continue;
        }
        const auto check = [&](const char *key, const QString &expected) {
            if (text(map, key) != expected)
                differences.append(station.name + QStringLiteral(": ") + QLatin1String(key) +
                                   QStringLiteral(" is \"") + text(map, key) +
                                   QStringLiteral("\", not \"") + expected + QLatin1Char('"'));
        };
        check("ssid",
            station.ssid.isEmpty() ? QStringLiteral("(hidden) ") + station.bssid : station.ssid);
        check("channel", QString::number(station.channel));
        check("security_mode", station.security);
        const int signal = text(map, "WLAN_NETWORK_SIGNAL").toInt();
        if (qAbs(signal - station.signal) > SignalTolerance)
            differences.append(
                QStringLiteral("%1: %2 dBm, not %3")
                    .arg(station.name, QString::number(signal), QString::number(station.signal)));
    }
    for (auto it = left.cbegin(); it != left.cend(); ++it)
        differences.append(it.key() + QStringLiteral(" is not on air"));
    return differences.join(QStringLiteral("; "));
}
