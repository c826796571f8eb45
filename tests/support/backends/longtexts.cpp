// Six networks whose name, address and security are texts of 1 MB each, made to be hard to show,
// among fourteen sound ones.
#include "testbackend.h"

namespace
{
const int Letters = 1024 * 1024;

QString repeated(const QString &unit)
{
    return unit.repeated(Letters / unit.size());
}

QStringList units()
{
    return {
        QStringLiteral("w"),
        // Right-to-left override, letters, end of the override.
        QString::fromUtf8("\xe2\x80\xae\xd7\xa9\xd7\x9c"
                          "abc\xe2\x80\xac"),
        // Marks without an end, as deep as they nest.
        QString::fromUtf8("\xe2\x81\xa7\xe2\x80\xab"),
        // Bell, escape, new line, zero and their like.
        QStringLiteral("\x07\x1b[2J\n\r\t\x7f") + QChar(0),
        // One letter under a tower of accents.
        QString::fromUtf8("\xcc\x81\xcc\xa3"),
        QStringLiteral("<table><img src=x>&#x202e;%1%n"),
    };
}

QList<ScanMap> airOfLongTexts()
{
    QList<ScanMap> air = Air::networks(20);
    int index = 0;
    for (const QString &unit : units()) {
        ScanMap &map = air[index++];
        const QString text = repeated(unit);
        for (const QString &key : {ScanKey::Ssid, ScanKey::Bssid, ScanKey::Security})
            map.insert(key, text);
    }
    return air;
}

class LongTexts : public Kind
{
    bool query(QString &, QList<ScanMap> &networks) override
    {
        networks += m_air;
        return true;
    }

    const QList<ScanMap> m_air = airOfLongTexts();
};
} // namespace

AIRLUME_TEST_KIND(LongTexts)
