#ifndef AIRLUME_TESTS_WIFI_AIR_H
#define AIRLUME_TESTS_WIFI_AIR_H

#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// The air of the virtual machine, seen and changed by root.
namespace Air
{

/// An access point as it was put on air.
struct Station {
    QString name; ///< What `hwsim` calls it.
    QString bssid;
    QString ssid; ///< As Airlume shows it: empty when hidden.
    QString security;
    int channel = 0;
    int signal = 0; ///< dBm
};

/// True inside of the virtual machine.
bool available();

/// Copies a built file to where every user can read and run it, whatever the build folder allows,
/// and gives the new path; empty when that fails.
QString published(const QString &path);

/// Runs a program and waits for it; false (with its output as a warning) when it fails.
bool run(const QString &program, const QStringList &arguments);
/// Runs a command of `hwsim`, given as one text.
bool hwsim(const QString &command);

/// The access points on air.
QVector<Station> stations();

/// What a list of scan maps has wrong about the stations, in words; empty when all of them are
/// there as they should be and nothing else is. Signals may differ by 2 dB.
QString difference(const QVector<Station> &stations, const QVector<QJsonObject> &heard);

} // namespace Air

#endif
