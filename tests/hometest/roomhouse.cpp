#include "hometest/roomhouse.h"

#include "common/QtCommonTools.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace RoomHouse
{
namespace
{
// A copy under a name that no QSettings object of this process has seen.
QString freshCopy(const QTemporaryDir &folder, const QString &file)
{
    const QString copy = folder.filePath(QStringLiteral("copy.ini"));
    QFile::copy(file, copy);
    return copy;
}

int valueOf(const QSettings &settings, const char *key)
{
    const QString text = settings.value(QString::fromLatin1(key)).toString();
    return text.isEmpty() ? -1 : text.toInt();
}
} // namespace

QString file()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/WifiHomeTest.ini");
}

void restartWith(const Rooms &rooms)
{
    QtCommonTools::Release();
    QFile::remove(file());
    QFile empty(file());
    if (!empty.open(QIODevice::WriteOnly))
        qFatal("The room file cannot be written.");
    empty.close();
    QtCommonTools::Init();
    for (auto it = rooms.cbegin(); it != rooms.cend(); ++it)
        QtCommonTools::AddHomeTestToINI(it.key(), it.value());
}

void restartWithoutFile()
{
    QtCommonTools::Release();
    QFile::remove(file());
    QtCommonTools::Init();
}

void restart()
{
    QtCommonTools::Release();
    QtCommonTools::Init();
}

Rooms roomsIn(const QString &file)
{
    const QTemporaryDir folder;
    QSettings settings(freshCopy(folder, file), QSettings::IniFormat);
    Rooms rooms;
    for (const QString &room : settings.childGroups()) {
        settings.beginGroup(room);
        rooms.insert(room, {valueOf(settings, "NowPercent"), valueOf(settings, "NowSpeed"),
                               valueOf(settings, "LastPercent"), valueOf(settings, "LastSpeed")});
        settings.endGroup();
    }
    return rooms;
}

bool isReadable(const QString &file)
{
    const QTemporaryDir folder;
    QSettings settings(freshCopy(folder, file), QSettings::IniFormat);
    settings.allKeys();
    return settings.status() == QSettings::NoError;
}

QStringList hostileNames()
{
    return {
        QStringLiteral("Living Room 2"),
        QStringLiteral("100%"),
        QStringLiteral("%1 %2 %n %s"),
        QStringLiteral("%20%U0041"),
        QStringLiteral("a=b"),
        QStringLiteral("[Kitchen]"),
        QStringLiteral("]["),
        QStringLiteral("; comment"),
        QStringLiteral("# comment"),
        QStringLiteral("\"quoted\" 'name'"),
        QStringLiteral("back\\slash\\n"),
        QStringLiteral("@Invalid()"),
        QStringLiteral("@ByteArray(x)"),
        QStringLiteral("<b>bold<img src=x>"),
        QStringLiteral("&amp; Büro & Küche"),
        QStringLiteral("a,b, c"),
        QStringLiteral("General"),
        QStringLiteral("%General"),
        QStringLiteral("Now:62% signal and 144 Mbps"),
        QString::fromUtf8(
            "\xf0\x9f\x9b\x8f\xef\xb8\x8f\xf0\x9f\x91\xa8\xe2\x80\x8d\xf0\x9f\x91\xa9"),
        QString::fromUtf8(
            "\xd8\xba\xd8\xb1\xd9\x81\xd8\xa9 \xd8\xa7\xd9\x84\xd9\x86\xd9\x88\xd9\x85"),
        QString::fromUtf8("\xe5\xaf\x9d\xe5\xae\xa4"),
        QString::fromUtf8("\xe2\x80\xae"
                          "desrever"),
        QStringLiteral("tab\there"),
        QString(5000, QLatin1Char('x')),
        QString(5000, QChar(0x5bdd)),
    };
}

Rooms manyRooms(int count)
{
    Rooms rooms;
    for (int i = 0; i < count; ++i)
        rooms.insert(QStringLiteral("Room %1").arg(i, 3, 10, QLatin1Char('0')), HomeTest_Value());
    return rooms;
}

} // namespace RoomHouse
