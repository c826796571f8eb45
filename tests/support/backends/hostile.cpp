// Sound in form, but the texts are made to do harm: terminal sequences, markup, right-to-left
// marks, placeholders, a very long name.
#include "testbackend.h"

#include <QDebug>

namespace
{
QStringList names()
{
    return {
        QStringLiteral("\x1b]0;owned\x07\x1b[2J\x1b[1;1H"),
        QString::fromUtf8("\xc2\x9b"
                          "31mC1 sequence"),
        QStringLiteral("line\nfeed\rand\ttab\bback"),
        QString(QStringLiteral("nul?byte")).replace(QLatin1Char('?'), QChar()),
        QStringLiteral("<b>bold</b><img src=x onerror=alert(1)>"),
        QStringLiteral("%1 %2 %n %s %d &amp; \\"),
        QString::fromUtf8("\xe2\x80\xae"
                          "txt.exe\xe2\x81\xa6 isolated"),
        QString::fromUtf8("caf\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac \xf0\x9f\x93\xb6"),
        QString::fromUtf8("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"),
        QString(10000, QLatin1Char('w')),
        QString(),
        QStringLiteral("   "),
    };
}

class Hostile : public Kind
{
    bool list(QStringList &nics) override
    {
        nics.append(QStringLiteral("test\x1b[2J0"));
        return true;
    }

    bool query(QString &, QList<ScanMap> &networks) override
    {
        qCritical("Cannot tune \x1b[2J to %%s \x07 of network \xe2\x80\xae%%1");
        int index = 0;
        for (const QString &name : names()) {
            ScanMap map = Air::networkWith(index++, ScanKey::Ssid, name);
            map.insert(ScanKey::Security, QString::fromUtf8("WPA2\x1b[31m\xe2\x80\xae"));
            networks.append(map);
        }
        return true;
    }
};
} // namespace

AIRLUME_TEST_KIND(Hostile)
